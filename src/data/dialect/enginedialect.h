// What differs from engine to engine in the text of statements.
#pragma once

#include <QByteArray>
#include <QStringList>

#include "data/types.h"

namespace data {

class EngineDialect {
public:
    virtual ~EngineDialect() = default;

    // Statements that build the tables of a TableInfo. `key` is the primary key column or empty; YesNo columns are
    // never Null and start as False.
    virtual QByteArray createTable(const TableInfo& table, const QString& key) const = 0;
    virtual QByteArray addColumn(const TableInfo& table, const ColumnInfo& column) const = 0;
    // An index in the order of the columns; text columns by their fold.
    virtual QByteArray createIndex(const QString& name, const TableInfo& table, const QStringList& columns) const = 0;
};

}  // namespace data
