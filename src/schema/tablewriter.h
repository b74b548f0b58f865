#pragma once

#include <QVariant>
#include <QVector>

#include "data/connection.h"
#include "schema/tables.h"

namespace schema {

// Inserts many rows of one table with one prepared statement. The connection must outlive it; a
// transaction is the caller's.
class TableWriter {
public:
    // `columns` are the table's own; those not named stay Null, a YesNo False.
    TableWriter(data::Connection& connection, const Table& table, const QStringList& columns);
    // Values in the forms of data/types.h, converted and checked as any write is. Returns the row's autonumber.
    qint64 write(const QVector<QVariant>& values);

private:
    data::Engine& engine_;
    QByteArray sql_;
    QVector<data::ColumnInfo> columns_;
    QVector<QVariant> parameters_;
};

}  // namespace schema
