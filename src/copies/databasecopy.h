// The copy of one database: made, opened, looked through and counted.
#pragma once

#include <QString>

#include "copies/manifest.h"
#include "copies/servertools.h"
#include "data/connection.h"
#include "data/opening/serverdescription.h"
#include "schema/progress.h"
#include "schema/tables.h"

namespace copies {

// Copies a database in a file. Returns what was counted at the moment of the copy.
RowCounts copyChecked(data::Connection& source, schema::Database database, const QString& target,
                      const schema::Progress& progress);

// The same of a database on a server, by the server's own program, which reads at the very moment of the counting.
RowCounts dumpChecked(data::Connection& source, const data::ServerDescription& server, schema::Database database,
                      const QString& target, const ServerTools& tools, const schema::Progress& progress);

// Opens a copy for reading alone, looks through its whole file and counts its rows. Throws data::Error.
void checkCopy(const QString& file, schema::Database database, const RowCounts& wanted);
// Counts the rows in a dump. Throws data::Error.
void checkDump(const QString& file, schema::Database database, const RowCounts& wanted, const ServerTools& tools,
               const schema::Progress& progress);

}  // namespace copies
