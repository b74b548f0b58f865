// One session on the server: its beginning, its settings, and what is told when it ends by itself.
#include <QElapsedTimer>
#include <QTimeZone>

#include "data/opening/password.h"
#include "data/postgres/functionscript.h"
#include "data/postgres/pgdialect.h"
#include "data/postgres/pgengine.h"
#include "data/postgres/pgerror.h"
#include "data/postgres/pgparts.h"
#include "data/postgres/pgwaiting.h"

using namespace Qt::Literals::StringLiterals;

namespace data::postgres {
namespace {

const QString functionsProperty = u"functions"_s;

[[noreturn]] void refuseForeign(const ServerDescription& server) {
    throw Error(ErrorCategory::Connection,
                u"Στη βάση «%1» του διακομιστή, στο σχήμα «%2», δεν υπάρχει βάση αυτού του προγράμματος."_s.arg(
                    server.database, server.schemaName()));
}

[[noreturn]] void refuseRights(const ServerDescription& server, const char* user) {
    throw Error(ErrorCategory::Connection,
                u"Ο χρήστης «%1» δεν έχει δικαίωμα στο σχήμα «%2» του διακομιστή. Δώστε του τον ρόλο του "
                "ιδιοκτήτη της βάσης."_s.arg(QString::fromUtf8(user), server.schemaName()));
}

constexpr int connectSeconds = 10;  // for each host

// The connection's keywords and values, as libpq takes them.
class ConnectionWords {
public:
    explicit ConnectionWords(const ServerDescription& server) {
        const std::pair<const char*, QString> wanted[] = {
            {"service", server.service},
            {"host", server.host},
            {"port", server.port},
            {"dbname", server.database},
            {"user", server.user},
            {"password", server.password},
            {"sslmode", server.sslMode},
            {"application_name", seatName(server)},
            {"client_encoding", u"UTF8"_s},
            {"connect_timeout", QString::number(connectSeconds)},
            // A server that vanishes is missed within half a minute, whether bytes were on their way or not.
            {"tcp_user_timeout", u"30000"_s},
            {"keepalives_idle", u"15"_s},
            {"keepalives_interval", u"5"_s},
            {"keepalives_count", u"3"_s},
        };
        for (const auto& [name, value] : wanted) {
            if (value.isEmpty()) continue;
            values_ += value.toUtf8();
            names_.push_back(name);
            pointers_.push_back(values_.last().constData());
        }
        names_.push_back(nullptr);
        pointers_.push_back(nullptr);
    }
    const char* const* names() const { return names_.data(); }
    const char* const* values() const { return pointers_.data(); }

private:
    QVector<QByteArray> values_;
    std::vector<const char*> names_, pointers_;
};

// The statement's beginning, for logs; a script of the schema's own work has a thousand lines.
QByteArray head(const QByteArray& sql) {
    constexpr qsizetype longest = 2000;
    return sql.size() <= longest ? sql : sql.left(longest) + " …";
}

}  // namespace

QByteArray pgSessionSettings(const ServerDescription& server, const OpenSettings& settings) {
    QByteArray sql =
        "SET search_path TO " + pgDialect().identifier(server.schemaName()) +
        ", pg_temp; SET standard_conforming_strings TO on; SET extra_float_digits TO 1; SET DateStyle TO ISO; "
        "SET synchronous_commit TO on; SET default_transaction_isolation TO 'read committed'; "
        "SET statement_timeout TO 0; SET idle_session_timeout TO 0; SET idle_in_transaction_session_timeout TO 0; "
        // What a seat that is gone had asked for ends, and its locks with it. Not every system can tell, nor every
        // server.
        "DO $$ BEGIN PERFORM set_config('client_connection_check_interval', '3000', false); "
        "EXCEPTION WHEN OTHERS THEN NULL; END $$; "
        // An office fits into memory, and no statement of it runs long enough to be compiled.
        "SET random_page_cost TO 1.1; SET jit TO off; SET lock_timeout TO " +
        QByteArray::number(qMax(1, settings.busyTimeoutMs));
    if (settings.readOnly) sql += "; SET default_transaction_read_only TO on";
    return sql;
}

// A constructor that hands on to another is undone by the destructor when it fails.
PgEngine::PgEngine(const ServerDescription& server, const OpenSettings& settings, Unconnected)
    : server_(server), settings_(settings) {}

PgEngine::PgEngine(const ServerDescription& server, const OpenSettings& settings)
    : PgEngine(server, settings, Unconnected()) {
    connect();
    if (!settings.readOnly) refreshFunctions();
}

PgEngine::PgEngine(const ServerDescription& server, const OpenSettings& settings, Bare)
    : PgEngine(server, settings, Unconnected()) {
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
    const ConnectionWords words(server_);
    QElapsedTimer clock;
    clock.start();
    {
        Wait wait;
        const int hosts = 1 + int(server_.host.count(u','));
        connection_ = pgConnect(words.names(), words.values(), connectSeconds * hosts, wait);
        if (wait.isStopped()) {
            disconnect();
            throw stoppedError("");
        }
    }
    if (PQstatus(connection_) != CONNECTION_OK) {
        // Why a connection fails the library tells in words alone. One that took long was never answered.
        const PGPing answer =
            clock.elapsed() < 2000 ? PQpingParams(words.names(), words.values(), 0) : PQPING_NO_RESPONSE;
        const Error error = pgConnectError(QString::fromLocal8Bit(PQerrorMessage(connection_)), answer);
        disconnect();
        throw error;
    }
    PQsetNoticeProcessor(
        connection_, [](void*, const char*) {}, nullptr);
    script(pgSessionSettings(server_, settings_));
    // The clock of the statements is the one on the wall here. A server may not know the zone by its name.
    const QByteArray zone = pgDialect().EngineDialect::textLiteral(QString::fromUtf8(QTimeZone::systemTimeZoneId()));
    const PgResult set(PQexec(connection_, ("SET TIME ZONE " + zone).constData()));
    if (PQresultStatus(set.get()) != PGRES_COMMAND_OK) {
        const int minutes = QDateTime::currentDateTime().offsetFromUtc() / 60;
        script("SET TIME ZONE INTERVAL '" + QByteArray::number(minutes) + " minutes'");
    }
    actAsOwner();
}

// What one seat makes, another one must be able to replace: whoever is a member of the owner works in its name. A
// schema that isn't there yet, and the one called public, are the database's owner's.
void PgEngine::actAsOwner() {
    const QString owner =
        textRows(
            *this,
            "SELECT r.rolname::text FROM pg_roles r WHERE r.oid = coalesce("
            "(SELECT coalesce(nullif(nspowner, to_regrole('pg_database_owner')::oid), c.relowner) FROM pg_namespace n "
            "LEFT JOIN pg_class c ON c.relnamespace = n.oid AND c.relname = '_dorvalist' WHERE nspname = $1), "
            "(SELECT datdba FROM pg_database WHERE datname = current_database())) AND r.rolname <> current_user AND "
            "r.rolname NOT LIKE 'pg\\_%' AND pg_has_role(r.oid, 'MEMBER')",
            {server_.schemaName()})
            .first();
    if (owner.isEmpty()) return;
    try {
        script("SET ROLE " + pgDialect().identifier(owner));
    } catch (const Error&) {
        // Newer servers know members that may not act as the role; such a one works in its own name.
    }
}

// A missing right must not look like a missing office.
void PgEngine::requireOurs() {
    const QVector<QVariant> schema = {server_.schemaName()};
    if (textRows(*this, "SELECT 1 FROM pg_namespace WHERE nspname = $1 AND NOT has_schema_privilege(oid, 'USAGE')",
                 schema)
            .firstNumber() == 1)
        refuseRights(server_, PQuser(connection_));
    variant_ = Oid(textRows(*this,
                            "SELECT t.oid FROM pg_type t JOIN pg_class c ON c.relnamespace = t.typnamespace JOIN "
                            "pg_namespace n ON n.oid = t.typnamespace WHERE nspname = $1 AND typname = '_variant' AND "
                            "relname = '_dorvalist'",
                            schema)
                       .firstNumber());
    if (variant_ == 0) refuseForeign(server_);
    if (kind() != DatabaseKind::Users) return;
    const QString verifier = property(u"password"_s);
    if (!verifier.isEmpty() && !verifyPassword(verifier, settings_.password))
        throw Error(ErrorCategory::Password, u"Ο κωδικός της βάσης δεδομένων δεν είναι σωστός."_s);
}

void PgEngine::refreshFunctions() {
    const QString& name = functionsProperty;
    if (property(name).toInt() >= functionsVersion) return;
    begin();
    try {
        lockForUpgrade();
        if (property(name).toInt() < functionsVersion) {
            script(functionsScript());
            setProperty(name, QString::number(functionsVersion));
        }
        commit();
    } catch (...) {
        rollback();
        throw;
    }
}

void PgEngine::requireConnection(const QByteArray& sql) {
    if (connection_ && PQstatus(connection_) == CONNECTION_OK) return;
    if (inTransaction_) throw pgLostError(WhatIsLost::Nothing, sql);
    disconnect();
    connect();
}

// A statement that only reads loses nothing, nor does one inside a transaction, which ends with its session. A server
// that says that it stops didn't begin it. Of any other nobody knows here whether it was carried out.
void PgEngine::fail(PGresult* result, const QByteArray& sql) {
    const PgResult owned(result);
    if (wait_ && wait_->isStopped()) failStopped(result, sql);
    if (PQstatus(connection_) == CONNECTION_OK) throw pgError(result, head(sql));
    const bool refused = QByteArray(PQresultErrorField(result, PG_DIAG_SQLSTATE)).startsWith("57P0");
    const bool certain = refused || onlyReads(sql) || (inTransaction_ && sql != "COMMIT");
    throw pgLostError(certain ? WhatIsLost::Nothing : WhatIsLost::Unknown, head(sql));
}

// Without an answer the connection is given up; a transaction ends with it, and whoever is in it still hears so.
void PgEngine::failStopped(const PGresult* result, const QByteArray& sql) {
    const bool certain = result || onlyReads(sql) || (inTransaction_ && sql != "COMMIT");
    if (!result || PQstatus(connection_) != CONNECTION_OK) {
        const bool inTransaction = inTransaction_;
        disconnect();
        inTransaction_ = inTransaction;
    }
    throw stoppedError(head(sql), certain);
}

}  // namespace data::postgres
