// Putting a copy of an office in the place of what is there.
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
