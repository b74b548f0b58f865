#include "schema/backup.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <filesystem>

#include "schema/archive.h"
#include "schema/check.h"
#include "schema/manifest.h"
#include "schema/office.h"
#include "schema/upgrade.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;

const QString manifestName = u"contents.tsv"_s;
constexpr Database both[] = {Database::Main, Database::Users};
constexpr int upgradeCopiesKept = 3;

QString pathIn(const QString& folder, Database database) {
    return database == Database::Main ? mainDatabasePath(folder) : usersDatabasePath(folder);
}

QString nameOf(Database database) {
    return QFileInfo(pathIn({}, database)).fileName();
}

QString stamp(const QDateTime& now) {
    return now.toString(u"yyyyMMdd-HHmmss"_s);
}

void report(const Progress& progress, const QString& what, int percent) {
    if (progress && !progress(what, percent)) throw Error(ErrorCategory::Other, u"Η εργασία διακόπηκε."_s);
}

void refuseIfThere(const QString& file) {
    if (QFileInfo::exists(file))
        throw Error(ErrorCategory::Constraint,
                    u"Υπάρχει ήδη το αρχείο «%1»· δεν πειράχτηκε τίποτα."_s.arg(QDir::toNativeSeparators(file)));
}

// A folder of its own beside the place where the result goes, so that the last step is a rename.
std::unique_ptr<QTemporaryDir> workshopIn(const QString& folder) {
    auto workshop = std::make_unique<QTemporaryDir>(QDir(folder).filePath(u".dorvalist-XXXXXX"_s));
    if (!workshop->isValid())
        throw Error(ErrorCategory::Full, u"Δεν γράφεται ο φάκελος «%1»: %2"_s.arg(QDir::toNativeSeparators(folder),
                                                                                  workshop->errorString()));
    return workshop;
}

void moveTo(const QString& from, const QString& to, bool replace) {
    QString why;
    if (replace) {
        std::error_code failure;
        std::filesystem::rename(from.toStdU16String(), to.toStdU16String(), failure);
        if (!failure) return;
        why = QString::fromLocal8Bit(failure.message().c_str());
    } else {
        QFile file(from);
        if (file.rename(to)) return;
        why = file.errorString();
    }
    throw Error(ErrorCategory::Full, u"Δεν γράφεται το αρχείο «%1»: %2"_s.arg(QDir::toNativeSeparators(to), why));
}

// Opens a copy for reading alone, looks through its whole file and counts its rows.
void checkCopy(const QString& file, Database database, const RowCounts& wanted) {
    data::Connection copy;
    openToRead(copy, connectionString(database, file));
    const QStringList damage = fileDamage(copy);
    if (!damage.isEmpty()) throw Error(ErrorCategory::Corrupt, damage.first());
    if (rowCounts(copy) != wanted)
        throw Error(ErrorCategory::Corrupt, u"Οι εγγραφές του «%1» δεν είναι όσες έπρεπε."_s.arg(nameOf(database)));
}

// Returns what was counted at the moment of the copy.
RowCounts copyChecked(data::Connection& source, Database database, const QString& target, const Progress& progress) {
    RowCounts counts;
    const QString copying = u"Αντιγραφή του "_s + nameOf(database);
    source.engine().backupTo(
        target,
        [&] {
            counts = rowCounts(source);
            report(progress, copying, 0);
        },
        [&](qint64 done, qint64 all) { return !progress || progress(copying, all > 0 ? int(done * 100 / all) : 100); });
    report(progress, u"Έλεγχος του "_s + nameOf(database), 0);
    checkCopy(target, database, counts);
    return counts;
}

void writeText(const QString& file, const QByteArray& text) {
    QFile target(file);
    if (!target.open(QIODevice::WriteOnly) || target.write(text) != text.size() || !target.flush())
        throw Error(ErrorCategory::Full, u"Δεν γράφεται το αρχείο «%1»: %2"_s.arg(file, target.errorString()));
}

Manifest readManifest(const QString& file) {
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) throw Error(ErrorCategory::Connection, source.errorString());
    constexpr qint64 most = 1 << 20;
    return Manifest::fromText(source.read(most));
}

BackupInfo infoOf(const Manifest& manifest) {
    BackupInfo info{manifest.made, manifest.folder, 0};
    for (const Manifest::Member& member : manifest.members)
        for (const qint64 rows : member.rows) info.rows += rows;
    return info;
}

// What is packed is read back and compared byte by byte through its digest.
void checkPacked(const QString& archive, const Manifest& manifest, const QString& folder) {
    const QStringList names = manifest.members.keys();
    if (extractArchive(archive, folder, names).size() != names.size())
        throw Error(ErrorCategory::Corrupt, u"Το αντίγραφο δεν έχει και τις δύο βάσεις δεδομένων."_s);
    for (const QString& name : names) {
        if (sha256Of(QDir(folder).filePath(name)) != manifest.members[name].sha256)
            throw Error(ErrorCategory::Corrupt, u"Το «%1» μέσα στο αντίγραφο έχει αλλοιωθεί."_s.arg(name));
    }
}

// A copy taken apart into `folder`, checked.
Manifest unpackChecked(const QString& file, const QString& folder, const Progress& progress) {
    report(progress, u"Άνοιγμα του αντιγράφου"_s, 0);
    if (extractArchive(file, folder, {manifestName}).isEmpty())
        throw Error(ErrorCategory::Corrupt, u"Το αρχείο «%1» δεν είναι αντίγραφο ασφαλείας του προγράμματος."_s.arg(
                                                QDir::toNativeSeparators(file)));
    Manifest manifest = readManifest(QDir(folder).filePath(manifestName));
    for (const Database database : both)
        if (!manifest.members.contains(nameOf(database)))
            throw Error(ErrorCategory::Corrupt, u"Το αντίγραφο δεν έχει και τις δύο βάσεις δεδομένων."_s);
    manifest.members.removeIf(
        [](auto member) { return member.key() != nameOf(Database::Main) && member.key() != nameOf(Database::Users); });
    checkPacked(file, manifest, folder);
    for (const Database database : both) {
        report(progress, u"Έλεγχος του "_s + nameOf(database), 0);
        checkCopy(pathIn(folder, database), database, manifest.members[nameOf(database)].rows);
    }
    return manifest;
}

// Nobody else may be at work on a file that is about to be moved. A damaged one can't tell, and is moved all the same.
void requireNobodyIn(Database database, const QString& file) {
    try {
        data::Connection connection;
        connection.open(connectionString(database, file) + u"; busy timeout=500"_s);
        connection.engine().requireAlone();
    } catch (const Error& error) {
        if (error.category() == ErrorCategory::Busy)
            throw Error(
                ErrorCategory::Busy,
                u"Κάποιος δουλεύει με το «%1». Κλείστε το πρόγραμμα σε όλες τις θέσεις και δοκιμάστε ξανά."_s.arg(
                    QFileInfo(file).fileName()));
    }
}

// Moves files and, unless all went well, moves them back.
class Moves {
public:
    ~Moves() {
        if (done_) return;
        for (auto move = moves_.crbegin(); move != moves_.crend(); ++move) QFile::rename(move->second, move->first);
    }
    void move(const QString& from, const QString& to) {
        moveTo(from, to, false);
        moves_.append({from, to});
    }
    void keep() { done_ = true; }

private:
    QVector<std::pair<QString, QString>> moves_;
    bool done_ = false;
};

QString freeName(const QString& wanted) {
    QString name = wanted;
    for (int i = 2; QFileInfo::exists(name); ++i) name = u"%1-%2"_s.arg(wanted).arg(i);
    return name;
}

// The journal goes with its file: part of the data may be in it.
QString moveAside(Moves& moves, const QString& file, const QDateTime& now) {
    const QString aside = freeName(file + u'.' + stamp(now));
    moves.move(file, aside);
    for (const QString& ending : {u"-wal"_s, u"-shm"_s, u"-journal"_s})
        if (QFileInfo::exists(file + ending)) moves.move(file + ending, aside + ending);
    return aside;
}

}  // namespace

BackupInfo backupOffice(const QString& folder, const QString& file, const BackupOptions& options) {
    if (!options.replace) refuseIfThere(file);
    const auto workshop = workshopIn(QFileInfo(file).absolutePath());
    Manifest manifest{options.now, QFileInfo(folder).absoluteFilePath(), {}};
    QVector<ArchiveMember> members = {{manifestName, workshop->filePath(manifestName)}};
    for (const Database database : both) {
        data::Connection source;
        openToRead(source, connectionString(database, pathIn(folder, database)) +
                               u"; busy timeout=%1"_s.arg(options.busyTimeoutMs));
        const QString copy = pathIn(workshop->path(), database);
        const RowCounts counts = copyChecked(source, database, copy, options.progress);
        manifest.members[nameOf(database)] = {sha256Of(copy), counts};
        members += {nameOf(database), copy};
    }
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

BackupInfo checkBackup(const QString& file, const Progress& progress) {
    const QTemporaryDir workshop;
    if (!workshop.isValid()) throw Error(ErrorCategory::Full, workshop.errorString());
    return infoOf(unpackChecked(file, workshop.path(), progress));
}

QStringList restoreOffice(const QString& file, const QString& folder, const RestoreOptions& options) {
    if (!options.force)
        for (const Database database : both) refuseIfThere(pathIn(folder, database));
    if (!QFileInfo(file).isFile())
        throw Error(ErrorCategory::Connection, u"Δεν υπάρχει το αρχείο «%1»."_s.arg(QDir::toNativeSeparators(file)));
    const bool folderWasThere = QFileInfo::exists(folder);
    if (!QDir().mkpath(folder)) throw Error(ErrorCategory::Full, u"Δεν δημιουργείται ο φάκελος «%1»."_s.arg(folder));
    try {
        const auto workshop = workshopIn(folder);
        unpackChecked(file, workshop->path(), options.progress);
        QStringList aside;
        Moves moves;
        for (const Database database : options.databases) {
            const QString target = pathIn(folder, database), fresh = pathIn(workshop->path(), database);
            if (QFileInfo::exists(target)) {
                requireNobodyIn(database, target);
                QFile::setPermissions(fresh, QFile::permissions(target));  // others may share this office
                aside += moveAside(moves, target, options.now);
            }
            moves.move(fresh, target);
        }
        moves.keep();
        return aside;
    } catch (...) {
        if (!folderWasThere) QDir().rmdir(folder);
        throw;
    }
}

QString copyBeforeUpgrade(data::Connection& connection, Database database, const QString& file, const QDateTime& now) {
    const QFileInfo info(file);
    const QString mark = info.fileName() + u".v"_s;
    const QString target = info.dir().filePath(u"%1%2-%3"_s.arg(mark).arg(storedVersion(connection)).arg(stamp(now)));
    const auto workshop = workshopIn(info.absolutePath());
    const QString copy = pathIn(workshop->path(), database);
    copyChecked(connection, database, copy, {});
    const QString kept = freeName(target);
    moveTo(copy, kept, false);
    const auto copies = info.dir().entryInfoList({mark + u"*-*"_s}, QDir::Files, QDir::Time);
    for (const QFileInfo& old : copies.mid(upgradeCopiesKept))
        if (old.filePath() != kept) QFile::remove(old.filePath());
    return kept;
}

}  // namespace schema
