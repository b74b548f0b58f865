#include "schema/office.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "data/connectionstring.h"
#include "data/databasepassword.h"
#include "data/dialect/enginedialect.h"
#include "data/error.h"
#include "data/fileidentity.h"
#include "data/password.h"
#include "data/postgres/pgengine.h"
#include "data/sqlite/sqliteengine.h"
#include "schema/backup.h"
#include "schema/indexes.h"
#include "schema/reference.h"
#include "schema/tablewriter.h"
#include "schema/upgrade.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;
using data::FileKind;

using Properties = QHash<QString, QString>;

const QString fileKey = u"data source"_s;
const QString passwordKey = u"jet oledb:database password"_s;

Database wantedDatabase(const Properties& properties) {
    return properties.value(passwordKey).isEmpty() ? Database::Main : Database::Users;
}

QString fileName(Database database) {
    return database == Database::Main ? u"dorvalist.mdb"_s : u"dorvalistu.mdb"_s;
}

QString databasePath(const QString& folder, Database database) {
    return QDir(folder).filePath(fileName(database));
}

void refuseNewer(const QString& file, int version) {
    if (version <= currentVersion) return;
    throw Error(
        ErrorCategory::Connection,
        u"Η βάση «%1» είναι νεότερης έκδοσης (%2) από όσες γνωρίζει αυτό το πρόγραμμα (έως %3). Εγκαταστήστε τη "
        u"νεότερη έκδοση του προγράμματος."_s.arg(QFileInfo(file).fileName())
            .arg(version)
            .arg(currentVersion));
}

void refuseOtherKind(const QString& file, FileKind kind, Database wanted) {
    const bool main = wanted == Database::Main;
    const FileKind right = main ? FileKind::Main : FileKind::Users;
    if (kind == right || (kind != FileKind::Main && kind != FileKind::Users)) return;
    throw Error(ErrorCategory::Connection,
                u"Το αρχείο «%1» είναι %2 και όχι %3."_s.arg(QFileInfo(file).fileName(),
                                                             main ? u"η βάση των χρηστών"_s : u"η κύρια βάση"_s,
                                                             main ? u"η κύρια βάση"_s : u"η βάση των χρηστών"_s));
}

// A file that was made but never filled.
void refuseUnfinished(const QString& file, int version) {
    if (version > 0) return;
    throw Error(
        ErrorCategory::Corrupt,
        u"Η δημιουργία της βάσης «%1» δεν ολοκληρώθηκε. Επαναφέρετε ένα αντίγραφο ασφαλείας ή φτιάξτε νέα βάση."_s.arg(
            QFileInfo(file).fileName()));
}

// Opens what is surely a database of the wanted kind and of a version that is known here.
void openKnown(data::Connection& connection, const QString& connectionString, const Properties& properties) {
    const QString file = properties.value(fileKey);
    const data::FileIdentity identity = data::identifyFile(file);
    refuseOtherKind(file, identity.kind, wantedDatabase(properties));
    refuseNewer(file, identity.version);
    // Of a server's database the file itself says nothing; only the users' has a password to refuse.
    try {
        connection.open(connectionString);
    } catch (const Error& error) {
        if (error.category() == ErrorCategory::Password)
            refuseOtherKind(file, FileKind::Users, wantedDatabase(properties));
        throw;
    }
    const bool main = connection.engine().kind() == data::DatabaseKind::Main;
    refuseOtherKind(file, main ? FileKind::Main : FileKind::Users, wantedDatabase(properties));
    // The header that was read above is old while the newest one still lies in the journal.
    const int version = storedVersion(connection);
    refuseNewer(file, version);
    refuseUnfinished(file, version);
}

void closeOnFailure(data::Connection& connection, const std::function<void()>& work) {
    try {
        work();
    } catch (...) {
        connection.close();
        throw;
    }
}

void createTables(data::Connection& connection, Database database) {
    data::Engine& engine = connection.engine();
    for (const Table& table : tables(database)) {
        const data::TableInfo info = tableInfo(table);
        engine.script(engine.dialect().createTable(info, table.key));
    }
    connection.reloadCatalog();
    for (const Table& table : tables(database)) createIndexes(connection, table, 1, currentVersion);
    connection.reloadCatalog();
}

// Each database of an office on a server has a schema of its own, named like its file.
data::ServerDescription serverOf(const NewOffice& options, Database database) {
    data::ServerDescription server = *options.server;
    const QString name = server.schema.isEmpty() ? u"dorvalist"_s : server.schema;
    server.schema = database == Database::Main ? name : name + u'u';
    return server;
}

// Takes back what was made on a server for an office that was not.
class NewSchemas {
public:
    ~NewSchemas() {
        for (const data::ServerDescription& server : made_) data::dropPgDatabase(server);
    }
    void make(const data::ServerDescription& server, Database database) {
        data::createPgDatabase(server,
                               database == Database::Main ? data::DatabaseKind::Main : data::DatabaseKind::Users);
        made_ += server;
    }
    void keep() { made_.clear(); }

private:
    QVector<data::ServerDescription> made_;
};

void makeEmpty(const QString& file, Database database, const NewOffice& options, NewSchemas& schemas) {
    if (!options.server)
        return data::createSqliteFile(file,
                                      database == Database::Main ? data::mainApplicationId : data::usersApplicationId);
    const data::ServerDescription server = serverOf(options, database);
    schemas.make(server, database);
    data::writeServerDescription(file, server);
}

void fillDatabase(const QString& file, Database database, const std::function<void(data::Connection&)>& fill) {
    data::Connection connection;
    connection.open(connectionString(database, file));
    {
        data::Transaction transaction(connection);
        createTables(connection, database);
        for (const QString& statement : defaultRows(database)) connection.execute(statement);
        fill(connection);
        storeVersion(connection, currentVersion);
        transaction.commit();
    }
    connection.close();
}

void loadDeliveredReference(const QString& mainFile, const QString& folder) {
    data::Connection connection;
    connection.open(connectionString(Database::Main, mainFile));
    for (const ReferenceKind& kind : referenceKinds())
        loadReference(connection, kind, QDir(folder).filePath(kind.name + u".tsv"_s));
}

void fillUsers(data::Connection& users, const QString& adminPassword) {
    TableWriter(users, *findTable(Database::Users, u"Admin"), {u"Pass"_s}).write({data::makeVerifier(adminPassword)});
    data::setDatabasePassword(users.engine(), usersDatabasePassword());
}

void moveInto(const QString& from, const QString& to) {
    QFile file(from);
    if (!file.rename(to))
        throw Error(ErrorCategory::Full, u"Δεν γράφεται το αρχείο «%1»: %2"_s.arg(to, file.errorString()));
}

// Takes back the folder if it was made for an office that was not.
class NewFolder {
public:
    explicit NewFolder(const QString& folder) : folder_(folder), existed_(QFileInfo::exists(folder)) {
        if (!QDir().mkpath(folder))
            throw Error(ErrorCategory::Full, u"Δεν δημιουργείται ο φάκελος «%1»."_s.arg(folder));
    }
    ~NewFolder() {
        if (!existed_ && !kept_) QDir().rmdir(folder_);
    }
    void keep() { kept_ = true; }

private:
    QString folder_;
    bool existed_;
    bool kept_ = false;
};

void refuseExisting(const QString& folder) {
    for (const Database database : {Database::Main, Database::Users})
        if (const QString file = databasePath(folder, database); QFileInfo::exists(file))
            throw Error(ErrorCategory::Constraint,
                        u"Υπάρχει ήδη το αρχείο «%1»· δεν πειράχτηκε τίποτα."_s.arg(QDir::toNativeSeparators(file)));
}

}  // namespace

QString usersDatabasePassword() {
    return u"tbwvhq7"_s;
}
QString mainDatabasePath(const QString& folder) {
    return databasePath(folder, Database::Main);
}
QString usersDatabasePath(const QString& folder) {
    return databasePath(folder, Database::Users);
}

QString connectionString(Database database, const QString& file) {
    QString path = file;
    const bool plain =
        !path.contains(u';') && !path.startsWith(u'"') && !path.startsWith(u'\'') && path == path.trimmed();
    if (!plain) path = u'"' + path.replace(u'"', u"\"\""_s) + u'"';
    QString text = u"Provider=microsoft.jet.oledb.4.0;data source="_s + path;
    if (database == Database::Users) text += u"; Jet OLEDB:Database Password="_s + usersDatabasePassword();
    return text;
}

void openToRead(data::Connection& connection, const QString& connectionString) {
    const Properties properties = data::parseConnectionString(connectionString);
    closeOnFailure(connection, [&] { openKnown(connection, connectionString + u"; mode=read"_s, properties); });
}

void open(data::Connection& connection, const QString& connectionString) {
    const Properties properties = data::parseConnectionString(connectionString);
    closeOnFailure(connection, [&] {
        openKnown(connection, connectionString, properties);
        const Database database = wantedDatabase(properties);
        const QString file = properties.value(fileKey);
        const bool onServer = data::identifyFile(file).kind == data::FileKind::ServerDescription;
        upgrade(connection, upgradeSteps(database), [&] {
            // A server's data are copied by the server's own tools; there the step's transaction is the safety.
            if (!onServer) copyBeforeUpgrade(connection, database, file, QDateTime::currentDateTime());
        });
    });
}

void createOffice(const QString& folder, const NewOffice& options) {
    if (options.adminPassword.isEmpty())
        throw Error(ErrorCategory::Constraint, u"Ο κωδικός του Admin δεν μπορεί να είναι κενός."_s);
    refuseExisting(folder);
    NewFolder place(folder);
    // Inside the folder, so that the last step is a rename and never a copy; what is left of it goes with its name.
    QTemporaryDir workshop(QDir(folder).filePath(u".dorvalist-XXXXXX"_s));
    if (!workshop.isValid())
        throw Error(ErrorCategory::Full,
                    u"Δεν γράφεται ο φάκελος «%1»: %2"_s.arg(QDir::toNativeSeparators(folder), workshop.errorString()));
    const QString main = mainDatabasePath(workshop.path()), users = usersDatabasePath(workshop.path());
    NewSchemas schemas;
    makeEmpty(main, Database::Main, options, schemas);
    fillDatabase(main, Database::Main, [](data::Connection&) {});
    makeEmpty(users, Database::Users, options, schemas);
    fillDatabase(users, Database::Users,
                 [&](data::Connection& connection) { fillUsers(connection, options.adminPassword); });
    if (!options.referenceFolder.isEmpty()) loadDeliveredReference(main, options.referenceFolder);

    moveInto(users, usersDatabasePath(folder));
    try {
        moveInto(main, mainDatabasePath(folder));
    } catch (...) {
        QFile::remove(usersDatabasePath(folder));
        throw;
    }
    schemas.keep();
    place.keep();
}

}  // namespace schema
