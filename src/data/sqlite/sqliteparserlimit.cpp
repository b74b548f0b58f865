#include "data/sqlite/sqliteparserlimit.h"

#include <sqlite3.h>

#include "data/sqlite/sqlitedialect.h"

namespace data::sqlite {

using dialect::ParserLimit;

// The parser's stack overflows before it looks a single name up. A word more leaves room for whoever asks for the plan.
static bool hasRoomFor(const QByteArray& statementText) {
    const QByteArray sql = "EXPLAIN " + statementText;
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    bool fits = true;
    if (sqlite3_open_v2(":memory:", &database, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK &&
        sqlite3_prepare_v2(database, sql.constData(), int(sql.size()), &statement, nullptr) != SQLITE_OK) {
        const QByteArray message = sqlite3_errmsg(database);
        fits = !message.contains("stack overflow") && !message.contains("too large");
    }
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return fits;
}

ParserLimit sqliteParserLimit() {
    return {sqliteDialect(), hasRoomFor};
}

}  // namespace data::sqlite
