// Copies of an office on a server, by the server's own programs.
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "copies/backup.h"
#include "copies/databasecopy.h"
#include "copies/manifest.h"
#include "copies/restore.h"
#include "copies/servertools.h"
#include "copies/upgradecopy.h"
#include "schema/check.h"
#include "schema/office.h"
#include "schema/officebuilder.h"
#include "support/failure.h"
#include "support/officefolder.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;
using schema::Database;

namespace {

struct Site {
    Site() {
        const QString odd = u"α\tβ\nCOPY x.y (z) FROM stdin;\n\\.\n\\\\"_s;
        data::Transaction transaction(office.main);
        for (int i = 0; i < 300; ++i)
            office.main.execute(u"insert into Cards (ΕΠΩΝΥΜΟ, σχολια) values ('Επαφή %1', '%2')"_s.arg(i).arg(odd));
        office.main.execute(u"delete from Cards where code=300"_s);
        transaction.commit();
    }
    copies::BackupInfo backup(const copies::BackupOptions& options = {}) {
        return copies::backupOffice(office.folder(), file, options);
    }
    QStringList left() {
        return QDir(scratch.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    QString restoreFailure(const QString& folder, const copies::RestoreOptions& options) {
        return failureOf([&] { copies::restoreOffice(file, folder, options); });
    }

    ScratchOffice office;
    QTemporaryDir scratch;
    QString file = scratch.filePath(u"αντίγραφο.tar"_s);
};

// A database of its own on the run's server, gone with this object.
class OtherDatabase {
public:
    explicit OtherDatabase(data::Connection& connection, const QByteArray& more = {}) : connection_(connection) {
        server_ = testengine::server({});
        server_.database = testengine::Schema::newName();
        connection_.engine().script("CREATE DATABASE " + server_.database.toUtf8() + " TEMPLATE template0" + more);
    }
    ~OtherDatabase() { connection_.engine().script("DROP DATABASE " + server_.database.toUtf8() + " WITH (FORCE)"); }
    const data::ServerDescription& server() const { return server_; }

private:
    data::Connection& connection_;
    data::ServerDescription server_;
};

const QDateTime moment(QDate(2026, 11, 5), QTime(10, 30), Qt::UTC);

QString count(data::Connection& connection) {
    return firstText(connection, u"select count(*) from Cards"_s);
}

}  // namespace

class TestServerBackup : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY2(copies::findServerTools().found(), "pg_dump and pg_restore are needed"); }

    // Others write between the counting and the dump's end; the copy is of one moment.
    void aCopyIsOfOneMoment() {
        Site site;
        int written = 0;
        const auto intrude = [&](const QString& what, int) {
            if (what.startsWith(u"Αντιγραφή του dorvalist.mdb"))
                written += int(site.office.main.execute(u"insert into Cards (ΕΠΩΝΥΜΟ) values ('late')"_s));
            return true;
        };
        const qint64 before = copies::rowCounts(site.office.main)[u"Cards"_s];
        const copies::BackupInfo info = site.backup({.progress = intrude});
        QVERIFY(written >= 2);
        QCOMPARE(site.left(), QStringList({u"αντίγραφο.tar"_s}));
        QCOMPARE(QFileInfo(site.file).permissions() & 0x77, QFile::Permissions());
        QCOMPARE(copies::checkBackup(site.file).rows, info.rows);
        const OtherDatabase other(site.office.main);
        const QString folder = site.scratch.filePath(u"άλλο"_s);
        data::ServerDescription place = other.server();
        place.schema = u"νέο γραφείο"_s;
        copies::restoreOffice(site.file, folder, {.server = place});
        data::Connection main;
        copies::openUpgraded(main, schema::connectionString(Database::Main, schema::mainDatabasePath(folder)));
        QVERIFY(count(main).toInt() >= before && count(main).toInt() < before + written);
    }

    void aCopyComesBackInAnotherDatabase() {
        Site site;
        site.backup();
        const OtherDatabase other(site.office.main);
        const QString folder = site.scratch.filePath(u"άλλο"_s);
        QVERIFY(copies::restoreOffice(site.file, folder, {.server = other.server()}).isEmpty());
        {
            data::Connection main, users;
            copies::openUpgraded(main, schema::connectionString(Database::Main, schema::mainDatabasePath(folder)));
            copies::openUpgraded(users, schema::connectionString(Database::Users, schema::usersDatabasePath(folder)));
            QCOMPARE(schema::findings(main, Database::Main) + schema::findings(users, Database::Users), QStringList());
            QCOMPARE(copies::rowCounts(main), copies::rowCounts(site.office.main));
            QCOMPARE(firstText(main, u"select σχολια from Cards where code=7"_s),
                     firstText(site.office.main, u"select σχολια from Cards where code=7"_s));
            main.execute(u"insert into Cards (ΕΠΩΝΥΜΟ) values ('next')"_s);
            QCOMPARE(firstText(main, u"select max(code) from Cards"_s), u"301"_s);
            QCOMPARE(data::readServerDescription(schema::usersDatabasePath(folder)).schema, u"dorvalistu"_s);
        }
        QVERIFY(
            site.restoreFailure(site.scratch.filePath(u"τρίτο"_s), {.server = other.server()}).contains(u"πίνακες"));
        QVERIFY(!QFileInfo::exists(site.scratch.filePath(u"τρίτο"_s)));
    }

    // The server's housekeeping computes what indexes stand on, and knows nothing of the program's search path.
    void theServersOwnWorkNeedsNoSearchPath() {
        Site site;
        site.office.main.execute(u"update Cards set ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ=#2026/01/02#, ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ=30"_s);
        site.backup();
        const OtherDatabase other(site.office.main);
        const QString folder = site.scratch.filePath(u"άλλο"_s);
        data::ServerDescription place = other.server();
        place.schema = u"με άλλο όνομα"_s;
        copies::restoreOffice(site.file, folder, {.server = place});
        data::Connection restored;
        copies::openUpgraded(restored, schema::connectionString(Database::Main, schema::mainDatabasePath(folder)));
        for (data::Connection* connection : {&site.office.main, &restored}) {
            data::Engine& engine = connection->engine();
            QCOMPARE(failureOf([&] {
                         engine.script(
                             "DO $$ DECLARE cards text := current_schema(); BEGIN PERFORM "
                             "set_config('search_path', '', true); EXECUTE format('ANALYZE %I.\"Cards\"', "
                             "cards); END $$");
                     }),
                     QString());
        }
    }

    // Slow searches for words are told, but are no damage: such an office can be moved away, and a copy comes in.
    void withoutWordIndexesAnOfficeIsStillSound() {
        Site site;
        site.backup();
        const OtherDatabase other(site.office.main, " LOCALE_PROVIDER libc LOCALE 'C' ENCODING 'UTF8'");
        const QString folder = site.scratch.filePath(u"άλλο"_s);
        copies::restoreOffice(site.file, folder, {.server = other.server()});
        data::Connection main;
        copies::openUpgraded(main, schema::connectionString(Database::Main, schema::mainDatabasePath(folder)));
        QVERIFY(schema::hindrances(main, Database::Main).value(0).contains(u"γράμματα"));
        main.engine().script("DROP EXTENSION pg_trgm CASCADE");
        main.reloadCatalog();
        QVERIFY(schema::hindrances(main, Database::Main).value(0).contains(u"ευρετήριο των λέξεων"));
        QCOMPARE(schema::findings(main, Database::Main), QStringList());
    }

    void aCopyComesBackInItsOwnPlace() {
        Site site;
        site.backup();
        const QString folder = site.office.folder();
        const auto main = data::readServerDescription(site.office.mainFile());
        site.office.main.execute(u"delete from Cards"_s);
        QVERIFY(site.restoreFailure(folder, {}).contains(u"έχει ήδη πίνακες"));
        QVERIFY(site.restoreFailure(folder, {.force = true}).contains(u"ανοιχτή"));
        QCOMPARE(count(site.office.main), u"0"_s);
        site.office.closeBoth();
        const QStringList aside = copies::restoreOffice(
            site.file, folder, {.force = true, .now = QDateTime(QDate(2026, 11, 5), QTime(9, 0))});
        site.office.openBoth();
        QCOMPARE(count(site.office.main), u"299"_s);
        QCOMPARE(aside.size(), 2);
        data::ServerDescription old = main;
        old.schema += u"_20261105-090000";
        QVERIFY(aside[0].contains(old.schema));
        QCOMPARE(data::postgres::pgSchemaState(old), data::postgres::PgSchemaState::Taken);
        data::postgres::dropPgDatabase(old);
        old.schema = main.schema + u"u_20261105-090000"_s;
        data::postgres::dropPgDatabase(old);
    }

    // The second database fails; the first one and the living data are as before.
    void aFailedRestoringIsUndone() {
        Site site;
        site.backup();
        site.office.users.execute(u"insert into Users (UserName) values ('late')"_s);
        site.office.main.execute(u"delete from Cards"_s);
        site.office.main.close();  // the users database stays open
        const QString failure = site.restoreFailure(site.office.folder(), {.force = true});
        QVERIFY2(failure.contains(u"ανοιχτή"), qPrintable(failure));
        site.office.closeBoth();
        site.office.openBoth();
        QCOMPARE(count(site.office.main), u"0"_s);
        QCOMPARE(firstText(site.office.users, u"select count(*) from Users"_s), u"1"_s);

        data::ServerDescription beside = data::readServerDescription(site.office.mainFile());
        beside.schema = testengine::Schema::newName();
        const QString folder = site.scratch.filePath(u"δίπλα"_s);
        QVERIFY(site.restoreFailure(folder, {}).contains(u"--server"));
        QVERIFY(!QFileInfo::exists(folder));
        // The living office has the name that stands in the dump.
        QVERIFY(copies::restoreOffice(site.file, folder, {.server = beside}).isEmpty());
        QCOMPARE(count(site.office.main), u"0"_s);
        data::Connection copy;
        copies::openUpgraded(copy, schema::connectionString(Database::Main, schema::mainDatabasePath(folder)));
        QCOMPARE(count(copy), u"299"_s);
        copy.close();
        for (const Database database : schema::allDatabases)
            data::postgres::dropPgDatabase(schema::serverFor(beside, database));
    }

    // Killed at any step, a restoring leaves the office as it was, and the next one isn't in its way.
    void aKilledRestoringLeavesTheOffice() {
        Site site;
        site.backup();
        site.office.main.execute(u"delete from Cards"_s);
        site.office.closeBoth();
        const QString folder = site.office.folder();
        for (const QString& where :
             {u"Επαναφορά του dorvalist.dump"_s, u"Ευρετήρια του dorvalist.mdb"_s, u"Ευρετήρια του dorvalistu.mdb"_s}) {
            const pid_t child = fork();
            if (child == 0) {
                const auto die = [&](const QString& what, int) {
                    if (what == where) raise(SIGKILL);
                    return true;
                };
                copies::restoreOffice(site.file, folder, {.force = true, .progress = die});
                _exit(0);
            }
            int status = 0;
            QCOMPARE(waitpid(child, &status, 0), child);
            QVERIFY2(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL, qPrintable(where));
            site.office.openBoth();
            QCOMPARE(count(site.office.main), u"0"_s);
            QCOMPARE(schema::findings(site.office.main, Database::Main) +
                         schema::findings(site.office.users, Database::Users),
                     QStringList());
            site.office.closeBoth();
        }
        const QStringList aside = copies::restoreOffice(site.file, folder, {.force = true, .now = moment});
        QCOMPARE(aside.size(), 2);
        site.office.openBoth();
        QCOMPARE(count(site.office.main), u"299"_s);
        data::ServerDescription other = data::readServerDescription(site.office.mainFile());
        const QString name = other.schema;
        other.schema = name + u"_restoring"_s;
        QCOMPARE(data::postgres::pgSchemaState(other), data::postgres::PgSchemaState::Absent);
        for (const QString& old : {name + u"_20261105-103000"_s, name + u"u_20261105-103000"_s}) {
            other.schema = old;
            data::postgres::dropPgDatabase(other);
        }
    }

    // The dump beside the description file; afterwards the connection writes as before.
    void anUpgradeHasItsCopyToo() {
        Site site;
        data::Connection& main = site.office.main;
        const QString file = site.office.mainFile();
        const QDateTime now(QDate(2026, 11, 5), QTime(10, 30), Qt::UTC);
        const copies::RowCounts counts = copies::rowCounts(main);
        QCOMPARE(copies::copyBeforeUpgrade(main, Database::Main, file, now, {}, {}), QString());
        const QString copy = copies::copyBeforeUpgrade(main, Database::Main, file, now);
        QCOMPARE(copy, file + u".v%1-20261105-103000"_s.arg(schema::currentVersion));
        QCOMPARE(main.execute(u"delete from Cards where code=1"_s), 1);
        copies::checkDump(copy, Database::Main, counts, copies::findServerTools(), {});
        QCOMPARE(QFileInfo(copy).permissions() & 0x77, QFile::Permissions());
        const copies::ServerTools broken{copies::findServerTools().restore, u"x"_s};
        QVERIFY(!failureOf([&] { copies::copyBeforeUpgrade(main, Database::Main, file, now, {}, broken); }).isEmpty());
        QCOMPARE(QDir(site.office.folder()).entryList(QDir::Files | QDir::Hidden).size(), 3);
    }

    void withoutTheProgramsNothingIsWritten_data() {
        QTest::addColumn<copies::ServerTools>("tools");
        QTest::addColumn<QString>("part");
        QTest::newRow("not installed") << copies::ServerTools() << u"postgresql-client"_s;
        QTest::newRow("can't start") << copies::ServerTools{u"/nowhere/pg_dump"_s, u"/nowhere/pg_restore"_s}
                                     << u"/nowhere/pg_dump"_s;
        QTest::newRow("fails") << copies::ServerTools{copies::findServerTools().restore, u"x"_s} << u"απέτυχε"_s;
    }
    void withoutTheProgramsNothingIsWritten() {
        QFETCH(copies::ServerTools, tools);
        QFETCH(QString, part);
        Site site;
        const QString failure = failureOf([&] { site.backup({.tools = tools}); });
        QVERIFY2(failure.contains(part), qPrintable(failure));
        QCOMPARE(site.left(), QStringList());
    }

    void aCopyBrokenOffLeavesNothing() {
        Site site;
        for (const QString& where : {u"Αντιγραφή του dorvalistu.mdb"_s, u"Έλεγχος του dorvalist.dump"_s}) {
            int calls = 0;
            const auto stop = [&](const QString& what, int) { return what != where || ++calls < 2; };
            QVERIFY(failureOf([&] { site.backup({.progress = stop}); }).contains(u"διακόπηκε"));
            QCOMPARE(site.left(), QStringList());
        }
    }

    void aRowTooFewIsNoticed() {
        Site site;
        const copies::ServerTools tools = copies::findServerTools();
        const QString dump = site.scratch.filePath(u"d"_s);
        site.office.main.engine().beginSnapshot();
        copies::RowCounts counts = copies::rowCounts(site.office.main);
        copies::dumpSchema(tools, data::readServerDescription(site.office.mainFile()),
                           site.office.main.engine().snapshotName(), dump, {});
        site.office.main.engine().rollback();
        QCOMPARE(failureOf([&] { copies::checkDump(dump, Database::Main, counts, tools, {}); }), QString());
        ++counts[u"Cards"_s];
        QVERIFY(!failureOf([&] { copies::checkDump(dump, Database::Main, counts, tools, {}); }).isEmpty());
        QFile cut(dump);
        QVERIFY(cut.resize(cut.size() / 2));
        QVERIFY(!failureOf([&] { copies::rowsInDump(tools, dump, {}); }).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestServerBackup)
#include "test_serverbackup.moc"
