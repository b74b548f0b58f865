#include "copies/backup.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "copies/archive.h"
#include "copies/databasecopy.h"
#include "copies/unpacking.h"
#include "data/connection.h"
#include "data/error.h"
#include "data/opening/fileidentity.h"
#include "data/opening/privatefile.h"
#include "schema/databasefiles.h"
#include "schema/office.h"
#include "schema/workfolder.h"

namespace copies {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;
using schema::allDatabases;
using schema::contentsFileName;
using schema::Database;
using schema::databasePath;
using schema::dumpFileName;
using schema::report;
using schema::workFolderIn;

// One database as a member of the copy.
ArchiveMember copyInto(const QString& workFolder, const QString& file, Database database, const BackupOptions& options,
                       Manifest& manifest) {
    data::Connection source;
    schema::openToRead(source,
                       schema::connectionString(database, file) + u"; busy timeout=%1"_s.arg(options.busyTimeoutMs));
    const bool onServer = data::identifyFile(file).kind == data::FileKind::ServerDescription;
    const QString name = onServer ? dumpFileName(database) : schema::databaseFileName(database);
    const QString copy = QDir(workFolder).filePath(name);
    Manifest::Member member;
    if (onServer) {
        const data::ServerDescription server = data::readServerDescription(file);
        member.schema = server.schemaName();
        member.rows = dumpChecked(source, server, database, copy, options.tools, options.progress);
    } else {
        member.rows = copyChecked(source, database, copy, options.progress);
    }
    member.sha256 = sha256Of(copy);
    manifest.members[name] = member;
    return {name, copy};
}

void writeText(const QString& file, const QByteArray& text) {
    QFile target(file);
    if (!target.open(QIODevice::WriteOnly) || target.write(text) != text.size() || !target.flush())
        data::failWriting(target);
}

// The place of the file, whether it is there or not, by whatever way it was named.
QString realPath(const QString& file) {
    const QFileInfo info(file);
    const QString there = info.canonicalFilePath();
    return there.isEmpty() ? QDir(QFileInfo(info.absolutePath()).canonicalFilePath()).filePath(info.fileName()) : there;
}

// Not even when told to replace what is there.
void refuseTarget(const QString& folder, const QString& file) {
    const QString target = realPath(file), shown = QDir::toNativeSeparators(file);
    for (const Database database : allDatabases) {
        QStringList ours = data::sqliteSideFiles(databasePath(folder, database));
        ours += databasePath(folder, database);
        for (const QString& own : ours)
            if (target == realPath(own))
                throw Error(
                    ErrorCategory::Constraint,
                    u"Το «%1» είναι αρχείο του ίδιου του γραφείου. Δώστε άλλο όνομα στο αντίγραφο."_s.arg(shown));
    }
    const QFileInfo info(file);
    if (info.isSymLink() || (info.exists() && !info.isFile()))
        throw Error(
            ErrorCategory::Constraint,
            u"Το «%1» δεν είναι απλό αρχείο και δεν αντικαθίσταται. Δώστε άλλο όνομα στο αντίγραφο."_s.arg(shown));
}

BackupInfo infoOf(const Manifest& manifest) {
    BackupInfo info{manifest.made, manifest.folder};
    const QString cards = u"Cards"_s;
    for (const Database database : allDatabases)
        if (manifest.members.contains(dumpFileName(database))) info.onServer += database;
    for (const Manifest::Member& member : manifest.members) {
        for (const qint64 rows : member.rows) info.rows += rows;
        for (auto table = member.rows.cbegin(); table != member.rows.cend(); ++table)
            if (table.key().compare(cards, Qt::CaseInsensitive) == 0) info.cards += table.value();
    }
    return info;
}

// Unpacked, an office may be larger than the system's folder for temporary files.
std::unique_ptr<QTemporaryDir> workFolderFor(const QString& file, const QString& spareFolder) {
    try {
        return workFolderIn(QFileInfo(file).absolutePath());
    } catch (const Error&) {
        return workFolderIn(spareFolder.isEmpty() ? QDir::tempPath() : spareFolder);
    }
}

}  // namespace

BackupInfo backupOffice(const QString& folder, const QString& file, const BackupOptions& options) {
    refuseTarget(folder, file);
    if (!options.replace) schema::refuseIfThere(file);
    const auto workFolder = workFolderIn(QFileInfo(file).absolutePath());
    Manifest manifest{options.now, QFileInfo(folder).absoluteFilePath(), {}};
    QVector<ArchiveMember> members = {{contentsFileName, workFolder->filePath(contentsFileName)}};
    for (const Database database : allDatabases)
        members += copyInto(workFolder->path(), databasePath(folder, database), database, options, manifest);
    report(options.progress, u"Συσκευασία"_s, 0);
    writeText(members.first().file, manifest.toText());
    const QString packed = workFolder->filePath(schema::packedFileName);
    writeArchive(packed, members);
    report(options.progress, u"Έλεγχος του αντιγράφου"_s, 0);
    for (const ArchiveMember& member : members) QFile::remove(member.file);  // their bytes are needed for reading back
    checkPacked(packed, manifest, workFolder->path());
    data::closeToOthers(packed, QFileInfo(file).absolutePath());
    schema::moveTo(packed, file, options.replace);
    return infoOf(manifest);
}

BackupInfo listBackup(const QString& file, const QString& spareFolder) {
    return infoOf(unpackManifest(file, workFolderFor(file, spareFolder)->path()));
}

BackupInfo checkBackup(const QString& file, const QString& spareFolder, const schema::Progress& progress) {
    return infoOf(unpackChecked(file, workFolderFor(file, spareFolder)->path(), findServerTools(), progress));
}

}  // namespace copies
