// The indexes of the tables, made from their descriptions.
#pragma once

#include "data/connection.h"
#include "schema/tables.h"

namespace schema {

// The engine's statement that makes the index.
QByteArray indexSql(data::Connection& connection, const Table& table, const Index& index);

// The columns of the table's word index, in the catalog's numbers; empty when it has none.
QVector<int> wordColumns(const Table& table, const data::TableInfo& info);

// Makes what came with the versions from..to and still stands in the last of them, and takes away what they dropped.
// The catalog must know the table.
void createIndexes(data::Connection& connection, const Table& table, int from, int to);

}  // namespace schema
