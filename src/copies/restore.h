// Putting a copy of an office in the place of what is there.
//
// The copy is unpacked beside the target and checked first. Whatever keeps the program from knowing that nobody has the
// file open is a refusal; the file is held exclusively until the exchange. The old file stays as
// `dorvalist.mdb.YYYYMMDD-HHMMSS` with its journals: a second name is linked and the new file renamed over the first,
// so that a database is there at any moment. Journals go aside even when their file is gone, since SQLite would play
// them into the file that comes.
#pragma once

#include <QString>
#include <QStringList>

#include "copies/restoreoptions.h"

namespace copies {

// Puts the databases of a checked copy into `folder`, which is made if it isn't there, or into the schemas of a server;
// an old schema is kept under a dated name, too. Returns where the old ones are kept. Throws data::Error, Busy while
// anybody has one of the old ones open; then everything stands as before, as it does when the process is killed: what
// is there is exchanged last, each file in one step and the schemas of a server database together.
QStringList restoreOffice(const QString& file, const QString& folder, const RestoreOptions& options = {});

}  // namespace copies
