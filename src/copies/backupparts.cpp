#include "copies/backupparts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <filesystem>

#include "copies/archive.h"
#include "data/opening/fileidentity.h"
#include "schema/check.h"
#include "schema/office.h"

namespace schema {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;

static const QString workshopName = u".dorvalist-work-"_s;

QString dumpName(Database database) {
    return QFileInfo(databaseFileName(database)).completeBaseName() + u".dump"_s;
}

QString stamp(const QDateTime& now) {
    return now.toString(u"yyyyMMdd-HHmmss"_s);
}

void refuseIfThere(const QString& file) {
    if (QFileInfo::exists(file))
        throw Error(ErrorCategory::Constraint,
                    u"Υπάρχει ήδη το αρχείο «%1»· δεν πειράχτηκε τίποτα."_s.arg(QDir::toNativeSeparators(file)));
}

QStringList journalsOf(const QString& file) {
    QStringList found = data::sqliteSideFiles(file);
    found.removeIf([](const QString& side) { return !QFileInfo::exists(side); });
    return found;
}

void dropAbandonedWork(const QString& folder, const QDateTime& now) {
    QStringList ours = {Manifest::fileName() + u'*', u"packed.tar*"_s};
    for (const Database database : allDatabases) ours << databaseFileName(database) + u'*' << dumpName(database) + u'*';
    const auto shops = QDir::Dirs | QDir::Hidden | QDir::NoSymLinks;
    for (const QFileInfo& shop : QDir(folder).entryInfoList({workshopName + u"??????"_s}, shops)) {
        if (shop.lastModified() >= now.addDays(-1)) continue;
        const QDir left(shop.filePath());
        for (const QFileInfo& file : left.entryInfoList(ours, QDir::Files | QDir::NoSymLinks))
            QFile::remove(file.filePath());
        QDir().rmdir(shop.filePath());  // fails when anything else is in it
    }
}

std::unique_ptr<QTemporaryDir> workshopIn(const QString& folder) {
    dropAbandonedWork(folder);
    auto workshop = std::make_unique<QTemporaryDir>(QDir(folder).filePath(workshopName + u"XXXXXX"_s));
    if (!workshop->isValid())
        throw Error(ErrorCategory::Full, u"Δεν γράφεται ο φάκελος «%1»: %2"_s.arg(QDir::toNativeSeparators(folder),
                                                                                  workshop->errorString()));
    return workshop;
}

void moveTo(const QString& from, const QString& to, bool replace) {
    if (replace) {
        std::error_code failure;
        std::filesystem::rename(from.toStdU16String(), to.toStdU16String(), failure);
        if (failure) data::failWriting(to, QString::fromLocal8Bit(failure.message().c_str()));
    } else {
        QFile file(from);
        if (!file.rename(to)) data::failWriting(to, file.errorString());
    }
}

QString freeName(const QString& wanted) {
    QString name = wanted;
    for (int i = 2; QFileInfo::exists(name); ++i) name = u"%1-%2"_s.arg(wanted).arg(i);
    return name;
}

void checkCopy(const QString& file, Database database, const RowCounts& wanted) {
    data::Connection copy;
    openToRead(copy, connectionString(database, file));
    const QStringList damage = fileDamage(copy);
    if (!damage.isEmpty()) throw Error(ErrorCategory::Corrupt, damage.first());
    if (rowCounts(copy) != wanted)
        throw Error(ErrorCategory::Corrupt,
                    u"Οι εγγραφές του «%1» δεν είναι όσες έπρεπε."_s.arg(databaseFileName(database)));
}

// The tables of the program alone: what else stands in the schema serves them.
void checkDump(const QString& file, Database database, const RowCounts& wanted, const ServerTools& tools,
               const Progress& progress) {
    const QString counting = u"Έλεγχος του "_s + dumpName(database);
    RowCounts found = rowsInDump(tools, file, [&] { return !progress || progress(counting, 0); });
    const bool ours = found.contains(u"_dorvalist"_s);
    for (const QString& table : found.keys())
        if (table.startsWith(u'_')) found.remove(table);
    if (!ours || found != wanted)
        throw Error(ErrorCategory::Corrupt, u"Οι εγγραφές του «%1» δεν είναι όσες έπρεπε."_s.arg(dumpName(database)));
}

namespace {

Manifest readManifest(const QString& file) {
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) throw Error(ErrorCategory::Connection, source.errorString());
    constexpr qint64 most = 1 << 20;
    return Manifest::fromText(source.read(most));
}

// Each database is in the copy once, as a file or as a dump.
bool hasBoth(const Manifest& manifest) {
    for (const Database database : allDatabases)
        if (manifest.members.contains(databaseFileName(database)) == manifest.members.contains(dumpName(database)))
            return false;
    return true;
}

void dropForeign(Manifest& manifest) {
    QStringList ours;
    for (const Database database : allDatabases) ours << databaseFileName(database) << dumpName(database);
    manifest.members.removeIf([&](auto member) { return !ours.contains(member.key()); });
}

}  // namespace

void checkPacked(const QString& archive, const Manifest& manifest, const QString& folder) {
    const QStringList names = manifest.members.keys();
    if (extractArchive(archive, folder, names).size() != names.size())
        throw Error(ErrorCategory::Corrupt, u"Το αντίγραφο δεν έχει και τις δύο βάσεις δεδομένων."_s);
    for (const QString& name : names) {
        if (sha256Of(QDir(folder).filePath(name)) != manifest.members[name].sha256)
            throw Error(ErrorCategory::Corrupt, u"Το «%1» μέσα στο αντίγραφο έχει αλλοιωθεί."_s.arg(name));
    }
}

Manifest unpackManifest(const QString& file, const QString& folder) {
    if (extractArchive(file, folder, {Manifest::fileName()}).isEmpty())
        throw Error(ErrorCategory::Corrupt, u"Το αρχείο «%1» δεν είναι αντίγραφο ασφαλείας του προγράμματος."_s.arg(
                                                QDir::toNativeSeparators(file)));
    Manifest manifest = readManifest(QDir(folder).filePath(Manifest::fileName()));
    dropForeign(manifest);
    if (!hasBoth(manifest))
        throw Error(ErrorCategory::Corrupt, u"Το αντίγραφο δεν έχει και τις δύο βάσεις δεδομένων."_s);
    return manifest;
}

Manifest unpackChecked(const QString& file, const QString& folder, const ServerTools& tools, const Progress& progress) {
    report(progress, u"Άνοιγμα του αντιγράφου"_s, 0);
    const Manifest manifest = unpackManifest(file, folder);
    checkPacked(file, manifest, folder);
    for (const Database database : allDatabases) {
        report(progress, u"Έλεγχος του "_s + databaseFileName(database), 0);
        if (const QString dump = dumpName(database); manifest.members.contains(dump))
            checkDump(QDir(folder).filePath(dump), database, manifest.members[dump].rows, tools, progress);
        else
            checkCopy(databasePath(folder, database), database, manifest.members[databaseFileName(database)].rows);
    }
    return manifest;
}

}  // namespace schema
