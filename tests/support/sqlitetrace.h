// The statements that an embedded database runs, as its engine sees them.
#pragma once

#include <sqlite3.h>

#include <QByteArrayList>

#include "data/connection.h"
#include "data/sqlite/sqliteengine.h"

namespace support {

// Listens while it lives; the connection must outlive it and be on the embedded engine.
class SqliteTrace {
public:
    explicit SqliteTrace(data::Connection& connection)
        : handle_(static_cast<data::sqlite::SqliteEngine&>(connection.engine()).handle()) {
        sqlite3_trace_v2(handle_, SQLITE_TRACE_STMT, &SqliteTrace::note, this);
    }
    ~SqliteTrace() { sqlite3_trace_v2(handle_, 0, nullptr, nullptr); }
    SqliteTrace(const SqliteTrace&) = delete;
    SqliteTrace& operator=(const SqliteTrace&) = delete;

    int count(const QByteArray& sql) const { return int(statements_.count(sql)); }

    int containing(const QByteArray& piece) const {
        return int(std::count_if(statements_.begin(), statements_.end(),
                                 [&](const QByteArray& sql) { return sql.contains(piece); }));
    }

private:
    // What the engine's own extensions ask for has no place here: they name their tables with a database before.
    static int note(unsigned, void* self, void* statement, void*) {
        const QByteArray sql = sqlite3_sql(static_cast<sqlite3_stmt*>(statement));
        if (!sql.contains("'main'.") && !sql.contains("\"main\".")) static_cast<SqliteTrace*>(self)->statements_ += sql;
        return 0;
    }

    sqlite3* handle_;
    QByteArrayList statements_;
};

}  // namespace support
