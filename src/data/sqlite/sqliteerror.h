// SQLite's result codes as errors of the data road.
#pragma once

#include <QByteArray>

#include "data/error.h"

struct sqlite3;

namespace data::sqlite {

// `preparing` tells a statement that doesn't parse from one that fails while it runs.
Error sqliteError(sqlite3* database, int code, const QByteArray& sql = {}, bool preparing = false);

// The same for a file that couldn't even be opened.
Error sqliteOpenError(int code, const QString& file);

// A result that no number can hold.
Error sqliteRangeError(const QByteArray& sql);

}  // namespace data::sqlite
