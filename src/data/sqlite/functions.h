#pragma once

struct sqlite3;

namespace data {

// Registers what rendered statements call (the fold, the dialect's functions). Every connection needs it, since
// indexes and statements call them; deterministic ones are marked so.
void registerFunctions(sqlite3* database);

}  // namespace data
