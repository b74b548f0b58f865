#include "data/postgres/pgschemas.h"

#include "data/postgres/functionscript.h"
#include "data/postgres/pgdialect.h"
#include "data/postgres/pgengine.h"
#include "data/postgres/pgerror.h"
#include "data/postgres/pgparts.h"

using namespace Qt::Literals::StringLiterals;

namespace data::postgres {

namespace {

constexpr qsizetype longestName = 63;  // bytes that the server keeps of it
constexpr int mostGlances = 10;

}  // namespace

// A tool doesn't call itself as the seats do, by whose names it looks for them.
PgSchemaWork::PgSchemaWork(const ServerDescription& server) : engine_(new PgEngine(server, {}, PgEngine::Bare())) {
    script("SET application_name TO 'dorvalist-schemas'");
    engine_->begin();
}

PgSchemaWork::~PgSchemaWork() = default;  // what wasn't committed goes with the connection

qint64 PgSchemaWork::number(const QByteArray& sql, const QString& parameter) {
    return textRows(*engine_, sql, {parameter}).firstNumber();
}

bool PgSchemaWork::has(const QString& schema) {
    return number("SELECT count(*) FROM pg_namespace WHERE nspname = $1", schema) > 0;
}

bool PgSchemaWork::hasObjects(const QString& schema) {
    return pgObjects(*engine_, schema) > 0;
}

void PgSchemaWork::claim(const QString& name) {
    if (number("SELECT pg_try_advisory_xact_lock(hashtextextended($1, 0))::integer", name) == 0)
        throw Error(ErrorCategory::Busy, u"Στον διακομιστή γίνεται ήδη μια επαναφορά. Δοκιμάστε ξανά σε λίγο."_s);
}

// A seat that has just left stands on the list for another moment.
void PgSchemaWork::requireNobodyIn(const QString& schema) {
    ServerDescription seat;
    seat.schema = schema;
    qint64 others = 1;
    for (int glance = 0; others > 0 && glance < mostGlances; ++glance) {
        if (glance > 0) script("SELECT pg_sleep(0.05), pg_stat_clear_snapshot()");
        others = number(
            "SELECT count(*) FROM pg_stat_activity WHERE datname = current_database() AND pid <> pg_backend_pid() AND "
            "application_name = $1",
            seatName(seat));
    }
    if (others > 0)
        throw Error(ErrorCategory::Busy,
                    u"Κάποιος έχει ανοιχτή τη βάση στον διακομιστή (συνδέσεις: %1)."_s.arg(others));
}

void PgSchemaWork::actAsOwnerOf(const QString& schema) {
    const QString owner =
        textRows(*engine_,
                 "SELECT r.rolname::text FROM pg_namespace n JOIN pg_roles r ON r.oid = n.nspowner WHERE nspname = $1 "
                 "AND r.rolname <> current_user AND r.rolname NOT LIKE 'pg\\_%' AND pg_has_role(r.oid, 'MEMBER')",
                 {schema})
            .first();
    if (owner.isEmpty()) return;
    script("SAVEPOINT role");
    try {
        script("SET LOCAL ROLE " + pgDialect().identifier(owner));
    } catch (const Error&) {
        script("ROLLBACK TO SAVEPOINT role");  // newer servers know members that may not act as the role
    }
}

void PgSchemaWork::actAsMyself() {
    script("SET LOCAL ROLE NONE");
}

void PgSchemaWork::create(const QString& schema) {
    engine_->requireUtf8();
    script("CREATE SCHEMA " + pgDialect().identifier(schema));
}

void PgSchemaWork::rename(const QString& schema, const QString& name) {
    script("ALTER SCHEMA " + pgDialect().identifier(schema) + " RENAME TO " + pgDialect().identifier(name));
}

void PgSchemaWork::drop(const QString& schema) {
    script("DROP SCHEMA " + pgDialect().identifier(schema) + " CASCADE");
}

void PgSchemaWork::dropEmpty(const QString& schema) {
    script("DROP SCHEMA " + pgDialect().identifier(schema));
}

void PgSchemaWork::renewFunctions(const QString& schema) {
    script("SET LOCAL search_path TO " + pgDialect().identifier(schema) +
           ", pg_temp; SET LOCAL check_function_bodies TO off;" + functionsScript());
}

void PgSchemaWork::script(const QByteArray& sql) {
    engine_->script(sql);
}

void PgSchemaWork::beginCopy(const QByteArray& sql) {
    PgResult started(PQexec(engine_->connection_, sql.constData()));
    if (PQresultStatus(started.get()) != PGRES_COPY_IN) engine_->fail(started.release(), sql);
    copy_ = sql;
}

void PgSchemaWork::copyRows(const QByteArray& rows) {
    if (PQputCopyData(engine_->connection_, rows.constData(), int(rows.size())) != 1)
        throw pgLostError(WhatIsLost::Nothing, copy_);
}

void PgSchemaWork::endCopy() {
    PQputCopyEnd(engine_->connection_, nullptr);
    PgResult first;
    while (PgResult next{PQgetResult(engine_->connection_)})
        if (!first) first = std::move(next);
    if (PQresultStatus(first.get()) != PGRES_COMMAND_OK) engine_->fail(first.release(), copy_);
}

void PgSchemaWork::commit() {
    engine_->commit();
}

PgSchemaState pgSchemaState(const ServerDescription& server) {
    PgSchemaWork work(server);
    if (!work.has(server.schemaName())) return PgSchemaState::Absent;
    return work.hasObjects(server.schemaName()) ? PgSchemaState::Taken : PgSchemaState::Empty;
}

QString pgNameWith(const QString& name, const QString& ending) {
    QString start = name;
    while ((start + ending).toUtf8().size() > longestName) start.chop(start.back().isLowSurrogate() ? 2 : 1);
    return start + ending;
}

QString pgConnectionText(const ServerDescription& server) {
    const std::pair<QString, QString> parts[] = {{u"service"_s, server.service}, {u"host"_s, server.host},
                                                 {u"port"_s, server.port},       {u"dbname"_s, server.database},
                                                 {u"user"_s, server.user},       {u"sslmode"_s, server.sslMode}};
    QStringList pairs;
    for (const auto& [name, value] : parts) {
        if (value.isEmpty()) continue;
        QString quoted = value;
        quoted.replace(u'\\', u"\\\\"_s).replace(u'\'', u"\\'"_s);
        pairs += name + u"='"_s + quoted + u'\'';
    }
    return pairs.join(u' ');
}

}  // namespace data::postgres
