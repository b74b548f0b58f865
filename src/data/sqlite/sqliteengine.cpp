#include "data/sqlite/sqliteengine.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "data/opening/databasepassword.h"
#include "data/opening/fileidentity.h"
#include "data/opening/password.h"
#include "data/opening/privatefile.h"
#include "data/smallrows.h"
#include "data/sqlite/functions.h"
#include "data/sqlite/sqlitecatalog.h"
#include "data/sqlite/sqlitedialect.h"
#include "data/sqlite/sqliteerror.h"
#include "data/sqlite/wordindex.h"

using namespace Qt::Literals::StringLiterals;

namespace data::sqlite {

using dialect::EngineDialect;
namespace {

FileIdentity requireOurs(const QString& file) {
    const FileIdentity identity = identifyFile(file);
    switch (identity.kind) {
        case FileKind::Main:
        case FileKind::Users:
            return identity;
        case FileKind::Missing:
        case FileKind::Unreadable:
        case FileKind::ServerDescription:
            throw Error(ErrorCategory::Connection, fileKindText(file, identity.kind));
        default:
            throw Error(ErrorCategory::Corrupt, fileKindText(file, identity.kind));
    }
}

[[noreturn]] void refuseReadOnly(const QString& what) {
    throw Error(ErrorCategory::ReadOnly,
                u"Δεν έχετε δικαίωμα εγγραφής %1. Ζητήστε το από τον διαχειριστή του υπολογιστή."_s.arg(what));
}

}  // namespace

const char* sqliteOpeningPragmas() {
    return "PRAGMA foreign_keys=OFF;"
           "PRAGMA synchronous=FULL;"
           "PRAGMA cell_size_check=ON;"
           "PRAGMA temp_store=MEMORY;"
           "PRAGMA cache_size=-131072;"
           "PRAGMA journal_size_limit=67108864;";
}

SqliteEngine::SqliteEngine(const OpenSettings& settings) {
    const FileIdentity identity = requireOurs(settings.file);
    kind_ = identity.kind == FileKind::Users ? DatabaseKind::Users : DatabaseKind::Main;
    try {
        configure(settings);
        if (identity.kind == FileKind::Users) checkPassword(settings);
    } catch (...) {
        closeDatabase();
        throw;
    }
}

SqliteEngine::~SqliteEngine() {
    closeDatabase();
}

void SqliteEngine::closeDatabase() noexcept {
    statements_.clear();
    if (plainJournal_) rollback();
    sqlite3_close(database_);
    database_ = nullptr;
}

void SqliteEngine::configure(const OpenSettings& settings) {
    const QFileInfo info(settings.file);
    if (!settings.readOnly && !info.isWritable()) refuseReadOnly(u"στο αρχείο «%1»"_s.arg(info.fileName()));
    // The journal lies beside the file, also for those who only read.
    const QString folder = info.absolutePath();
    if (!QFileInfo(folder).isWritable()) refuseReadOnly(u"στον φάκελο «%1»"_s.arg(QDir::toNativeSeparators(folder)));

    const int mode = settings.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    const int code =
        sqlite3_open_v2(settings.file.toUtf8().constData(), &database_, mode | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK) throw sqliteOpenError(code, settings.file);
    statements_.setDatabase(database_);
    sqlite3_extended_result_codes(database_, 1);
    busyTimeoutMs_ = settings.busyTimeoutMs;
    askWhileWaiting();
    sqlite3_db_config(database_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    // The triggers of the word indexes write a virtual table, which only a trusted schema may. All functions that are
    // registered here are harmless ones, so a foreign schema gains nothing from it.
    sqlite3_db_config(database_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 1, nullptr);
    sqlite3_db_config(database_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_limit(database_, SQLITE_LIMIT_ATTACHED, 1);  // VACUUM needs one
    registerFunctions(database_);
    script(sqliteOpeningPragmas());
    // SQLite opens a file it can't write for reading only, without a word.
    if (!settings.readOnly && sqlite3_db_readonly(database_, "main") == 1)
        refuseReadOnly(u"στο αρχείο «%1»"_s.arg(info.fileName()));
    if (!settings.readOnly) script("PRAGMA journal_mode=WAL");
    query("SELECT count(*) FROM sqlite_schema", {}, nullptr);  // a damaged first page shows now, not later
}

void SqliteEngine::checkPassword(const OpenSettings& settings) {
    const QString verifier = databaseVerifier(*this);
    if (!verifier.isEmpty() && !verifyPassword(verifier, settings.password))
        throw Error(ErrorCategory::Password, u"Ο κωδικός της βάσης δεδομένων δεν είναι σωστός."_s);
}

const EngineDialect& SqliteEngine::dialect() const {
    return sqliteDialect();
}

Catalog SqliteEngine::readCatalog() {
    return readSqliteCatalog(*this);
}

// The write lock is taken at once: a later one could fail half way for a reader grown old.
void SqliteEngine::begin() {
    script("BEGIN IMMEDIATE");
}

void SqliteEngine::commit() {
    script("COMMIT");
}

void SqliteEngine::rollback() noexcept {
    if (sqlite3_get_autocommit(database_) == 0) sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
    leavePlainJournal();
}

int SqliteEngine::version() {
    return int(textRows(*this, "PRAGMA user_version").firstNumber());
}

void SqliteEngine::setVersion(int version) {
    script("PRAGMA user_version = " + QByteArray::number(version));
}

// The table of the properties comes with the first of them.
static bool hasProperties(Engine& engine) {
    return textRows(engine, "SELECT count(*) FROM sqlite_schema WHERE type='table' AND name='_dorvalista'")
               .firstNumber() > 0;
}

QString SqliteEngine::property(const QString& name) {
    if (!hasProperties(*this)) return {};
    return textRows(*this, "SELECT value FROM _dorvalista WHERE name=?1", {name}).first();
}

void SqliteEngine::setProperty(const QString& name, const QString& value) {
    script("CREATE TABLE IF NOT EXISTS _dorvalista (name TEXT PRIMARY KEY, value TEXT)");
    if (value.isEmpty())
        execute("DELETE FROM _dorvalista WHERE name=?1", {name});
    else
        execute(
            "INSERT INTO _dorvalista (name,value) VALUES (?1,?2) ON CONFLICT (name) DO UPDATE SET value=excluded.value",
            {name, value});
}

QMap<QString, QString> SqliteEngine::properties() {
    QMap<QString, QString> all;
    if (!hasProperties(*this)) return all;
    for (const QStringList& row : textRows(*this, "SELECT name, value FROM _dorvalista").rows)
        all.insert(row[0], row[1]);
    return all;
}

void SqliteEngine::createIndex(const QString&, const QByteArray& sql) {
    script(sql);
}

void SqliteEngine::createWordIndex(const TableInfo& table, const QVector<int>& columns) {
    script(wordIndexScript(table, columns));
}

QHash<QString, QString> SqliteEngine::indexes() {
    QHash<QString, QString> indexes;
    for (const QStringList& row :
         textRows(*this, "SELECT name, sql FROM sqlite_schema WHERE type='index' AND sql IS NOT NULL").rows)
        indexes.insert(row[0], row[1]);
    return indexes;
}

QStringList SqliteEngine::damages() {
    QStringList found;
    for (const QStringList& row : textRows(*this, "PRAGMA integrity_check").rows)
        if (row[0] != u"ok") found += row[0];
    return found;
}

void createSqliteFile(const QString& file, quint32 applicationId) {
    {
        QFile target(file);
        if (!target.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            if (QFileInfo::exists(file)) {
                throw Error(ErrorCategory::Constraint, u"Το αρχείο «%1» υπάρχει ήδη."_s.arg(file));
            }
            refuseReadOnly(u"στον φάκελο «%1»"_s.arg(QFileInfo(file).absolutePath()));
        }
    }
    closeToOthers(file);  // what the engine puts beside it gets the same rights
    sqlite3* database = nullptr;
    int code = sqlite3_open_v2(file.toUtf8().constData(), &database, SQLITE_OPEN_READWRITE, nullptr);
    const QByteArray sql =
        "PRAGMA page_size=4096; PRAGMA encoding='UTF-8'; PRAGMA journal_mode=WAL; PRAGMA application_id=" +
        QByteArray::number(applicationId) + "; PRAGMA user_version=0;";
    if (code == SQLITE_OK) code = sqlite3_exec(database, sql.constData(), nullptr, nullptr, nullptr);
    sqlite3_close(database);
    if (code == SQLITE_OK) return;
    QFile::remove(file);
    for (const QString& made : sqliteSideFiles(file)) QFile::remove(made);
    throw sqliteOpenError(code, file);
}

}  // namespace data::sqlite
