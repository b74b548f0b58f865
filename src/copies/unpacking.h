// Taking the copy of an office apart.
#pragma once

#include <QString>

#include "copies/manifest.h"
#include "copies/servertools.h"
#include "schema/progress.h"

namespace copies {

// What is packed is read back and compared byte by byte through its digest.
void checkPacked(const QString& archive, const Manifest& manifest, const QString& folder);
// The list of a copy that has both databases.
Manifest unpackManifest(const QString& file, const QString& folder);
// A copy taken apart into `folder`, checked.
Manifest unpackChecked(const QString& file, const QString& folder, const ServerTools& tools,
                       const schema::Progress& progress);

}  // namespace copies
