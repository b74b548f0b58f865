// An office: the folder with its two databases.
#pragma once

#include <QString>
#include <functional>

#include "data/connection.h"
#include "schema/tables.h"

namespace schema {

// Password of the users database, as the connection strings carry it.
QString usersDatabasePassword();

QString databaseFileName(Database database);
QString databasePath(const QString& folder, Database database);
QString mainDatabasePath(const QString& folder);   // FOLDER/dorvalist.mdb
QString usersDatabasePath(const QString& folder);  // FOLDER/dorvalistu.mdb

QString connectionString(Database database, const QString& file);

// Opens a database of the program: refuses, without touching anything, a file that isn't one, one of the other kind
// (main for users) and one of a newer version; brings an older version up to date. Throws data::Error. Database::Main
// or Users is told by the connection string: one with a password is the users'. `beforeUpgrade` runs before the first
// step, when there is one, and none begins when it fails: the place for a copy (copies::openUpgraded makes it).
using BeforeUpgrade = std::function<void(Database database, const QString& file)>;
void open(data::Connection& connection, const QString& connectionString, const BeforeUpgrade& beforeUpgrade);

// The same refusals, but for reading only, and an older version stays as it is: for tools that look.
void openToRead(data::Connection& connection, const QString& connectionString);

// The same refusals for a tool that holds others off the database while it reads: an older version stays as it is, and
// nothing of the database's contents may be written.
void openAsItIs(data::Connection& connection, const QString& connectionString);

}  // namespace schema
