// What can be put right in an open database without touching its rows.
#pragma once

#include <QStringList>

#include "data/connection.h"
#include "schema/tables.h"

namespace schema {

// Drops foreign triggers, makes missing or changed indexes and the word indexes whose triggers or columns aren't right
// anew, in one transaction. `beforeChange` runs first, if there is anything to do at all: the place for a copy. Returns
// a Greek line for each thing done. Throws data::Error; State for a database of another version.
QStringList repair(data::Connection& connection, Database database, const std::function<void()>& beforeChange);

}  // namespace schema
