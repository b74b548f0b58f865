#include "copies/unpacking.h"

#include <QDir>
#include <QFile>

#include "copies/archive.h"
#include "copies/databasecopy.h"
#include "data/error.h"
#include "data/opening/fileidentity.h"
#include "schema/office.h"
#include "schema/workfolder.h"

namespace copies {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;
using schema::allDatabases;
using schema::contentsFileName;
using schema::Database;
using schema::databaseFileName;
using schema::dumpFileName;

namespace {

Manifest readManifest(const QString& file) {
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        throw Error(ErrorCategory::Connection,
                    u"Ο κατάλογος του αντιγράφου δεν διαβάζεται. "_s + data::reasonOf(source));
    constexpr qint64 most = 1 << 20;
    return Manifest::fromText(source.read(most));
}

// Each database is in the copy once, as a file or as a dump.
bool hasBoth(const Manifest& manifest) {
    for (const Database database : allDatabases)
        if (manifest.members.contains(databaseFileName(database)) == manifest.members.contains(dumpFileName(database)))
            return false;
    return true;
}

void dropForeign(Manifest& manifest) {
    QStringList ours;
    for (const Database database : allDatabases) ours << databaseFileName(database) << dumpFileName(database);
    manifest.members.removeIf([&](auto member) { return !ours.contains(member.key()); });
}

bool isDump(const QString& file) {
    QFile source(file);
    return source.open(QIODevice::ReadOnly) && source.read(5) == "PGDMP";
}

// A description of a server in the place of a database would have its opening connect to whatever it names.
void requireKinds(const Manifest& manifest, const QString& folder) {
    for (const Database database : allDatabases) {
        const QString dump = dumpFileName(database), file = schema::databasePath(folder, database);
        const auto right = database == Database::Main ? data::FileKind::Main : data::FileKind::Users;
        const bool fits = manifest.members.contains(dump) ? isDump(QDir(folder).filePath(dump))
                                                          : data::identifyFile(file).kind == right;
        if (!fits)
            throw Error(ErrorCategory::Corrupt,
                        u"Το «%1» μέσα στο αντίγραφο δεν είναι αυτό που λέει ο κατάλογός του."_s.arg(
                            manifest.members.contains(dump) ? dump : databaseFileName(database)));
    }
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
    if (extractArchive(file, folder, {contentsFileName}).isEmpty())
        throw Error(ErrorCategory::Corrupt, u"Το αρχείο «%1» δεν είναι αντίγραφο ασφαλείας του προγράμματος."_s.arg(
                                                QDir::toNativeSeparators(file)));
    Manifest manifest = readManifest(QDir(folder).filePath(contentsFileName));
    dropForeign(manifest);
    if (!hasBoth(manifest))
        throw Error(ErrorCategory::Corrupt, u"Το αντίγραφο δεν έχει και τις δύο βάσεις δεδομένων."_s);
    return manifest;
}

Manifest unpackChecked(const QString& file, const QString& folder, const ServerTools& tools,
                       const schema::Progress& progress) {
    schema::report(progress, u"Άνοιγμα του αντιγράφου"_s, 0);
    const Manifest manifest = unpackManifest(file, folder);
    checkPacked(file, manifest, folder);
    requireKinds(manifest, folder);
    for (const Database database : allDatabases) {
        schema::report(progress, u"Έλεγχος του "_s + databaseFileName(database), 0);
        if (const QString dump = dumpFileName(database); manifest.members.contains(dump))
            checkDump(QDir(folder).filePath(dump), database, manifest.members[dump].rows, tools, progress);
        else
            checkCopy(schema::databasePath(folder, database), database,
                      manifest.members[databaseFileName(database)].rows);
    }
    return manifest;
}

}  // namespace copies
