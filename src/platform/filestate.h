// What only the operating system knows about a file.
#pragma once

#include <QString>

namespace platform {

// Whether a process holds a lock on any byte of the file; also when that can't be asked. A file that isn't there has
// none. Not for a file that this process has open itself: asking may give up its own locks.
bool isLocked(const QString& file);

// Gives `to` the owner and the group of `from`, as far as this process may.
void copyOwner(const QString& from, const QString& to);

}  // namespace platform
