#pragma once

#include <QStringList>

#include "data/connection.h"
#include "schema/tables.h"

namespace schema {

// What differs in an open database from the tables as data, and what the engine finds damaged in its file; a Greek
// line each, none when all is well.
QStringList findings(data::Connection& connection, Database database);

// What only makes searches slower than they should be; nothing to refuse an office for.
QStringList hindrances(data::Connection& connection, Database database);

// What the engine finds damaged, alone, whatever the version.
QStringList fileDamage(data::Connection& connection);

struct TableCount {
    QString table;
    qint64 rows;
};
QVector<TableCount> tableCounts(data::Connection& connection, Database database);

}  // namespace schema
