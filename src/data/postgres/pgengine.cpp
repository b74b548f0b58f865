#include "data/postgres/pgengine.h"

#include <QScopedValueRollback>

#include "data/postgres/pgcatalog.h"
#include "data/postgres/pgdialect.h"
#include "data/postgres/pgerror.h"
#include "data/postgres/pgparts.h"
#include "data/postgres/pgvalues.h"
#include "data/postgres/pgwaiting.h"

using namespace Qt::Literals::StringLiterals;

namespace data::postgres {

using dialect::EngineDialect;
namespace {

constexpr int mostPrepared = 96;
constexpr int upgradeLock = 0x444F5256;

using Result = PgResult;

// As the commands of the schema want it, without a type.
QByteArray plainLiteral(const QString& text) {
    return pgDialect().EngineDialect::textLiteral(text);
}

}  // namespace

QString pgKindName(DatabaseKind kind) {
    return kind == DatabaseKind::Main ? u"main"_s : u"users"_s;
}

bool onlyReads(const QByteArray& sql) {
    const QByteArray word = sql.left(8).trimmed().toUpper();
    return word.startsWith("SELECT") || word.startsWith("EXPLAIN") || word.startsWith("SHOW") ||
           word.startsWith("(SELECT");
}

const EngineDialect& PgEngine::dialect() const {
    return pgDialect();
}

Catalog PgEngine::readCatalog() {
    return readPgCatalog(*this);
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
        throw Error(ErrorCategory::Type, u"Η εντολή έχει μέσα της έναν χαρακτήρα μηδέν (NUL)."_s,
                    QString::fromUtf8(sql));
    Prepared entry{sql, "s" + QByteArray::number(++nextName_), {}};
    const char* const name = entry.name.constData();
    Result parsed(pgAnswer(connection_, PQsendPrepare(connection_, name, sql.constData(), 0, nullptr), *wait_));
    if (PQresultStatus(parsed.get()) != PGRES_COMMAND_OK) fail(parsed.release(), sql);
    Result described(pgAnswer(connection_, PQsendDescribePrepared(connection_, name), *wait_));
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
        throw Error(ErrorCategory::Parameter, u"Λείπουν ή περισσεύουν τιμές παραμέτρων."_s, QString::fromUtf8(sql));
    const PgParameters parameters(values, statement.types, variant_);
    const int sent = PQsendQueryPrepared(connection_, statement.name.constData(), parameters.count(),
                                         parameters.values(), parameters.lengths(), parameters.formats(), 1);
    return pgAnswer(connection_, sent, *wait_).release();
}

PGresult* PgEngine::run(const QByteArray& sql, const QVector<QVariant>& values) {
    Wait wait;
    const QScopedValueRollback current(wait_, &wait);
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
        TextRows identity;
        sendRows(result.get(), identity);
        answer.lastIdentity = identity.firstNumber();
    }
    return answer;
}

qint64 PgEngine::query(const QByteArray& sql, const QVector<QVariant>& parameters, RowSink* sink) {
    if (!onlyReads(sql))
        throw Error(ErrorCategory::ReadOnly, u"Εδώ επιτρέπεται μόνο ανάγνωση."_s, QString::fromUtf8(sql));
    const Result result(run(sql, parameters));
    return sink ? sendRows(result.get(), *sink) : PQntuples(result.get());
}

void PgEngine::script(const QByteArray& sql) {
    Wait wait;
    const QScopedValueRollback current(wait_, &wait);
    requireConnection(sql);
    Result result(pgExec(connection_, sql, wait));
    const ExecStatusType status = PQresultStatus(result.get());
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK && status != PGRES_EMPTY_QUERY)
        fail(result.release(), sql);
}

void PgEngine::begin() {
    // The server only warns, and the inner commit would save half of the outer one's work.
    if (inTransaction_) throw Error(ErrorCategory::State, u"Μια εργασία αποθήκευσης είναι ήδη ανοιχτή."_s);
    script("BEGIN");
    inTransaction_ = true;
}

void PgEngine::commit() {
    if (!inTransaction_) throw pgLostError(WhatIsLost::Nothing, "COMMIT");
    // Of a transaction that failed on its way COMMIT says without an error that it was rolled back.
    const bool broken = PQtransactionStatus(connection_) == PQTRANS_INERROR;
    script("COMMIT");
    inTransaction_ = false;
    if (broken)
        throw Error(ErrorCategory::State, u"Η εργασία απέτυχε σε προηγούμενη εντολή της και δεν αποθηκεύτηκε."_s);
}

void PgEngine::rollback() noexcept {
    if (connection_ && PQtransactionStatus(connection_) != PQTRANS_IDLE) PQclear(PQexec(connection_, "ROLLBACK"));
    inTransaction_ = false;
}

DatabaseKind PgEngine::kind() {
    return property(u"kind"_s) == pgKindName(DatabaseKind::Users) ? DatabaseKind::Users : DatabaseKind::Main;
}

int PgEngine::version() {
    return property(u"version"_s).toInt();
}

void PgEngine::setVersion(int version) {
    setProperty(u"version"_s, QString::number(version));
}

QString PgEngine::property(const QString& name) {
    return textRows(*this, "SELECT value FROM _dorvalist WHERE name = $1", {name}).first();
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
    const TextRows found =
        textRows(*this, "SELECT name, value FROM _dorvalist WHERE name NOT IN ('kind', 'version', 'functions')");
    QMap<QString, QString> all;
    for (const QStringList& row : found.rows) all.insert(row[0], row[1]);
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
    script(sql + "; COMMENT ON INDEX " + pgDialect().identifier(name) + " IS " + plainLiteral(QString::fromUtf8(sql)));
}

// Where the server's extension for words lies, empty when there is none.
QByteArray PgEngine::wordSchema() {
    return textRows(*this, "SELECT extnamespace::regnamespace::text FROM pg_extension WHERE extname = 'pg_trgm'")
        .first()
        .toUtf8();
}

// The operator class lies wherever the server's extension was put. The comment tells the catalog the columns.
void PgEngine::createWordIndex(const TableInfo& table, const QVector<int>& columns) {
    script(
        "DO $$ BEGIN CREATE EXTENSION IF NOT EXISTS pg_trgm SCHEMA public; EXCEPTION WHEN OTHERS THEN "
        "RAISE NOTICE 'pg_trgm: %', SQLERRM; END $$");
    const QByteArray schema = wordSchema();
    if (schema.isEmpty()) return;
    const QByteArray operators = schema + ".gin_trgm_ops";
    const QByteArray name = pgDialect().identifier(wordIndexName(table));
    QByteArrayList parts;
    QStringList names;
    for (const int column : columns) {
        parts << pgDialect().fold(pgDialect().identifier(table.columns[column].name)) + ' ' + operators;
        names << table.columns[column].name;
    }
    script("CREATE INDEX " + name + " ON " + pgDialect().identifier(table.name) + " USING gin (" + parts.join(", ") +
           "); COMMENT ON INDEX " + name + " IS " + plainLiteral(names.join(u'\n')));
}

QStringList PgEngine::damages() {
    return {};
}

QStringList PgEngine::hindrances() {
    const QByteArray letters = wordSchema();
    if (letters.isEmpty()) return {};
    if (textRows(*this, "SELECT cardinality(" + letters + ".show_trgm('λέξη'))").firstNumber() > 0) return {};
    return {
        u"Η βάση του διακομιστή δεν γνωρίζει ελληνικά γράμματα (LC_CTYPE), και οι αναζητήσεις λέξεων "
        "διαβάζουν όλο τον πίνακα. Φτιάξτε την με --locale=C.UTF-8."_s};
}

}  // namespace data::postgres
