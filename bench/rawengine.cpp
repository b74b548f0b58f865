#include "rawengine.h"

#include <libpq-fe.h>

#include <string>

#include "copyrows.h"
#include "data/opening/fileidentity.h"
#include "data/opening/serverdescription.h"
#include "data/postgres/pgparts.h"
#include "data/sqlite/functions.h"
#include "data/sqlite/sqliteengine.h"

// Both sessions are set as the road sets its own: the ratio is of the road, not of a cache or a planner.
namespace bench {
namespace {

RawQuery onSqlite(const QString& file) {
    sqlite3* opened = nullptr;
    sqlite3_open_v2(file.toUtf8().constData(), &opened, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
    const std::shared_ptr<sqlite3> database(opened, sqlite3_close);
    data::sqlite::registerFunctions(opened);
    sqlite3_exec(opened, data::sqlite::sqliteOpeningPragmas(), nullptr, nullptr, nullptr);
    return [database](const QByteArray& sql) -> RawRows {
        return [database, rows = prepareRows(database.get(), sql)] { return copyRows(rows.get()); };
    };
}

RawQuery onServer(const QString& file) {
    const data::ServerDescription server = data::readServerDescription(file);
    const QByteArray host = server.host.toUtf8(), port = server.port.toUtf8(), name = server.database.toUtf8(),
                     user = server.user.toUtf8(), password = server.password.toUtf8();
    const char* keys[] = {"host", "port", "dbname", "user", "password", nullptr};
    const char* values[] = {host.constData(), port.constData(),     name.constData(),
                            user.constData(), password.constData(), nullptr};
    const std::shared_ptr<PGconn> connection(PQconnectdbParams(keys, values, 0), PQfinish);
    PQclear(PQexec(connection.get(), data::postgres::pgSessionSettings(server, {}).constData()));
    return [connection](const QByteArray& sql) -> RawRows {
        PQclear(PQprepare(connection.get(), "", sql.constData(), 0, nullptr));
        return [connection] {
            constexpr int binary = 1;
            PGresult* rows = PQexecPrepared(connection.get(), "", 0, nullptr, nullptr, nullptr, binary);
            static std::string copy;
            copy.clear();
            const bool good = PQresultStatus(rows) == PGRES_TUPLES_OK;
            const int count = PQntuples(rows), columns = PQnfields(rows);
            for (int row = 0; row < count; ++row)
                for (int i = 0; i < columns; ++i)
                    copy.append(PQgetvalue(rows, row, i), size_t(PQgetlength(rows, row, i)));
            PQclear(rows);
            return good ? qint64(count) : -1;
        };
    };
}

}  // namespace

RawQuery rawQuery(const QString& mainFile) {
    const bool server = data::identifyFile(mainFile).kind == data::FileKind::ServerDescription;
    return server ? onServer(mainFile) : onSqlite(mainFile);
}

}  // namespace bench
