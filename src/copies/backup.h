// Copies of an office: one tar with both databases, or their dumps, and a list of what must be in them.
//
// Each database of files is copied by SQLite's backup interface inside one read transaction. In WAL mode that holds no
// writer up and never starts again, and the row counts belong to the moment of the copy; the journal can't be reset
// until the copy ends. The copies are opened, put through `integrity_check` and counted, the tar is read back and
// compared, and only then it gets its name by a rename. All work happens in a folder `.dorvalist-work-XXXXXX` beside
// it. The two databases are copied one after the other: no transaction spans both, so each is whole in itself.
#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

#include "copies/servertools.h"
#include "schema/progress.h"
#include "schema/tables.h"

namespace copies {

// The file's name is dated by the caller; times are those of the clock on the wall.
struct BackupOptions {
    bool replace = false;  // a file of this name may be replaced
    QDateTime now = QDateTime::currentDateTime();
    schema::Progress progress = {};
    int busyTimeoutMs = 5000;
    ServerTools tools = findServerTools();
};

struct BackupInfo {
    QDateTime made;
    QString folder;  // of the office, absolute
    qint64 rows = 0, cards = 0;
    QVector<schema::Database> onServer = {};  // when it was made; of these there is a dump
};

// Copies both databases while others work; one on a server by the server's own tools. Each copy is opened, checked
// through and counted against its source before the file gets its name; until then, and after a failure, nothing of
// that name is there. Throws data::Error.
BackupInfo backupOffice(const QString& folder, const QString& file, const BackupOptions& options = {});

// What a copy's own list says. Throws data::Error, Corrupt when it has none.
BackupInfo listBackup(const QString& file, const QString& spareFolder = {});

// Unpacks a copy, checks everything in it and forgets it; beside it, or in the spare folder (else the system's) when
// nothing can be written there. Throws data::Error when it isn't good, and only then Corrupt.
BackupInfo checkBackup(const QString& file, const QString& spareFolder = {}, const schema::Progress& progress = {});

}  // namespace copies
