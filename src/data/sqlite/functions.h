#pragma once

struct sqlite3;

namespace data::sqlite {

// Registers what rendered statements call (the fold, the dialect's functions). Every connection needs it, since
// indexes and statements call them; deterministic ones are marked so.
// A value that doesn't fit its column ends the statement with SQLITE_MISMATCH (Type) or SQLITE_CONSTRAINT (Constraint)
// and the Greek sentence as sqlite3_errmsg.
void registerFunctions(sqlite3* database);

}  // namespace data::sqlite
