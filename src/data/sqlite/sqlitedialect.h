// Stored forms: a date is whole seconds since 1899-12-30, a flag 0 or 1, a text UTF-8. Declared column types carry the
// dialect's type without a wrong affinity.
#pragma once

#include "data/dialect/enginedialect.h"

namespace data::sqlite {

// Declared types carry the dialect's type through SQLite without a wrong affinity:
// AUTONUMBER is "INTEGER PRIMARY KEY AUTOINCREMENT", the others "INTEGER" (Long), "SMALLINT", "FLOAT" (Single),
// "DOUBLE", "TEXT(n)", "LONGTEXT" (Memo), "YESNO", "DATETIME", "LONGBLOB".
const dialect::EngineDialect& sqliteDialect();

// A column from its declaration as PRAGMA table_info gives it.
ColumnInfo columnFromDeclaration(const QString& name, const QString& declaredType, bool isRowIdKey);

}  // namespace data::sqlite
