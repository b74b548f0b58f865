// A copy of an office on a server comes back in another database, and for a seat whose role doesn't own it.
#include "copies/move.h"
#include "copies/restore.h"
#include "schema/office.h"
#include "schema/officebuilder.h"
#include "serversite.h"
#include "support/cases.h"
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

class TestServerRoles : public QObject {
    Q_OBJECT
private slots:
    // In one whose letters no word index can be made of: searches for words are slow there, which is told and no
    // damage.
    void aCopyComesBackInAnotherDatabase() {
        ServerSite site;
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

QTEST_GUILESS_MAIN(TestServerRoles)
#include "test_serverroles.moc"
