#include "schema/officebuilder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "data/dialect/enginedialect.h"
#include "data/error.h"
#include "data/fileidentity.h"
#include "data/postgres/pgengine.h"
#include "data/sqlite/sqliteengine.h"
#include "schema/indexes.h"
#include "schema/office.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;

void refuseExisting(const QString& folder) {
    for (const Database database : {Database::Main, Database::Users})
        if (const QString file = databasePath(folder, database); QFileInfo::exists(file))
            throw Error(ErrorCategory::Constraint,
                        u"Υπάρχει ήδη το αρχείο «%1»· δεν πειράχτηκε τίποτα."_s.arg(QDir::toNativeSeparators(file)));
}

void moveInto(const QString& from, const QString& to) {
    QFile file(from);
    if (!file.rename(to))
        throw Error(ErrorCategory::Full, u"Δεν γράφεται το αρχείο «%1»: %2"_s.arg(to, file.errorString()));
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
    // Inside the folder, so that the last step is a rename and never a copy; what is left of it goes with its name.
    workshop_ = std::make_unique<QTemporaryDir>(QDir(folder).filePath(u".dorvalist-XXXXXX"_s));
    if (workshop_->isValid()) return;
    const QString why = workshop_->errorString();
    if (!folderWasThere_) QDir().rmdir(folder);
    throw Error(ErrorCategory::Full, u"Δεν γράφεται ο φάκελος «%1»: %2"_s.arg(QDir::toNativeSeparators(folder), why));
}

OfficeBuilder::~OfficeBuilder() {
    workshop_.reset();
    if (finished_) return;
    for (const data::ServerDescription& server : schemas_) data::dropPgDatabase(server);
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
        return data::createSqliteFile(file(database), main ? data::mainApplicationId : data::usersApplicationId);
    const data::ServerDescription server = serverFor(*server_, database);
    data::createPgDatabase(server, main ? data::DatabaseKind::Main : data::DatabaseKind::Users);
    schemas_ += server;
    data::writeServerDescription(file(database), server);
}

QString OfficeBuilder::file(Database database) const {
    return databasePath(workshop_->path(), database);
}

void OfficeBuilder::finish() {
    moveInto(file(Database::Users), usersDatabasePath(folder_));
    try {
        moveInto(file(Database::Main), mainDatabasePath(folder_));
    } catch (...) {
        QFile::remove(usersDatabasePath(folder_));
        throw;
    }
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
