// Copies of an office on a server, by the server's own programs.
#include "copies/databasecopy.h"
#include "copies/manifest.h"
#include "copies/restore.h"
#include "copies/unpacking.h"
#include "copies/upgradecopy.h"
#include "schema/office.h"
#include "serversite.h"
#include "support/cases.h"
#include "support/failure.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;

// The server's housekeeping computes what indexes stand on, and knows nothing of the program's search path.
static void analyze(data::Engine& engine) {
    engine.script(
        "DO $$ DECLARE cards text := current_schema(); BEGIN PERFORM set_config('search_path', '', true); "
        "EXECUTE format('ANALYZE %I.\"Cards\"', cards); END $$");
}

class TestServerBackup : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY2(copies::findServerTools().found(), "pg_dump and pg_restore are needed"); }

    // Others write between the counting and the dump's end; the copy is of one moment.
    void aCopyIsOfOneMoment() {
        ServerSite site;
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

    // The dump beside the description file; afterwards the connection writes as before.
    void anUpgradeHasItsCopyToo() {
        ServerSite site;
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
        ServerSite site;
        forEach(cases, [&](const auto& one) {
            VERIFY_FAILURE(one.says, site.backup({.tools = one.tools}));
            QCOMPARE(site.left(), QStringList());
        });
    }

    void aCopyBrokenOffLeavesNothing() {
        ServerSite site;
        for (const QString& where : {u"Αντιγραφή του dorvalistu.mdb"_s, u"Έλεγχος του dorvalist.dump"_s}) {
            int calls = 0;
            const auto stop = [&](const QString& what, int) { return what != where || ++calls < 2; };
            VERIFY_FAILURE(u"διακόπηκε", site.backup({.progress = stop}));
            QCOMPARE(site.left(), QStringList());
        }
    }

    void aRowTooFewIsNoticed() {
        ServerSite site;
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
};

QTEST_GUILESS_MAIN(TestServerBackup)
#include "test_serverbackup.moc"
