#pragma once

#include <QStringList>

#include "data/connection.h"
#include "data/triggers.h"
#include "schema/tables.h"

namespace schema {

// What differs in an open database from the tables as data, and what the engine finds damaged in its file; a Greek
// line each, none when all is well.
QStringList findings(data::Connection& connection, Database database);

// What only makes searches slower than they should be; nothing to refuse an office for.
QStringList hindrances(data::Connection& connection, Database database);

// What the engine finds damaged, alone, whatever the version.
QStringList fileDamage(data::Connection& connection);

// Triggers that aren't the program's: they change or refuse rows behind its back.
QVector<data::Trigger> foreignTriggers(data::Connection& connection, Database database);

// Whether a table's word index, if it has one, is kept in step with the rows.
bool wordTriggersStand(data::Connection& connection, const Table& table);

// The files of a database, with those beside it that are named after it, which other users of the machine can read; a
// Greek line each.
QStringList openFiles(const QString& file);
// Closes them. Throws data::Error for one that isn't this user's.
void closeFiles(const QString& file);

struct TableCount {
    QString table;
    qint64 rows;
};
QVector<TableCount> tableCounts(data::Connection& connection, Database database);

}  // namespace schema
