// An office on a server is put back from its copy, also by a seat that doesn't own it.
#include "copies/move.h"
#include "copies/restore.h"
#include "data/postgres/pgschemas.h"
#include "schema/office.h"
#include "schema/officebuilder.h"
#include "serversite.h"
#include "support/cases.h"
#include "support/childprocess.h"
#include "support/failure.h"
#include "support/tool.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;

// With commands of the tool; what one role makes the other one must be able to use.
static void whatTheToolDoesForAMember(const QString& folder, const QString& made, const QString& owner,
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

class TestServerRestore : public QObject {
    Q_OBJECT
private slots:
    // The second database fails; the first one and the living data are as before.
    void aFailedRestoringIsUndone() {
        ServerSite site;
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
        ServerSite site;
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

QTEST_GUILESS_MAIN(TestServerRestore)
#include "test_serverrestore.moc"
