#include "copies/restore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "copies/manifest.h"
#include "copies/schemarestore.h"
#include "copies/unpacking.h"
#include "data/connection.h"
#include "data/error.h"
#include "data/opening/fileidentity.h"
#include "data/postgres/pgengine.h"
#include "platform/filestate.h"
#include "schema/databasefiles.h"
#include "schema/filereplacement.h"
#include "schema/office.h"
#include "schema/officebuilder.h"
#include "schema/upgrade.h"
#include "schema/workfolder.h"

namespace copies {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;
using schema::connectionString;
using schema::Database;
using schema::databaseFileName;
using schema::databasePath;
using schema::dumpFileName;
using schema::refuseIfThere;
using schema::report;

namespace {

[[noreturn]] void refuseBusy(const QString& file) {
    throw Error(ErrorCategory::Busy,
                u"Κάποιος δουλεύει με το «%1». Κλείστε το πρόγραμμα σε όλες τις θέσεις και δοκιμάστε ξανά."_s.arg(
                    QFileInfo(file).fileName()));
}

// As far as the operating system knows: seats lock the file itself or, as long as they are open, its index.
void requireNoLocks(const QString& file) {
    if (platform::isLocked(file) || platform::isLocked(file + u"-shm"_s)) refuseBusy(file);
}

// Nobody else may be at work on a file that is about to be moved, nor come in as long as the connection is open. A
// damaged one, or one on a damaged disk, can't tell who is.
void keepOthersOut(data::Connection& connection, Database database, const QString& file) {
    if (!QFileInfo::exists(file)) return requireNoLocks(file);
    try {
        connection.open(connectionString(database, file) + u"; busy timeout=500"_s);
        connection.engine().requireAlone();
    } catch (const Error& error) {
        connection.close();
        if (error.category() == ErrorCategory::Busy) refuseBusy(file);
        if (error.category() != ErrorCategory::Corrupt && error.category() != ErrorCategory::Full) throw;
        requireNoLocks(file);
    }
}

bool isOnServer(const QString& file) {
    return data::identifyFile(file).kind == data::FileKind::ServerDescription;
}

// Where a database of a dump goes: what the command says, or the description that is there.
data::ServerDescription placeOnServer(const RestoreOptions& options, const QString& target, Database database) {
    if (options.server) return schema::serverFor(*options.server, database);
    if (isOnServer(target)) return data::readServerDescription(target);
    throw Error(ErrorCategory::Constraint,
                u"Το αντίγραφο είναι γραφείου σε διακομιστή και ο φάκελος δεν λέει σε ποιον να επανέλθει. Δώστε με "
                u"--server μια βάση του διακομιστή, π.χ. --server \"host=pc1 database=grafeio user=maria\". Για να "
                u"το έχετε σε αρχεία, επαναφέρετέ το έτσι σε άλλον φάκελο και μεταφέρετέ το με την εντολή move."_s);
}

// Someone who takes an old copy in a hurry must not find the seats parted: some in the files, some on the server.
void requireFilesWanted(const RestoreOptions& options, const QString& target) {
    if (options.server)
        throw Error(ErrorCategory::Constraint,
                    u"Το αντίγραφο είναι γραφείου σε αρχεία. Επαναφέρετέ το σε άλλον φάκελο χωρίς --server και μετά "
                    u"μεταφέρετέ το με την εντολή move."_s);
    if (!options.force) refuseIfThere(target);
    if (!options.asFiles && isOnServer(target))
        throw Error(ErrorCategory::Constraint,
                    u"Το αντίγραφο είναι γραφείου σε αρχεία, ενώ τα δεδομένα του φακέλου είναι τώρα σε διακομιστή. "
                    u"Επαναφέρετέ το σε άλλον φάκελο, ή δώστε --as-files για να ξαναγίνει το γραφείο σε αρχεία: ό,τι "
                    u"γράφτηκε στον διακομιστή δεν θα φαίνεται."_s);
}

void finishDump(const QString& file, Database database, const RowCounts& wanted) {
    data::Connection connection;
    connection.open(connectionString(database, file));
    const int version = schema::storedVersion(connection);
    if (version > schema::currentVersion)
        throw Error(
            ErrorCategory::Connection,
            u"Το αντίγραφο είναι νεότερης έκδοσης (%1) από όσες γνωρίζει αυτό το πρόγραμμα (έως %2)."_s.arg(version)
                .arg(schema::currentVersion));
    // A function may know its schema by the name that it had; the opening makes them all again.
    connection.engine().setProperty(u"functions"_s, {});
    connection.open(connectionString(database, file));
    data::Transaction transaction(connection);
    schema::makeIndexes(connection, database, version);
    transaction.commit();
    if (rowCounts(connection) != wanted)
        throw Error(ErrorCategory::Corrupt,
                    u"Οι εγγραφές του «%1» δεν είναι όσες έπρεπε."_s.arg(databaseFileName(database)));
    connection.engine().afterLoading(connection.catalog());
}

// The steps of one restoring. Everything is got ready beside what is there, and only then exchanged; what isn't kept at
// the end is undone.
class Restoring {
public:
    Restoring(const QString& workFolder, const QString& folder, const RestoreOptions& options)
        : workFolder_(workFolder), folder_(folder), options_(options) {}

    void prepareFile(Database database) {
        requireFilesWanted(options_, databasePath(folder_, database));
        takeOver(database);
    }
    void prepareDump(Database database, const Manifest::Member& member) {
        const data::ServerDescription place = placeOnServer(options_, databasePath(folder_, database), database);
        const QString file = databasePath(workFolder_, database);
        schemas_.push_back(std::make_unique<SchemaRestore>(place, options_));
        schemas_.back()->fill(QDir(workFolder_).filePath(dumpFileName(database)), member.schema);
        data::writeServerDescription(file, schemas_.back()->filled());
        report(options_.progress, u"Ευρετήρια του "_s + databaseFileName(database), 0);
        finishDump(file, database, member.rows);
        QFile::remove(file);
        if (!options_.server) return;
        data::writeServerDescription(file, place);
        takeOver(database);
    }
    // Returns where the old ones are kept.
    QStringList exchange() {
        QStringList aside;
        std::map<QString, std::unique_ptr<data::postgres::PgSchemaWork>> servers;
        for (const auto& schema : schemas_) {
            auto& work = servers[data::postgres::pgConnectionText(schema->place())];
            if (!work) work = std::make_unique<data::postgres::PgSchemaWork>(schema->place());
            if (const QString old = schema->exchange(*work); !old.isEmpty()) aside += u"σχήμα "_s + old;
        }
        for (const Database database : files_)
            aside +=
                replacement_.put(databasePath(workFolder_, database), databasePath(folder_, database), options_.now);
        for (const auto& [name, work] : servers) work->commit();
        for (const auto& schema : schemas_) schema->keep();
        replacement_.keep();
        aside.removeAll({});
        return aside;
    }

private:
    // The folder gets a new file.
    void takeOver(Database database) {
        const QString target = databasePath(folder_, database);
        files_ += database;
        if (isOnServer(target)) return;
        old_.push_back(std::make_unique<data::Connection>());
        keepOthersOut(*old_.back(), database, target);
    }

    QString workFolder_, folder_;
    const RestoreOptions& options_;
    std::vector<std::unique_ptr<data::Connection>> old_;  // kept to the end, lest somebody opens what is being moved
    std::vector<std::unique_ptr<SchemaRestore>> schemas_;
    QVector<Database> files_;
    schema::FileReplacement replacement_;
};

// A description that a dump goes by is no database to be spared; the schema that it names is.
void refuseDatabasesThere(const QString& folder, const RestoreOptions& options) {
    if (options.force) return;
    for (const Database database : schema::allDatabases) {
        const QString file = databasePath(folder, database);
        if (options.server || !isOnServer(file)) refuseIfThere(file);
    }
}

}  // namespace

QStringList restoreOffice(const QString& file, const QString& folder, const RestoreOptions& options) {
    refuseDatabasesThere(folder, options);
    if (!QFileInfo(file).isFile())
        throw Error(ErrorCategory::Connection, u"Δεν υπάρχει το αρχείο «%1»."_s.arg(QDir::toNativeSeparators(file)));
    const bool folderWasThere = QFileInfo::exists(folder);
    if (!QDir().mkpath(folder)) throw Error(ErrorCategory::Full, u"Δεν δημιουργείται ο φάκελος «%1»."_s.arg(folder));
    try {
        const auto workFolder = schema::workFolderIn(folder);
        const Manifest manifest = unpackChecked(file, workFolder->path(), options.tools, options.progress);
        Restoring restoring(workFolder->path(), folder, options);
        for (const Database database : options.databases) {
            if (const QString dump = dumpFileName(database); manifest.members.contains(dump))
                restoring.prepareDump(database, manifest.members[dump]);
            else
                restoring.prepareFile(database);
        }
        return restoring.exchange();
    } catch (...) {
        if (!folderWasThere) QDir().rmdir(folder);
        throw;
    }
}

}  // namespace copies
