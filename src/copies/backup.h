// Copies of an office: one tar with both databases, or their dumps, and a list of what must be in them.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "copies/servertools.h"
#include "data/connection.h"
#include "data/opening/serverdescription.h"
#include "schema/progress.h"
#include "schema/tables.h"

namespace schema {

// The file's name is dated by the caller; times are those of the clock on the wall.
struct BackupOptions {
    bool replace = false;  // a file of this name may be replaced
    QDateTime now = QDateTime::currentDateTime();
    Progress progress = {};
    int busyTimeoutMs = 5000;
    ServerTools tools = findServerTools();
};

struct BackupInfo {
    QDateTime made;
    QString folder;  // of the office, absolute
    qint64 rows = 0;
    QVector<Database> onServer = {};  // when it was made; of these there is a dump
};

// Copies both databases while others work; one on a server by the server's own tools. Each copy is opened, checked
// through and counted against its source before the file gets its name; until then, and after a failure, nothing of
// that name is there. Throws data::Error.
BackupInfo backupOffice(const QString& folder, const QString& file, const BackupOptions& options = {});

// What a copy's own list says. Throws data::Error, Corrupt when it has none.
BackupInfo listBackup(const QString& file, const QString& spareFolder = {});

// Unpacks a copy, checks everything in it and forgets it; beside it, or in the spare folder (else the system's) when
// nothing can be written there. Throws data::Error when it isn't good, and only then Corrupt.
BackupInfo checkBackup(const QString& file, const QString& spareFolder = {}, const Progress& progress = {});

struct RestoreOptions {
    bool force = false;  // a database that is there is kept aside under a dated name instead of being refused
    // Databases in files may take the place of a server's, whose description is then kept aside.
    bool asFiles = false;
    QVector<Database> databases = {std::begin(allDatabases), std::end(allDatabases)};
    QDateTime now = QDateTime::currentDateTime();
    Progress progress = {};
    // Where the dumps of a server's databases go, as in NewOffice; without it, where the files in the folder say.
    std::optional<data::ServerDescription> server = {};
    ServerTools tools = findServerTools();
};

// Puts the databases of a checked copy into `folder`, which is made if it isn't there, or into the schemas of a server;
// an old schema is kept under a dated name, too. Returns where the old ones are kept. Throws data::Error, Busy while
// anybody has one of the old ones open; then everything stands as before, as it does when the process is killed: what
// is there is exchanged last, each file in one step and the schemas of a server database together.
QStringList restoreOffice(const QString& file, const QString& folder, const RestoreOptions& options = {});

// Before a database is changed by an upgrade: a checked copy beside it (of one on a server, a dump in the custom format
// beside the file that describes it), named after it, its version and `now`; the last few are kept. Returns the copy's
// path; an empty one for a server without its tools here, where the step's transaction is the only safety.
QString copyBeforeUpgrade(data::Connection& connection, Database database, const QString& file, const QDateTime& now,
                          const Progress& progress = {}, const ServerTools& tools = findServerTools());

}  // namespace schema
