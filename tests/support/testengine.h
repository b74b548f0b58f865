// Which engine a test runs on, and new databases of it. A program is registered once for each engine
// (dorv_engine_tests).
#pragma once

#include <QCoreApplication>
#include <QFile>
#include <stdexcept>

#include "data/postgres/pgengine.h"

namespace testengine {

using namespace Qt::Literals::StringLiterals;

inline bool isPostgres() {
    return qgetenv("DORV_ENGINE") == "postgres";
}

// The run's own server; its absence is a failure.
inline data::ServerDescription server(const QString& schema) {
    QFile file(QFile::decodeName(qgetenv("DORV_POSTGRES")));
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("the tests' PostgreSQL server doesn't run");
    data::ServerDescription server;
    server.host = QString::fromUtf8(file.readAll());
    server.database = u"postgres"_s;
    server.user = u"postgres"_s;
    server.schema = schema;
    return server;
}

// A schema of its own on the server, gone with this object.
class Schema {
public:
    explicit Schema(data::DatabaseKind kind = data::DatabaseKind::Main) : server_(server(newName())) {
        data::postgres::createPgDatabase(server_, kind);
    }
    ~Schema() { data::postgres::dropPgDatabase(server_); }
    Schema(const Schema&) = delete;
    Schema& operator=(const Schema&) = delete;

    const data::ServerDescription& description() const { return server_; }

    static QString newName() {
        static int number = 0;
        return u"test_%1_%2"_s.arg(QCoreApplication::applicationPid()).arg(++number);
    }

private:
    data::ServerDescription server_;
};

}  // namespace testengine
