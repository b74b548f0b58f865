// Where the program's own files lie.
#pragma once

#include <QString>

namespace platform {

// The delivered files (sounds, reference data, home page, help): the installed share folder, or assets/ of the
// source tree when run from a build. Without a trailing separator.
QString programFolder();

// A writable folder of the user's for work files; created on first use.
QString workFolder();

// Where copies of the data go unless the user chose another place; created on first use.
QString backupFolder();

}  // namespace platform
