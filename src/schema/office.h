// An office: the folder with its two databases.
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "data/connection.h"
#include "data/opening/serverdescription.h"
#include "schema/progress.h"
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
// (main for users) and one of a newer version; brings an older version up to date, which is what `progress` hears of.
// Throws data::Error. Database::Main or Users is told by the connection string: one with a password is the users'.
void open(data::Connection& connection, const QString& connectionString, const Progress& progress = {});

// The same refusals, but for reading only, and an older version stays as it is: for tools that look.
void openToRead(data::Connection& connection, const QString& connectionString);

// The same refusals for a tool that holds others off the database while it reads: an older version stays as it is, and
// nothing of the database's contents may be written.
void openAsItIs(data::Connection& connection, const QString& connectionString);

// Creates both databases with their tables, indexes and default rows, the groups and the Admin password; the
// folder is made if it isn't there. Refuses (data::Error) a folder that holds either file already. On a failure no file
// stays behind. `reference` loads name days, medicines and dictionary terms from the delivered files.
struct NewOffice {
    QString adminPassword;
    QString referenceFolder;  // empty: no reference data
    // With a server, both databases are made there, in the schemas NAME and NAMEu of its description ("dorvalist" when
    // it names none), which must not hold tables yet; the two files say where they are. Its password isn't the files'
    // business unless it is given here.
    std::optional<data::ServerDescription> server = {};
};
void createOffice(const QString& folder, const NewOffice& options);

}  // namespace schema
