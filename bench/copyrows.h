// Rows of the embedded engine copied by a bare loop over its C interface: what the data road is measured against.
#pragma once

#include <sqlite3.h>

#include <QByteArray>
#include <string>

namespace bench {

// Prepares the statement and copies every cell once, in its own type, into room that stays from call to call. Returns
// how many rows came, -1 for a statement that failed.
inline qint64 copyRows(sqlite3* database, const QByteArray& sql) {
    static std::string copy;
    copy.clear();
    const auto append = [](const void* bytes, int size) {
        if (bytes && size > 0) copy.append(static_cast<const char*>(bytes), size_t(size));
    };
    sqlite3_stmt* rows = nullptr;
    if (sqlite3_prepare_v2(database, sql.constData(), -1, &rows, nullptr) != SQLITE_OK) return -1;
    const int columns = sqlite3_column_count(rows);
    qint64 count = 0;
    int code;
    for (; (code = sqlite3_step(rows)) == SQLITE_ROW; ++count)
        for (int i = 0; i < columns; ++i) switch (sqlite3_column_type(rows, i)) {
                case SQLITE_INTEGER: {
                    const sqlite3_int64 number = sqlite3_column_int64(rows, i);
                    append(&number, sizeof number);
                    break;
                }
                case SQLITE_FLOAT: {
                    const double number = sqlite3_column_double(rows, i);
                    append(&number, sizeof number);
                    break;
                }
                case SQLITE_TEXT: {
                    const void* text = sqlite3_column_text(rows, i);
                    append(text, sqlite3_column_bytes(rows, i));
                    break;
                }
                case SQLITE_BLOB: {
                    const void* blob = sqlite3_column_blob(rows, i);
                    append(blob, sqlite3_column_bytes(rows, i));
                    break;
                }
            }
    sqlite3_finalize(rows);
    return code == SQLITE_DONE ? count : -1;
}

}  // namespace bench
