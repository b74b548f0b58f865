// Who may read the files that hold an office's data.
#pragma once

#include <QString>

namespace data {

// Takes a file away from other users of the machine. Its group may read and write it when the folder, its own unless
// another is named, lets this same group make files. A file system without rights leaves everything as it is.
void closeToOthers(const QString& file, const QString& folder = {});

// Whether others than its owner and its group can read or change the file where it lies; a folder above it that they
// can't enter hides it.
bool isOpenToOthers(const QString& file);

}  // namespace data
