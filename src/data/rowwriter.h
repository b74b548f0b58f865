// Writes one row of a table: the statements behind Recordset::update and remove.
#pragma once

#include "data/connection.h"
#include "data/rowstore.h"

namespace data {

struct ColumnChange {
    int column;  // index in the table's columns
    QVariant value;
    QVariant before;  // as the engine gave it when the row was read
};

class RowWriter {
public:
    RowWriter(Engine& engine, const TableInfo& table) : engine_(engine), table_(table) {}

    // Conflict when one of the columns no longer holds `before` or the row is gone. Without changes only the latter.
    void update(const QVariant& identity, const QVector<ColumnChange>& changes);
    qint64 insert(const QVector<ColumnChange>& values);  // the identity of the new row
    void remove(const QVariant& identity);
    // The row as it stands; columns by their index in the table, -1 gives Null. The identity comes last.
    void readBack(qint64 identity, const QVector<int>& columns, RowSink& sink);

private:
    QByteArray name(const QString& identifier) const;
    QByteArray columnName(int column) const { return name(table_.columns[column].name); }
    QByteArray parameter(qsizetype number) const;
    QByteArray where(int parameter) const;
    void requireRow(const QVariant& identity);

    Engine& engine_;
    const TableInfo& table_;
};

}  // namespace data
