// Rows of the embedded engine copied by a bare loop over its C interface: what the data road is measured against.
#pragma once

#include <sqlite3.h>

#include <QByteArray>
#include <memory>
#include <string>

namespace bench {

// Copies every cell once, in its own type, into room that stays from call to call, and leaves the statement ready for
// the next. Returns how many rows came, -1 for a statement that failed.
inline qint64 copyRows(sqlite3_stmt* rows) {
    static std::string copy;
    copy.clear();
    const auto append = [](const void* bytes, int size) {
        if (bytes && size > 0) copy.append(static_cast<const char*>(bytes), size_t(size));
    };
    const auto appendCell = [&](int i) {
        switch (sqlite3_column_type(rows, i)) {
            case SQLITE_INTEGER: {
                const sqlite3_int64 number = sqlite3_column_int64(rows, i);
                return append(&number, sizeof number);
            }
            case SQLITE_FLOAT: {
                const double number = sqlite3_column_double(rows, i);
                return append(&number, sizeof number);
            }
            case SQLITE_TEXT: {
                const void* text = sqlite3_column_text(rows, i);
                return append(text, sqlite3_column_bytes(rows, i));
            }
            case SQLITE_BLOB: {
                const void* blob = sqlite3_column_blob(rows, i);
                return append(blob, sqlite3_column_bytes(rows, i));
            }
        }
    };
    const int columns = sqlite3_column_count(rows);
    qint64 count = 0;
    int code;
    for (; (code = sqlite3_step(rows)) == SQLITE_ROW; ++count)
        for (int i = 0; i < columns; ++i) appendCell(i);
    sqlite3_reset(rows);
    return code == SQLITE_DONE ? count : -1;
}

// Prepared once, as the road does it; the statement must not outlive its database.
inline std::shared_ptr<sqlite3_stmt> prepareRows(sqlite3* database, const QByteArray& sql) {
    sqlite3_stmt* rows = nullptr;
    sqlite3_prepare_v2(database, sql.constData(), -1, &rows, nullptr);
    return {rows, sqlite3_finalize};
}

}  // namespace bench
