// What making and restoring a copy share.
#pragma once

#include <QTemporaryDir>
#include <memory>

#include "copies/backup.h"
#include "copies/manifest.h"

namespace schema {

// The member of a copy that is a server database's dump.
QString dumpName(Database database);

QString stamp(const QDateTime& now);
void refuseIfThere(const QString& file);

// What the embedded engine may have left beside a database file.
QStringList journalsOf(const QString& file);

// A folder of its own inside the one where the result goes, so that the last step is a rename. Those that were left
// there by work that was killed go away first.
std::unique_ptr<QTemporaryDir> workshopIn(const QString& folder);
// Deletes workshops that nobody has touched for a day, and in them only what this program puts there.
void dropAbandonedWork(const QString& folder, const QDateTime& now = QDateTime::currentDateTime());
void moveTo(const QString& from, const QString& to, bool replace);
QString freeName(const QString& wanted);

// Opens a copy for reading alone, looks through its whole file and counts its rows.
void checkCopy(const QString& file, Database database, const RowCounts& wanted);
// Counts the rows in a dump.
void checkDump(const QString& file, Database database, const RowCounts& wanted, const ServerTools& tools,
               const Progress& progress);

// What is packed is read back and compared byte by byte through its digest.
void checkPacked(const QString& archive, const Manifest& manifest, const QString& folder);
// The list of a copy that has both databases.
Manifest unpackManifest(const QString& file, const QString& folder);
// A copy taken apart into `folder`, checked.
Manifest unpackChecked(const QString& file, const QString& folder, const ServerTools& tools, const Progress& progress);

}  // namespace schema
