#include "rawengine.h"

#include <libpq-fe.h>
#include <sqlite3.h>

#include <string>

#include "data/fileidentity.h"
#include "data/postgres/pgdialect.h"
#include "data/serverdescription.h"
#include "data/sqlite/functions.h"

namespace bench {
namespace {

void copyCell(std::string& copy, const void* bytes, int size) {
    if (bytes && size > 0) copy.append(static_cast<const char*>(bytes), size_t(size));
}

RawQuery onSqlite(const QString& file) {
    sqlite3* opened = nullptr;
    sqlite3_open_v2(file.toUtf8().constData(), &opened, SQLITE_OPEN_READONLY, nullptr);
    const std::shared_ptr<sqlite3> database(opened, sqlite3_close);
    data::registerFunctions(opened);
    // As the road sets them: the ratio is of the road, not of a cache.
    sqlite3_exec(opened, "PRAGMA temp_store=MEMORY; PRAGMA cache_size=-32768;", nullptr, nullptr, nullptr);
    return [database](const QByteArray& sql) {
        sqlite3_stmt* rows = nullptr;
        sqlite3_prepare_v2(database.get(), sql.constData(), -1, &rows, nullptr);
        std::string copy;
        qint64 count = 0;
        for (; sqlite3_step(rows) == SQLITE_ROW; ++count)
            for (int i = 0; i < sqlite3_column_count(rows); ++i) {
                const int type = sqlite3_column_type(rows, i);
                const sqlite3_int64 number = sqlite3_column_int64(rows, i);
                if (type == SQLITE_INTEGER || type == SQLITE_FLOAT)
                    copyCell(copy, &number, sizeof number);
                else
                    copyCell(copy, sqlite3_column_blob(rows, i), sqlite3_column_bytes(rows, i));
            }
        sqlite3_finalize(rows);
        return count;
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
    const QByteArray path = "SET search_path TO " + data::pgDialect().identifier(server.schemaName());
    PQclear(PQexec(connection.get(), path.constData()));
    return [connection](const QByteArray& sql) {
        constexpr int binary = 1;
        PGresult* rows = PQexecParams(connection.get(), sql.constData(), 0, nullptr, nullptr, nullptr, nullptr, binary);
        std::string copy;
        const int count = PQntuples(rows), columns = PQnfields(rows);
        for (int row = 0; row < count; ++row)
            for (int i = 0; i < columns; ++i) copyCell(copy, PQgetvalue(rows, row, i), PQgetlength(rows, row, i));
        PQclear(rows);
        return qint64(count);
    };
}

}  // namespace

RawQuery rawQuery(const QString& mainFile) {
    const bool server = data::identifyFile(mainFile).kind == data::FileKind::ServerDescription;
    return server ? onServer(mainFile) : onSqlite(mainFile);
}

}  // namespace bench
