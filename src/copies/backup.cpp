#include "copies/backup.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "copies/archive.h"
#include "copies/backupparts.h"
#include "data/opening/fileidentity.h"
#include "schema/office.h"
#include "schema/upgrade.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;

constexpr int upgradeCopiesKept = 3;

// Returns what was counted at the moment of the copy.
RowCounts copyChecked(data::Connection& source, Database database, const QString& target, const Progress& progress) {
    RowCounts counts;
    const QString copying = u"Αντιγραφή του "_s + databaseFileName(database);
    source.engine().backupTo(
        target,
        [&] {
            counts = rowCounts(source);
            report(progress, copying, 0);
        },
        [&](qint64 done, qint64 all) { return !progress || progress(copying, all > 0 ? int(done * 100 / all) : 100); });
    report(progress, u"Έλεγχος του "_s + databaseFileName(database), 0);
    checkCopy(target, database, counts);
    return counts;
}

// The same of a database on a server, by the server's own program, which reads at the very moment of the counting.
RowCounts dumpChecked(data::Connection& source, const data::ServerDescription& server, Database database,
                      const QString& target, const BackupOptions& options) {
    const QString copying = u"Αντιγραφή του "_s + databaseFileName(database);
    report(options.progress, copying, 0);
    source.engine().beginSnapshot();
    const RowCounts counts = rowCounts(source);
    dumpSchema(options.tools, server, source.engine().snapshotName(), target,
               [&] { return !options.progress || options.progress(copying, 0); });
    source.engine().rollback();
    checkDump(target, database, counts, options.tools, options.progress);
    return counts;
}

// One database as a member of the copy.
ArchiveMember copyInto(const QString& workshop, const QString& file, Database database, const BackupOptions& options,
                       Manifest& manifest) {
    data::Connection source;
    openToRead(source, connectionString(database, file) + u"; busy timeout=%1"_s.arg(options.busyTimeoutMs));
    const bool onServer = data::identifyFile(file).kind == data::FileKind::ServerDescription;
    const QString name = onServer ? dumpName(database) : databaseFileName(database);
    const QString copy = QDir(workshop).filePath(name);
    Manifest::Member member;
    if (onServer) {
        const data::ServerDescription server = data::readServerDescription(file);
        member.schema = server.schemaName();
        member.rows = dumpChecked(source, server, database, copy, options);
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
    for (const Database database : allDatabases)
        if (manifest.members.contains(dumpName(database))) info.onServer += database;
    for (const Manifest::Member& member : manifest.members)
        for (const qint64 rows : member.rows) info.rows += rows;
    return info;
}

// Unpacked, an office may be larger than the system's folder for temporary files.
std::unique_ptr<QTemporaryDir> workshopFor(const QString& file, const QString& spareFolder) {
    try {
        return workshopIn(QFileInfo(file).absolutePath());
    } catch (const Error&) {
        return workshopIn(spareFolder.isEmpty() ? QDir::tempPath() : spareFolder);
    }
}

}  // namespace

BackupInfo backupOffice(const QString& folder, const QString& file, const BackupOptions& options) {
    refuseTarget(folder, file);
    if (!options.replace) refuseIfThere(file);
    const auto workshop = workshopIn(QFileInfo(file).absolutePath());
    Manifest manifest{options.now, QFileInfo(folder).absoluteFilePath(), {}};
    QVector<ArchiveMember> members = {{Manifest::fileName(), workshop->filePath(Manifest::fileName())}};
    for (const Database database : allDatabases)
        members += copyInto(workshop->path(), databasePath(folder, database), database, options, manifest);
    report(options.progress, u"Συσκευασία"_s, 0);
    writeText(members.first().file, manifest.toText());
    const QString packed = workshop->filePath(u"packed.tar"_s);
    writeArchive(packed, members);
    report(options.progress, u"Έλεγχος του αντιγράφου"_s, 0);
    for (const ArchiveMember& member : members) QFile::remove(member.file);  // their bytes are needed for reading back
    checkPacked(packed, manifest, workshop->path());
    moveTo(packed, file, options.replace);
    return infoOf(manifest);
}

BackupInfo listBackup(const QString& file, const QString& spareFolder) {
    return infoOf(unpackManifest(file, workshopFor(file, spareFolder)->path()));
}

BackupInfo checkBackup(const QString& file, const QString& spareFolder, const Progress& progress) {
    return infoOf(unpackChecked(file, workshopFor(file, spareFolder)->path(), findServerTools(), progress));
}

QString copyBeforeUpgrade(data::Connection& connection, Database database, const QString& file, const QDateTime& now,
                          const Progress& progress, const ServerTools& tools) {
    const bool onServer = data::identifyFile(file).kind == data::FileKind::ServerDescription;
    if (onServer && !tools.found()) return {};
    const QFileInfo info(file);
    const QString mark = info.fileName() + u".v"_s;
    const QString target = info.dir().filePath(u"%1%2-%3"_s.arg(mark).arg(storedVersion(connection)).arg(stamp(now)));
    const auto workshop = workshopIn(info.absolutePath());
    const QString copy = databasePath(workshop->path(), database);
    if (onServer)
        dumpChecked(connection, data::readServerDescription(file), database, copy,
                    {.progress = progress, .tools = tools});
    else
        copyChecked(connection, database, copy, progress);
    const QString kept = freeName(target);
    moveTo(copy, kept, false);
    const QRegularExpression ours(
        QRegularExpression::anchoredPattern(QRegularExpression::escape(mark) + u"\\d+-\\d{8}-\\d{6}(-\\d+)?"_s));
    const QStringList copies = info.dir().entryList(QDir::Files, QDir::Time).filter(ours);
    for (const QString& old : copies.mid(upgradeCopiesKept))
        if (old != QFileInfo(kept).fileName()) info.dir().remove(old);
    return kept;
}

}  // namespace schema
