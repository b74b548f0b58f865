// Copies of an office on a server, by the server's own programs.
#include "copies/backup.h"
#include "copies/databasecopy.h"
#include "copies/manifest.h"
#include "copies/move.h"
#include "copies/restore.h"
#include "copies/servertools.h"
#include "copies/unpacking.h"
#include "copies/upgradecopy.h"
#include "data/postgres/pgschemas.h"
#include "schema/check.h"
#include "schema/office.h"
#include "schema/officebuilder.h"
#include "support/cases.h"
#include "support/childprocess.h"
#include "support/failure.h"
#include "support/files.h"
#include "support/officefolder.h"
#include "support/tool.h"

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
        office.main.execute(u"update Cards set ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ=#2026/01/02#, ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ=30"_s);
        transaction.commit();
    }
    copies::BackupInfo backup(const copies::BackupOptions& options = {}) {
        return copies::backupOffice(office.folder(), file, options);
    }
    QStringList left() { return entriesOf(scratch.path()); }

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

QStringList allFindings(Databases& office) {
    return schema::findings(office.main, Database::Main) + schema::findings(office.users, Database::Users);
}

// The server's housekeeping computes what indexes stand on, and knows nothing of the program's search path.
void analyze(data::Engine& engine) {
    engine.script(
        "DO $$ DECLARE cards text := current_schema(); BEGIN PERFORM set_config('search_path', '', true); "
        "EXECUTE format('ANALYZE %I.\"Cards\"', cards); END $$");
}

// With commands of the tool; what one role makes the other one must be able to use.
void whatTheToolDoesForAMember(const QString& folder, const QString& made, const QString& owner,
                               data::ServerDescription server) {
    QDir().mkpath(made);
    const QString days = made + u"/days.tsv"_s;
    overwrite(days, "Δοκιμή\t05/11\n");
    server.schema = u"another"_s;
    data::Connection main;
    copies::openUpgraded(main, schema::connectionString(Database::Main, schema::mainDatabasePath(folder)));
    main.engine().script("DROP INDEX \"Cards_order\"");
    main.close();
    const QString write = u"update Cards set total=1"_s;
    const struct {
        const char* name;
        QStringList words;
        QString role = {};  // whose description of what was made stands in the folder
    } cases[] = {
        {"check", {u"check"_s, folder, u"--repair"_s}},
        {"sql", {u"sql"_s, folder, u"select * from Cards"_s}},
        {"sql that writes", {u"sql"_s, folder, write, u"--write"_s}},
        {"load", {u"load"_s, folder, u"namedays"_s, days, u"--replace"_s}},
        {"create", QStringList{u"create"_s, made, u"--admin-password"_s, u"x"_s} + serverOption(server)},
        {"the owner looks", {u"check"_s, made}, owner},
        {"the owner writes", {u"sql"_s, made, write, u"--write"_s}, owner},
        {"the owner makes anew what it holds", {u"load"_s, made, u"namedays"_s, days, u"--replace"_s}, owner},
    };
    forEach(cases, [&](const auto& one) {
        if (!one.role.isEmpty())
            for (const Database database : schema::allDatabases) {
                data::ServerDescription seat = schema::serverFor(server, database);
                seat.user = one.role;
                QFile::remove(schema::databasePath(made, database));
                data::writeServerDescription(schema::databasePath(made, database), seat);
            }
        const ToolRun run = runTool(one.words);
        QVERIFY2(run.code == 0, qPrintable(run.err));
    });
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
        Databases restored(folder);
        data::Connection& main = restored.main;
        QVERIFY(count(main).toInt() >= before && count(main).toInt() < before + written);
        QCOMPARE(schema::findings(main, Database::Main), QStringList());
        for (data::Connection* connection : {&site.office.main, &main}) analyze(connection->engine());
    }

    // In one whose letters no word index can be made of: searches for words are slow there, which is told and no
    // damage.
    void aCopyComesBackInAnotherDatabase() {
        Site site;
        site.backup();
        const OtherDatabase other(site.office.main, " LOCALE_PROVIDER libc LOCALE 'C' ENCODING 'UTF8'");
        const QString folder = site.scratch.filePath(u"άλλο"_s), third = site.scratch.filePath(u"τρίτο"_s);
        QVERIFY(copies::restoreOffice(site.file, folder, {.server = other.server()}).isEmpty());
        Databases restored(folder);
        data::Connection& main = restored.main;
        QCOMPARE(allFindings(restored), QStringList());
        QVERIFY(schema::hindrances(main, Database::Main).value(0).contains(u"γράμματα"));
        QCOMPARE(copies::rowCounts(main), copies::rowCounts(site.office.main));
        QCOMPARE(firstText(main, u"select σχολια from Cards where code=7"_s),
                 firstText(site.office.main, u"select σχολια from Cards where code=7"_s));
        main.execute(u"insert into Cards (ΕΠΩΝΥΜΟ) values ('next')"_s);
        QCOMPARE(firstText(main, u"select max(code) from Cards"_s), u"301"_s);
        QCOMPARE(data::readServerDescription(schema::usersDatabasePath(folder)).schema, u"dorvalistu"_s);
        main.engine().script("DROP EXTENSION pg_trgm CASCADE");
        main.reloadCatalog();
        QVERIFY(schema::hindrances(main, Database::Main).value(0).contains(u"ευρετήριο των λέξεων"));
        QCOMPARE(schema::findings(main, Database::Main), QStringList());
        VERIFY_FAILURE(u"πίνακες", copies::restoreOffice(site.file, third, {.server = other.server()}));
        QVERIFY(!QFileInfo::exists(third));
    }

    // The second database fails; the first one and the living data are as before.
    void aFailedRestoringIsUndone() {
        Site site;
        site.backup();
        site.office.users.execute(u"insert into Users (UserName) values ('late')"_s);
        site.office.main.execute(u"delete from Cards"_s);
        site.office.main.close();  // the users database stays open
        VERIFY_FAILURE(u"ανοιχτή", copies::restoreOffice(site.file, site.office.folder(), {.force = true}));
        site.office.closeBoth();
        site.office.openBoth();
        QCOMPARE(count(site.office.main), u"0"_s);
        QCOMPARE(firstText(site.office.users, u"select count(*) from Users"_s), u"1"_s);

        data::ServerDescription beside = data::readServerDescription(site.office.mainFile());
        beside.schema = testengine::Schema::newName();
        const QString folder = site.scratch.filePath(u"δίπλα"_s);
        VERIFY_FAILURE(u"--server", copies::restoreOffice(site.file, folder, {}));
        QVERIFY(!QFileInfo::exists(folder));
        // The living office has the name that stands in the dump.
        QVERIFY(copies::restoreOffice(site.file, folder, {.server = beside}).isEmpty());
        QCOMPARE(count(site.office.main), u"0"_s);
        Databases copy(folder);
        QCOMPARE(count(copy.main), u"299"_s);
        copy.closeBoth();
        for (const Database database : schema::allDatabases)
            data::postgres::dropPgDatabase(schema::serverFor(beside, database));
    }

    // Killed at any step, a restoring leaves the office as it was, and isn't in the way of the next one, which
    // succeeds.
    void aKilledRestoringLeavesTheOffice() {
        Site site;
        site.backup();
        site.office.main.execute(u"delete from Cards"_s);
        const QString folder = site.office.folder();
        VERIFY_FAILURE(u"έχει ήδη πίνακες", copies::restoreOffice(site.file, folder, {}));
        VERIFY_FAILURE(u"ανοιχτή", copies::restoreOffice(site.file, folder, {.force = true}));
        site.office.closeBoth();
        for (const QString& where :
             {u"Επαναφορά του dorvalist.dump"_s, u"Ευρετήρια του dorvalist.mdb"_s, u"Ευρετήρια του dorvalistu.mdb"_s}) {
            const int result = runInChild([&] {
                const auto die = [&](const QString& what, int) { return what != where || raise(SIGKILL) == 0; };
                copies::restoreOffice(site.file, folder, {.force = true, .progress = die});
                return 0;
            });
            QVERIFY2(result == -SIGKILL, qPrintable(where));
            site.office.openBoth();
            QCOMPARE(count(site.office.main), u"0"_s);
            QCOMPARE(allFindings(site.office), QStringList());
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
        QVERIFY(aside[0].contains(name + u"_20261105-103000"_s));
        for (const QString& old : {name + u"_20261105-103000"_s, name + u"u_20261105-103000"_s}) {
            other.schema = old;
            QCOMPARE(data::postgres::pgSchemaState(other), data::postgres::PgSchemaState::Taken);
            data::postgres::dropPgDatabase(other);
        }
    }

    // The dump beside the description file; afterwards the connection writes as before.
    void anUpgradeHasItsCopyToo() {
        Site site;
        data::Connection& main = site.office.main;
        const QString file = site.office.mainFile();
        const copies::RowCounts counts = copies::rowCounts(main);
        QCOMPARE(copies::copyBeforeUpgrade(main, Database::Main, file, moment, {}, {}), QString());
        const QString copy = copies::copyBeforeUpgrade(main, Database::Main, file, moment);
        QCOMPARE(copy, file + u".v%1-20261105-103000"_s.arg(schema::currentVersion));
        QCOMPARE(main.execute(u"delete from Cards where code=1"_s), 1);
        copies::checkDump(copy, Database::Main, counts, copies::findServerTools(), {});
        QCOMPARE(QFileInfo(copy).permissions() & 0x77, QFile::Permissions());
        const copies::ServerTools broken{copies::findServerTools().restore, u"x"_s};
        VERIFY_FAILURE(u"απέτυχε", copies::copyBeforeUpgrade(main, Database::Main, file, moment, {}, broken));
        QCOMPARE(QDir(site.office.folder()).entryList(QDir::Files | QDir::Hidden).size(), 3);
    }

    void withoutTheProgramsNothingIsWritten() {
        const struct {
            const char* name;
            copies::ServerTools tools;
            QString says;
        } cases[] = {
            {"not installed", {}, u"postgresql-client"_s},
            {"can't start", {u"/nowhere/pg_dump"_s, u"/nowhere/pg_restore"_s}, u"/nowhere/pg_dump"_s},
            {"fails", {copies::findServerTools().restore, u"x"_s}, u"απέτυχε"_s},
        };
        Site site;
        forEach(cases, [&](const auto& one) {
            VERIFY_FAILURE(one.says, site.backup({.tools = one.tools}));
            QCOMPARE(site.left(), QStringList());
        });
    }

    void aCopyBrokenOffLeavesNothing() {
        Site site;
        for (const QString& where : {u"Αντιγραφή του dorvalistu.mdb"_s, u"Έλεγχος του dorvalist.dump"_s}) {
            int calls = 0;
            const auto stop = [&](const QString& what, int) { return what != where || ++calls < 2; };
            VERIFY_FAILURE(u"διακόπηκε", site.backup({.progress = stop}));
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
        copies::checkDump(dump, Database::Main, counts, tools, {});
        ++counts[u"Cards"_s];
        VERIFY_FAILURE(u"δεν είναι όσες έπρεπε", copies::checkDump(dump, Database::Main, counts, tools, {}));
        QFile cut(dump);
        QVERIFY(cut.resize(cut.size() / 2));
        VERIFY_FAILURE(u"pg_restore» απέτυχε", copies::rowsInDump(tools, dump, {}));
    }

    // What the guide promises to a seat whose role is a member of the owner's.
    void aMemberOfTheOwnersRoleDoesItAll() {
        ScratchOffice first;  // for its connection
        const QString owner = testengine::Schema::newName(), member = testengine::Schema::newName();
        data::Engine& engine = first.main.engine();
        engine.script("RESET ROLE; CREATE ROLE " + owner.toUtf8() + " LOGIN; CREATE ROLE " + member.toUtf8() +
                      " LOGIN IN ROLE " + owner.toUtf8());
        {
            const OtherDatabase database(first.main,
                                         " ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C.UTF-8' OWNER " + owner.toUtf8());
            QTemporaryDir scratch;
            const auto as = [&](const QString& role, const QString& folder) {
                QDir().mkpath(scratch.filePath(folder));
                for (const Database one : schema::allDatabases) {
                    data::ServerDescription server = database.server();
                    server.user = role;
                    const QString file = schema::databasePath(scratch.filePath(folder), one);
                    QFile::remove(file);
                    data::writeServerDescription(file, schema::serverFor(server, one));
                }
                return scratch.filePath(folder);
            };
            data::ServerDescription server = database.server();
            server.user = owner;
            schema::createOffice(scratch.filePath(u"owners"_s), {u"admin"_s, {}, server});
            const QString folder = as(member, u"members"_s), file = scratch.filePath(u"α.tar"_s);
            const auto write = [&](const QString& seat) {
                data::Connection main;
                copies::openUpgraded(main, schema::connectionString(Database::Main, schema::mainDatabasePath(seat)));
                main.execute(u"insert into Cards (ΕΠΩΝΥΜΟ) values ('x')"_s);
                return count(main);
            };
            QCOMPARE(write(folder), u"1"_s);
            copies::backupOffice(folder, file);
            for (const int second : {0, 1}) {  // the second time over what the first one made
                QCOMPARE(write(folder), u"2"_s);
                const auto aside = copies::restoreOffice(file, folder, {.force = true, .now = moment.addSecs(second)});
                QCOMPARE(aside.size(), 2);
            }
            QCOMPARE(write(scratch.filePath(u"owners"_s)), u"2"_s);
            copies::restoreOffice(file, as(owner, u"others"_s), {.force = true, .now = moment.addSecs(2)});
            data::ServerDescription members = database.server();
            members.user = member;
            whatTheToolDoesForAMember(folder, scratch.filePath(u"made"_s), owner, members);
            copies::moveOffice(folder, scratch.filePath(u"files"_s), {});
            QCOMPARE(write(scratch.filePath(u"files"_s)), u"2"_s);
        }
        engine.script("DROP ROLE " + member.toUtf8() + "; DROP ROLE " + owner.toUtf8());
    }
};

QTEST_GUILESS_MAIN(TestServerBackup)
#include "test_serverbackup.moc"
