#include "data/postgres/pgengine.h"

#include <QTimeZone>

#include "data/password.h"
#include "data/postgres/functionscript.h"
#include "data/postgres/pgcatalog.h"
#include "data/postgres/pgdialect.h"
#include "data/postgres/pgerror.h"
#include "data/postgres/pgparts.h"
#include "data/postgres/pgvalues.h"

namespace data {
namespace {

constexpr int mostPrepared = 96;
constexpr int upgradeLock = 0x444F5256;

using Result = PgResult;

using OneText = PgOneText;

QByteArray literal(const QString& text) {
    return '\'' + QString(text).replace(u'\'', QStringLiteral("''")).toUtf8() + '\'';
}

QString kindName(DatabaseKind kind) {
    return kind == DatabaseKind::Main ? QStringLiteral("main") : QStringLiteral("users");
}

// What only reads; the road composes nothing else that gives rows.
bool onlyReads(const QByteArray& sql) {
    const QByteArray word = sql.left(8).trimmed().toUpper();
    return word.startsWith("SELECT") || word.startsWith("EXPLAIN") || word.startsWith("SHOW") ||
           word.startsWith("(SELECT");
}

[[noreturn]] void refuseForeign(const ServerDescription& server) {
    throw Error(ErrorCategory::Connection,
                QStringLiteral("Στη βάση «%1» του διακομιστή, στο σχήμα «%2», δεν υπάρχει βάση αυτού του προγράμματος.")
                    .arg(server.database, server.schemaName()));
}

}  // namespace

QByteArray pgSessionSettings(const ServerDescription& server, const OpenSettings& settings) {
    QByteArray sql =
        "SET search_path TO " + pgDialect().identifier(server.schemaName()) +
        ", pg_temp; SET standard_conforming_strings TO on; SET extra_float_digits TO 1; SET DateStyle TO ISO; "
        "SET synchronous_commit TO on; "
        // An office fits into memory, and no statement of it runs long enough to be compiled.
        "SET random_page_cost TO 1.1; SET jit TO off; SET lock_timeout TO " +
        QByteArray::number(qMax(1, settings.busyTimeoutMs));
    if (settings.readOnly) sql += "; SET default_transaction_read_only TO on";
    return sql;
}

PgEngine::PgEngine(const ServerDescription& server, const OpenSettings& settings)
    : server_(server), settings_(settings) {
    connect();
    if (!settings.readOnly) refreshFunctions();
}

PgEngine::PgEngine(const ServerDescription& server, const OpenSettings& settings, Bare)
    : server_(server), settings_(settings) {
    configure();
}

PgEngine::~PgEngine() {
    disconnect();
}

void PgEngine::disconnect() noexcept {
    prepared_.clear();
    byText_.clear();
    PQfinish(connection_);
    connection_ = nullptr;
    inTransaction_ = false;
}

void PgEngine::connect() {
    try {
        configure();
        requireOurs();
    } catch (...) {
        disconnect();
        throw;
    }
}

void PgEngine::configure() {
    const std::pair<const char*, QString> wanted[] = {
        {"service", server_.service},
        {"host", server_.host},
        {"port", server_.port},
        {"dbname", server_.database},
        {"user", server_.user},
        {"password", server_.password},
        {"sslmode", server_.sslMode},
        {"application_name", QString::fromLatin1(seatName(server_))},
        {"client_encoding", QStringLiteral("UTF8")},
        {"connect_timeout", QStringLiteral("10")},
        {"tcp_user_timeout", QStringLiteral("30000")},
    };
    QVector<QByteArray> values;
    std::vector<const char*> names, pointers;
    for (const auto& [name, value] : wanted) {
        if (value.isEmpty()) continue;
        values += value.toUtf8();
        names.push_back(name);
        pointers.push_back(values.last().constData());
    }
    names.push_back(nullptr);
    pointers.push_back(nullptr);
    connection_ = PQconnectdbParams(names.data(), pointers.data(), 0);
    if (PQstatus(connection_) != CONNECTION_OK) {
        const Error error = pgConnectError(QString::fromLocal8Bit(PQerrorMessage(connection_)));
        disconnect();
        throw error;
    }
    PQsetNoticeProcessor(
        connection_, [](void*, const char*) {}, nullptr);
    script(pgSessionSettings(server_, settings_));
    // The clock of the statements is the one on the wall here. A server may not know the zone by its name.
    Result zone(PQexec(connection_,
                       ("SET TIME ZONE " + literal(QString::fromLatin1(QTimeZone::systemTimeZoneId()))).constData()));
    if (PQresultStatus(zone.get()) != PGRES_COMMAND_OK) {
        const int minutes = QDateTime::currentDateTime().offsetFromUtc() / 60;
        script("SET TIME ZONE INTERVAL '" + QByteArray::number(minutes) + " minutes'");
    }
}

void PgEngine::requireOurs() {
    OneText found;
    query(
        "SELECT to_regtype('_variant')::oid, (SELECT count(*) FROM pg_tables WHERE schemaname = current_schema() AND "
        "tablename = '_dorvalist')::text",
        {}, &found);
    if (found.value != u"1" || found.number == 0) refuseForeign(server_);
    variant_ = Oid(found.number);
    if (kind() != DatabaseKind::Users) return;
    const QString verifier = property(QStringLiteral("password"));
    if (!verifier.isEmpty() && !verifyPassword(verifier, settings_.password))
        throw Error(ErrorCategory::Password, QStringLiteral("Ο κωδικός της βάσης δεδομένων δεν είναι σωστός."));
}

void PgEngine::refreshFunctions() {
    const QString name = QStringLiteral("functions");
    if (property(name).toInt() >= postgres::functionsVersion) return;
    begin();
    try {
        lockForUpgrade();
        if (property(name).toInt() < postgres::functionsVersion) {
            script(postgres::functionsScript());
            setProperty(name, QString::number(postgres::functionsVersion));
        }
        commit();
    } catch (...) {
        rollback();
        throw;
    }
}

const EngineDialect& PgEngine::dialect() const {
    return pgDialect();
}

Catalog PgEngine::readCatalog() {
    return readPgCatalog(*this);
}

void PgEngine::requireConnection(const QByteArray& sql) {
    if (connection_ && PQstatus(connection_) == CONNECTION_OK) return;
    if (inTransaction_) throw pgLostError(sql);
    disconnect();
    connect();
}

void PgEngine::fail(PGresult* result, const QByteArray& sql) {
    const Result owned(result);
    if (PQstatus(connection_) != CONNECTION_OK) throw pgLostError(sql);
    throw pgError(result, sql);
}

void PgEngine::forget(std::list<Prepared>::iterator entry) {
    Result done(PQexec(connection_, ("DEALLOCATE " + entry->name).constData()));
    byText_.remove(entry->sql);
    prepared_.erase(entry);
}

const PgEngine::Prepared& PgEngine::prepare(const QByteArray& sql) {
    if (const auto known = byText_.constFind(sql); known != byText_.constEnd()) {
        prepared_.splice(prepared_.begin(), prepared_, *known);
        return prepared_.front();
    }
    if (sql.contains('\0'))
        throw Error(ErrorCategory::Type, QStringLiteral("Η εντολή έχει μέσα της έναν χαρακτήρα μηδέν (NUL)."),
                    QString::fromUtf8(sql));
    Prepared entry{sql, "s" + QByteArray::number(++nextName_), {}};
    Result parsed(PQprepare(connection_, entry.name.constData(), sql.constData(), 0, nullptr));
    if (PQresultStatus(parsed.get()) != PGRES_COMMAND_OK) fail(parsed.release(), sql);
    Result described(PQdescribePrepared(connection_, entry.name.constData()));
    if (PQresultStatus(described.get()) != PGRES_COMMAND_OK) fail(described.release(), sql);
    for (int i = 0; i < PQnparams(described.get()); ++i) entry.types.push_back(PQparamtype(described.get(), i));
    if (int(prepared_.size()) >= mostPrepared && PQtransactionStatus(connection_) != PQTRANS_INERROR)
        forget(std::prev(prepared_.end()));
    prepared_.push_front(std::move(entry));
    byText_.insert(sql, prepared_.begin());
    return prepared_.front();
}

PGresult* PgEngine::runOnce(const QByteArray& sql, const QVector<QVariant>& values) {
    const Prepared& statement = prepare(sql);
    if (size_t(values.size()) != statement.types.size())
        throw Error(ErrorCategory::Parameter, QStringLiteral("Λείπουν ή περισσεύουν τιμές παραμέτρων."),
                    QString::fromUtf8(sql));
    const PgParameters parameters(values, statement.types, variant_);
    return PQexecPrepared(connection_, statement.name.constData(), parameters.count(), parameters.values(),
                          parameters.lengths(), parameters.formats(), 1);
}

PGresult* PgEngine::run(const QByteArray& sql, const QVector<QVariant>& values) {
    requireConnection(sql);
    Result result(runOnce(sql, values));
    const ExecStatusType status = PQresultStatus(result.get());
    if (status == PGRES_TUPLES_OK || status == PGRES_COMMAND_OK || status == PGRES_EMPTY_QUERY) return result.release();
    // A table that somebody upgraded meanwhile: the same text means other columns now.
    const char* state = PQresultErrorField(result.get(), PG_DIAG_SQLSTATE);
    if (state && !strcmp(state, "0A000") && !inTransaction_ && byText_.contains(sql)) {
        forget(byText_.value(sql));
        result.reset(runOnce(sql, values));
        if (PQresultStatus(result.get()) == PGRES_TUPLES_OK) return result.release();
    }
    fail(result.release(), sql);
}

ExecuteResult PgEngine::execute(const QByteArray& sql, const QVector<QVariant>& parameters) {
    const Result result(run(sql, parameters));
    ExecuteResult answer;
    answer.affected = QByteArray(PQcmdTuples(result.get())).toLongLong();
    if (const int rows = PQntuples(result.get()); rows > 0 && PQnfields(result.get()) == 1) {
        OneText identity;
        sendRows(result.get(), identity);
        answer.lastIdentity = identity.number;
    }
    return answer;
}

qint64 PgEngine::query(const QByteArray& sql, const QVector<QVariant>& parameters, RowSink* sink) {
    if (!onlyReads(sql))
        throw Error(ErrorCategory::ReadOnly, QStringLiteral("Εδώ επιτρέπεται μόνο ανάγνωση."), QString::fromUtf8(sql));
    const Result result(run(sql, parameters));
    return sink ? sendRows(result.get(), *sink) : PQntuples(result.get());
}

void PgEngine::script(const QByteArray& sql) {
    requireConnection(sql);
    Result result(PQexec(connection_, sql.constData()));
    const ExecStatusType status = PQresultStatus(result.get());
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK && status != PGRES_EMPTY_QUERY)
        fail(result.release(), sql);
}

void PgEngine::begin() {
    // The server only warns, and the inner commit would save half of the outer one's work.
    if (inTransaction_) throw Error(ErrorCategory::State, QStringLiteral("Μια εργασία αποθήκευσης είναι ήδη ανοιχτή."));
    script("BEGIN");
    inTransaction_ = true;
}

void PgEngine::commit() {
    if (!inTransaction_) throw pgLostError("COMMIT");
    // Of a transaction that failed on its way COMMIT says without an error that it was rolled back.
    const bool broken = PQtransactionStatus(connection_) == PQTRANS_INERROR;
    script("COMMIT");
    inTransaction_ = false;
    if (broken)
        throw Error(ErrorCategory::State,
                    QStringLiteral("Η εργασία απέτυχε σε προηγούμενη εντολή της και δεν αποθηκεύτηκε."));
}

void PgEngine::rollback() noexcept {
    if (connection_ && PQtransactionStatus(connection_) != PQTRANS_IDLE) PQclear(PQexec(connection_, "ROLLBACK"));
    inTransaction_ = false;
}

DatabaseKind PgEngine::kind() {
    return property(QStringLiteral("kind")) == kindName(DatabaseKind::Users) ? DatabaseKind::Users : DatabaseKind::Main;
}

int PgEngine::version() {
    return property(QStringLiteral("version")).toInt();
}

void PgEngine::setVersion(int version) {
    setProperty(QStringLiteral("version"), QString::number(version));
}

QString PgEngine::property(const QString& name) {
    OneText found;
    query("SELECT value FROM _dorvalist WHERE name = $1", {name}, &found);
    return found.value;
}

void PgEngine::setProperty(const QString& name, const QString& value) {
    if (value.isEmpty())
        execute("DELETE FROM _dorvalist WHERE name = $1", {name});
    else
        execute(
            "INSERT INTO _dorvalist (name, value) VALUES ($1, $2) ON CONFLICT (name) DO UPDATE SET value = "
            "excluded.value",
            {name, value});
}

QMap<QString, QString> PgEngine::properties() {
    OneText names;
    query(
        "SELECT coalesce(string_agg(name, chr(10)), '') FROM _dorvalist WHERE name NOT IN ('kind', 'version', "
        "'functions')",
        {}, &names);
    QMap<QString, QString> all;
    for (const QString& name : names.value.split(u'\n', Qt::SkipEmptyParts)) all.insert(name, property(name));
    return all;
}

void PgEngine::lockForUpgrade() {
    script("SELECT pg_advisory_xact_lock(" + QByteArray::number(upgradeLock) +
           ", quote_ident(current_schema())::regnamespace::oid::integer)");
}

QHash<QString, QString> PgEngine::indexes() {
    return readPgIndexes(*this);
}

// The comment keeps the statement as it was given, which is what a check compares.
void PgEngine::createIndex(const QString& name, const QByteArray& sql) {
    script(sql + "; COMMENT ON INDEX " + pgDialect().identifier(name) + " IS " + literal(QString::fromUtf8(sql)));
}

// The operator class lies wherever the server's extension was put. The comment tells the catalog the columns.
void PgEngine::createWordIndex(const TableInfo& table, const QVector<int>& columns) {
    script(
        "DO $$ BEGIN CREATE EXTENSION IF NOT EXISTS pg_trgm SCHEMA public; EXCEPTION WHEN OTHERS THEN "
        "RAISE NOTICE 'pg_trgm: %', SQLERRM; END $$");
    OneText schema;
    query("SELECT extnamespace::regnamespace::text FROM pg_extension WHERE extname = 'pg_trgm'", {}, &schema);
    if (schema.value.isEmpty()) return;
    const QByteArray operators = schema.value.toUtf8() + ".gin_trgm_ops";
    const QByteArray name = pgDialect().identifier(wordIndexName(table));
    QByteArrayList parts;
    QStringList names;
    for (const int column : columns) {
        parts << pgDialect().fold(pgDialect().identifier(table.columns[column].name)) + ' ' + operators;
        names << table.columns[column].name;
    }
    script("CREATE INDEX " + name + " ON " + pgDialect().identifier(table.name) + " USING gin (" + parts.join(", ") +
           "); COMMENT ON INDEX " + name + " IS " + literal(names.join(u'\n')));
}

QStringList PgEngine::damages() {
    return {};
}

void createPgDatabase(const ServerDescription& server, DatabaseKind kind) {
    PgEngine engine(server, {}, PgEngine::Bare());
    const QByteArray schema = pgDialect().identifier(server.schemaName());
    OneText there;
    engine.query("SELECT count(*) FROM pg_class JOIN pg_namespace n ON n.oid = relnamespace WHERE nspname = $1",
                 {server.schemaName()}, &there);
    if (there.number > 0)
        throw Error(ErrorCategory::Constraint,
                    QStringLiteral("Το σχήμα «%1» της βάσης «%2» έχει ήδη πίνακες· δεν πειράχτηκε τίποτα.")
                        .arg(server.schemaName(), QString::fromUtf8(PQdb(engine.connection_))));
    OneText encoding;
    engine.query("SELECT getdatabaseencoding()::text", {}, &encoding);
    if (encoding.value != u"UTF8")
        throw Error(ErrorCategory::Connection,
                    QStringLiteral("Η βάση του διακομιστή έχει κωδικοποίηση %1· χρειάζεται UTF8.").arg(encoding.value));
    engine.begin();
    try {
        engine.script(
            "CREATE SCHEMA IF NOT EXISTS " + schema +
            "; CREATE TABLE _dorvalist (name text PRIMARY KEY, value text NOT NULL); CREATE DOMAIN _variant AS text;");
        engine.script("SET LOCAL check_function_bodies TO off;" + postgres::foldScript() + postgres::functionsScript());
        engine.setProperty(QStringLiteral("kind"), kindName(kind));
        engine.setProperty(QStringLiteral("functions"), QString::number(postgres::functionsVersion));
        engine.commit();
    } catch (...) {
        engine.rollback();
        throw;
    }
}

void dropPgDatabase(const ServerDescription& server) noexcept {
    try {
        PgEngine(server, {}, PgEngine::Bare())
            .script("DROP SCHEMA " + pgDialect().identifier(server.schemaName()) + " CASCADE");
    } catch (const Error&) {
        // What can't be reached can't be cleaned up either; the first failure is the one to tell of.
    }
}

}  // namespace data
