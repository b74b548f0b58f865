// The server's own programs for copies of its databases.
//
// A database is dumped by `pg_dump` in the snapshot that the counting connection exported, so that counts and dump are
// of one moment. A dump is checked by having `pg_restore` write it out as text and counting the rows of each table, for
// which no server is needed.
#pragma once

#include <QString>
#include <functional>

#include "copies/manifest.h"
#include "data/opening/serverdescription.h"

namespace copies {

struct ServerTools {
    QString dump, restore;  // paths of pg_dump and pg_restore
    bool found() const { return !dump.isEmpty() && !restore.isEmpty(); }
};
ServerTools findServerTools();

// Asked several times a second; false breaks the work off.
using GoOn = std::function<bool()>;

// All of these throw data::Error with the program's own words when it fails, and one that says what to install when it
// isn't there.

// Writes a schema into `file` (custom format) as the snapshot of this name sees it.
void dumpSchema(const ServerTools& tools, const data::ServerDescription& server, const QString& snapshot,
                const QString& file, const GoOn& goOn);

// The rows of each table in a dump, counted one by one as they would be restored; no server is asked.
RowCounts rowsInDump(const ServerTools& tools, const QString& file, const GoOn& goOn);

// Hears what a dump restores, in pieces of any size, as SQL text that names everything with the schema it was dumped
// from: the sections "pre-data" (tables), "data" and "post-data". The schema itself and the indexes are left out.
using Hear = std::function<void(const QByteArray& text)>;
void readDump(const ServerTools& tools, const QString& file, const QString& section, const Hear& hear,
              const GoOn& goOn);

}  // namespace copies
