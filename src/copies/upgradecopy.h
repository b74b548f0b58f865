// Opening a database that may be of an older version: a copy comes first.
#pragma once

#include <QDateTime>
#include <QString>

#include "copies/servertools.h"
#include "data/connection.h"
#include "schema/progress.h"
#include "schema/tables.h"

namespace copies {

// Before a database is changed by an upgrade: a checked copy beside it (of one on a server, a dump in the custom format
// beside the file that describes it), named after it, its version and `now`; the last few are kept. Returns the copy's
// path; an empty one for a server without its tools here, where the step's transaction is the only safety.
QString copyBeforeUpgrade(data::Connection& connection, schema::Database database, const QString& file,
                          const QDateTime& now, const schema::Progress& progress = {},
                          const ServerTools& tools = findServerTools());

// Opens a database of the program as schema::open does, and makes that copy before an older version is brought up to
// date, which is what `progress` hears of. Throws data::Error.
void openUpgraded(data::Connection& connection, const QString& connectionString, const schema::Progress& progress = {});

}  // namespace copies
