#include "schema/officebuilder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "data/dialect/enginedialect.h"
#include "data/error.h"
#include "data/opening/fileidentity.h"
#include "data/postgres/pgengine.h"
#include "data/sqlite/sqliteengine.h"
#include "schema/databasefiles.h"
#include "schema/filereplacement.h"
#include "schema/indexes.h"
#include "schema/office.h"
#include "schema/workfolder.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;

void refuseExisting(const QString& folder) {
    for (const Database database : allDatabases) refuseIfThere(databasePath(folder, database));
}

// What a version had of a table's columns; its indexes know their versions themselves.
Table asInVersion(Table table, int version) {
    table.columns.removeIf([version](const Column& column) { return column.since > version; });
    return table;
}

QVector<Table> tablesOfVersion(Database database, int version) {
    QVector<Table> all;
    for (const Table& table : tables(database))
        if (table.since <= version) all += asInVersion(table, version);
    return all;
}

}  // namespace

OfficeBuilder::OfficeBuilder(const QString& folder, const std::optional<data::ServerDescription>& server)
    : folder_(folder), server_(server), folderWasThere_(QFileInfo::exists(folder)) {
    refuseExisting(folder);
    if (!QDir().mkpath(folder)) throw Error(ErrorCategory::Full, u"Δεν δημιουργείται ο φάκελος «%1»."_s.arg(folder));
    try {
        workFolder_ = workFolderIn(folder);
    } catch (...) {
        if (!folderWasThere_) QDir().rmdir(folder);
        throw;
    }
}

OfficeBuilder::~OfficeBuilder() {
    workFolder_.reset();
    if (finished_) return;
    for (const data::ServerDescription& server : schemas_) data::postgres::dropPgDatabase(server);
    if (!folderWasThere_) QDir().rmdir(folder_);
}

data::ServerDescription serverFor(const data::ServerDescription& office, Database database) {
    data::ServerDescription server = office;
    const QString name = server.schema.isEmpty() ? u"dorvalist"_s : server.schema;
    server.schema = database == Database::Main ? name : name + u'u';
    return server;
}

void OfficeBuilder::make(Database database) {
    const bool main = database == Database::Main;
    if (!server_)
        return data::sqlite::createSqliteFile(file(database),
                                              main ? data::mainApplicationId : data::usersApplicationId);
    const data::ServerDescription server = serverFor(*server_, database);
    data::postgres::createPgDatabase(server, main ? data::DatabaseKind::Main : data::DatabaseKind::Users);
    schemas_ += server;
    data::writeServerDescription(file(database), server);
}

QString OfficeBuilder::file(Database database) const {
    return databasePath(workFolder_->path(), database);
}

void OfficeBuilder::finish() {
    refuseExisting(folder_);
    FileReplacement replacement;
    for (const Database database : allDatabases)
        replacement.put(file(database), databasePath(folder_, database), QDateTime::currentDateTime());
    replacement.keep();
    finished_ = true;
}

void makeTables(data::Connection& connection, Database database, int version) {
    data::Engine& engine = connection.engine();
    for (const Table& table : tablesOfVersion(database, version))
        engine.script(engine.dialect().createTable(tableInfo(table), table.key));
    connection.reloadCatalog();
}

void makeIndexes(data::Connection& connection, Database database, int version) {
    for (const Table& table : tablesOfVersion(database, version)) createIndexes(connection, table, 1, version);
    connection.reloadCatalog();
}

}  // namespace schema
