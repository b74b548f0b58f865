#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "data/fileidentity.h"
#include "data/postgres/pgengine.h"
#include "schema/backupparts.h"
#include "schema/office.h"
#include "schema/officebuilder.h"
#include "schema/upgrade.h"

namespace schema {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;

namespace {

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

// The journal goes with its file: part of the data may be in it.
QString moveAside(Moves& moves, const QString& file, const QDateTime& now) {
    const QString aside = freeName(file + u'.' + stamp(now));
    moves.move(file, aside);
    for (const QString& ending : {u"-wal"_s, u"-shm"_s, u"-journal"_s})
        if (QFileInfo::exists(file + ending)) moves.move(file + ending, aside + ending);
    return aside;
}

// A dump on its way into a schema of a server; unless it is kept, the schema goes away and the old one comes back.
class SchemaRestore {
public:
    SchemaRestore(data::ServerDescription server, const RestoreOptions& options)
        : server_(std::move(server)), options_(options) {}
    ~SchemaRestore() {
        if (kept_) return;
        if (!filled_.schema.isEmpty()) data::dropPgDatabase(filled_);
        if (aside_.isEmpty()) return;
        try {
            data::ServerDescription old = server_;
            old.schema = aside_;
            data::renamePgSchema(old, server_.schemaName());
        } catch (const Error&) {
            // The old data stand under the dated name; the first failure is the one to tell of.
        }
    }
    SchemaRestore(const SchemaRestore&) = delete;
    SchemaRestore& operator=(const SchemaRestore&) = delete;

    void run(const QString& dump, const QString& schemaOfDump) {
        makeRoom();
        data::ServerDescription place = server_;
        place.schema = schemaOfDump;
        const bool otherName = schemaOfDump != server_.schemaName();
        if (otherName && data::pgSchemaState(place) != data::PgSchemaState::Absent)
            throw Error(ErrorCategory::Constraint,
                        u"Το αντίγραφο θέλει για λίγο το σχήμα «%1», που υπάρχει ήδη στη βάση του διακομιστή. Δώστε με "
                        u"--server άλλη βάση."_s.arg(schemaOfDump));
        data::createPgSchema(place);
        filled_ = place;
        const QString restoring = u"Επαναφορά του "_s + QFileInfo(dump).fileName();
        restoreDump(options_.tools, place, dump, [&] { return !options_.progress || options_.progress(restoring, 0); });
        if (!otherName) return;
        if (data::pgSchemaState(server_) == data::PgSchemaState::Empty) data::dropPgDatabase(server_);
        data::renamePgSchema(place, server_.schemaName());
        filled_ = server_;
    }
    const QString& aside() const { return aside_; }
    void keep() { kept_ = true; }

private:
    void makeRoom() {
        if (data::pgSchemaState(server_) != data::PgSchemaState::Taken) return;
        const QString name = server_.schemaName();
        if (!options_.force)
            throw Error(ErrorCategory::Constraint,
                        u"Το σχήμα «%1» του διακομιστή έχει ήδη πίνακες· δεν πειράχτηκε τίποτα."_s.arg(name));
        const QString aside = name + u'_' + stamp(options_.now);
        data::renamePgSchema(server_, aside);
        aside_ = aside;
    }

    data::ServerDescription server_, filled_;
    const RestoreOptions& options_;
    QString aside_;
    bool kept_ = false;
};

// Where a database of a dump goes: what the command says, or the description that is there.
data::ServerDescription placeOnServer(const RestoreOptions& options, const QString& target, Database database) {
    if (options.server) return serverFor(*options.server, database);
    if (data::identifyFile(target).kind == data::FileKind::ServerDescription)
        return data::readServerDescription(target);
    throw Error(ErrorCategory::Constraint,
                u"Το αντίγραφο είναι βάσης σε διακομιστή. Δώστε με --server πού θα επανέλθει."_s);
}

void finishDump(const QString& file, Database database, const RowCounts& wanted) {
    data::Connection connection;
    connection.open(connectionString(database, file));
    const int version = storedVersion(connection);
    if (version > currentVersion)
        throw Error(
            ErrorCategory::Connection,
            u"Το αντίγραφο είναι νεότερης έκδοσης (%1) από όσες γνωρίζει αυτό το πρόγραμμα (έως %2)."_s.arg(version)
                .arg(currentVersion));
    // A function may know its schema by the name that it had; the next opening makes them all again.
    connection.engine().setProperty(u"functions"_s, {});
    connection.open(connectionString(database, file));
    data::Transaction transaction(connection);
    makeIndexes(connection, database, version);
    transaction.commit();
    if (rowCounts(connection) != wanted)
        throw Error(ErrorCategory::Corrupt,
                    u"Οι εγγραφές του «%1» δεν είναι όσες έπρεπε."_s.arg(databaseFileName(database)));
    connection.engine().afterLoading(connection.catalog());
}

// The steps of one restoring; what isn't kept at the end is undone.
class Restoring {
public:
    Restoring(const QString& workshop, const QString& folder, const RestoreOptions& options)
        : workshop_(workshop), folder_(folder), options_(options) {}

    void fromFile(Database database) {
        const QString target = databasePath(folder_, database), fresh = databasePath(workshop_, database);
        if (QFileInfo::exists(target)) {
            requireNobodyIn(database, target);
            QFile::setPermissions(fresh, QFile::permissions(target));  // others may share this office
            aside_ += moveAside(moves_, target, options_.now);
        }
        moves_.move(fresh, target);
    }
    void fromDump(Database database, const Manifest::Member& member) {
        const QString target = databasePath(folder_, database), fresh = databasePath(workshop_, database);
        const data::ServerDescription place = placeOnServer(options_, target, database);
        schemas_.push_back(std::make_unique<SchemaRestore>(place, options_));
        schemas_.back()->run(QDir(workshop_).filePath(dumpName(database)), member.schema);
        data::writeServerDescription(fresh, place);
        finishDump(fresh, database, member.rows);
        if (!schemas_.back()->aside().isEmpty()) aside_ += u"σχήμα "_s + schemas_.back()->aside();
        if (!options_.server) return;
        if (QFileInfo::exists(target)) aside_ += moveAside(moves_, target, options_.now);
        moves_.move(fresh, target);
    }
    QStringList keep() {
        moves_.keep();
        for (const auto& schema : schemas_) schema->keep();
        return aside_;
    }

private:
    QString workshop_, folder_;
    const RestoreOptions& options_;
    Moves moves_;
    std::vector<std::unique_ptr<SchemaRestore>> schemas_;
    QStringList aside_;
};

// A description that a dump goes by is no database to be spared; the schema that it names is.
void refuseDatabasesThere(const QString& folder, const RestoreOptions& options) {
    if (options.force) return;
    for (const Database database : {Database::Main, Database::Users}) {
        const QString file = databasePath(folder, database);
        if (options.server || data::identifyFile(file).kind != data::FileKind::ServerDescription) refuseIfThere(file);
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
        const auto workshop = workshopIn(folder);
        const Manifest manifest = unpackChecked(file, workshop->path(), options.tools, options.progress);
        Restoring restoring(workshop->path(), folder, options);
        for (const Database database : options.databases) {
            const QString dump = dumpName(database);
            if (manifest.members.contains(dump)) {
                restoring.fromDump(database, manifest.members[dump]);
                continue;
            }
            if (options.server)
                throw Error(ErrorCategory::Constraint,
                            u"Το αντίγραφο είναι βάσης σε αρχείο. Επαναφέρετέ το σε φάκελο "
                            u"και μετά μεταφέρετέ το με την εντολή move."_s);
            if (!options.force) refuseIfThere(databasePath(folder, database));
            restoring.fromFile(database);
        }
        return restoring.keep();
    } catch (...) {
        if (!folderWasThere) QDir().rmdir(folder);
        throw;
    }
}

}  // namespace schema
