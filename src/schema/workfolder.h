// Folders for work on databases that isn't finished.
#pragma once

#include <QDateTime>
#include <QTemporaryDir>
#include <memory>

#include "schema/tables.h"

namespace schema {

using namespace Qt::Literals::StringLiterals;

// What the program puts there besides databases: the list of what is in a copy, the copy itself, dumps.
inline const QString contentsFileName = u"contents.tsv"_s;
inline const QString packedFileName = u"packed.tar"_s;
QString dumpFileName(Database database);

// A folder of its own inside the one where the result goes, so that the last step is a rename. Those that were left
// there by work that was killed go away first. Throws data::Error(Full).
std::unique_ptr<QTemporaryDir> workFolderIn(const QString& folder);

// Deletes such folders whose process is gone or that nobody has touched for a day, and in them only what this program
// puts there.
void dropAbandonedWork(const QString& folder, const QDateTime& now = QDateTime::currentDateTime());

}  // namespace schema
