#include "schema/office.h"

#include <QDir>
#include <QFileInfo>

#include "data/error.h"
#include "data/opening/connectionstring.h"
#include "data/opening/fileidentity.h"
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

}  // namespace

QString usersDatabasePassword() {
    return u"tbwvhq7"_s;
}
QString databaseFileName(Database database) {
    return database == Database::Main ? u"dorvalist.mdb"_s : u"dorvalistu.mdb"_s;
}
QString databasePath(const QString& folder, Database database) {
    return QDir(folder).filePath(databaseFileName(database));
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

void openAsItIs(data::Connection& connection, const QString& connectionString) {
    const Properties properties = data::parseConnectionString(connectionString);
    const bool onServer = data::identifyFile(properties.value(fileKey)).kind == FileKind::ServerDescription;
    const QString mode = onServer ? u"; mode=read"_s : QString();
    closeOnFailure(connection, [&] { openKnown(connection, connectionString + mode, properties); });
}

void openToRead(data::Connection& connection, const QString& connectionString) {
    const Properties properties = data::parseConnectionString(connectionString);
    closeOnFailure(connection, [&] { openKnown(connection, connectionString + u"; mode=read"_s, properties); });
}

void open(data::Connection& connection, const QString& connectionString, const BeforeUpgrade& beforeUpgrade) {
    const Properties properties = data::parseConnectionString(connectionString);
    closeOnFailure(connection, [&] {
        openKnown(connection, connectionString, properties);
        const Database database = wantedDatabase(properties);
        upgrade(connection, upgradeSteps(database), [&] { beforeUpgrade(database, properties.value(fileKey)); });
    });
}

}  // namespace schema
