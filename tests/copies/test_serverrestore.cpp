// An office on a server is put back from its copy.
#include "copies/restore.h"
#include "data/postgres/pgschemas.h"
#include "schema/office.h"
#include "schema/officebuilder.h"
#include "serversite.h"
#include "support/childprocess.h"
#include "support/failure.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;

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
};

QTEST_GUILESS_MAIN(TestServerRestore)
#include "test_serverrestore.moc"
