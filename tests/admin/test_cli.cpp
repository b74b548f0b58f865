// The tool as its users meet it: a process with words, streams and an exit code.
#include <QtTest>

#include "copies/upgradecopy.h"
#include "data/connection.h"
#include "schema/office.h"
#include "support/testengine.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct Outcome {
    int code;
    QString out, err;
};

Outcome runTool(const QStringList& words) {
    QProcess process;
    process.start(QString::fromUtf8(DORV_PROGRAM), words);
    process.closeWriteChannel();
    if (!process.waitForFinished(120000)) return {-1, {}, u"the tool did not end"_s};
    const int code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    return {code, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

}  // namespace

class TestCli : public QObject {
    Q_OBJECT

    QTemporaryDir scratch_;
    QString office_ = scratch_.filePath(u"office"_s);

    // What makes an office where this run's databases are.
    QStringList place() {
        if (!testengine::isPostgres()) return {};
        const data::ServerDescription server = testengine::server(testengine::Schema::newName());
        return {u"--server"_s, u"host='%1' database=%2 user=%3 schema=%4"_s.arg(server.host, server.database,
                                                                                server.user, server.schema)};
    }
    static void remove(const QString& folder) {
        for (const QString& file : {schema::mainDatabasePath(folder), schema::usersDatabasePath(folder)})
            if (testengine::isPostgres() && QFile::exists(file))
                data::postgres::dropPgDatabase(data::readServerDescription(file));
        QDir(folder).removeRecursively();
    }
    void spoil(const QByteArray& script) {
        data::Connection main;
        copies::openUpgraded(main, schema::connectionString(schema::Database::Main, schema::mainDatabasePath(office_)));
        main.engine().script(script);
    }

    void restoreOnTheServer(const QString& file) {
        QCOMPARE(runTool({u"sql"_s, office_, u"delete from Cards"_s, u"--write"_s}).code, 0);
        const Outcome forced = runTool({u"restore"_s, file, office_, u"--force"_s});
        QVERIFY2(forced.code == 0, qPrintable(forced.err));
        QVERIFY(runTool({u"check"_s, office_}).out.contains(u"Cards\t30\n"));
        QFile::remove(file);
        for (const QString& line : forced.out.split(u'\n'))
            if (line.contains(u"σχήμα "))
                data::postgres::dropPgDatabase(testengine::server(line.section(u"σχήμα "_s, 1)));
    }

private slots:
    void init() {
        const Outcome made = runTool(
            QStringList{u"demo"_s, office_, u"--cards"_s, u"30"_s, u"--seed=5"_s, u"--date"_s, u"2026-11-23"_s} +
            place());
        QVERIFY2(made.code == 0, qPrintable(made.err));
        QVERIFY(made.out.contains(u"maria\tmaria1\t1"));
        QVERIFY(made.out.contains(u"Admin\tadmin\t1"));
    }

    void cleanup() { remove(office_); }

    void wrongCallsAreUsageErrors_data() {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<QString>("part");
        const auto row = [](const char* name, const QStringList& words, const QString& part) {
            QTest::newRow(name) << words << part;
        };
        row("nothing", {}, u"Λείπει η εντολή"_s);
        row("unknown command", {u"destroy"_s}, u"«destroy»"_s);
        row("unknown option", {u"check"_s, u"x"_s, u"--force"_s}, u"«--force»"_s);
        row("missing folder", {u"create"_s}, u"Λείπουν"_s);
        row("one more", {u"check"_s, u"x"_s, u"y"_s}, u"«y»"_s);
        row("no value", {u"demo"_s, u"x"_s, u"--cards"_s}, u"χρειάζεται τιμή"_s);
        row("value for a switch", {u"sql"_s, u"x"_s, u"y"_s, u"--write=1"_s}, u"δεν παίρνει τιμή"_s);
        row("twice", {u"demo"_s, u"x"_s, u"--seed=1"_s, u"--seed=2"_s}, u"δύο φορές"_s);
        row("no number", {u"demo"_s, u"x"_s, u"--cards=many"_s}, u"ακέραιο"_s);
        row("too many", {u"demo"_s, u"x"_s, u"--cards=99999999999"_s}, u"ακέραιο"_s);
        row("no date", {u"demo"_s, u"x"_s, u"--date=31/12/2026"_s}, u"εεεε-μμ-ηη"_s);
        row("backup of nothing", {u"backup"_s, u"x"_s}, u"Λείπουν"_s);
        row("unknown kind", {u"load"_s, u"x"_s, u"cards"_s, u"f"_s}, u"«cards»"_s);
        row("no terminal", {u"create"_s, u"x"_s}, u"--admin-password"_s);
        row("help of nothing", {u"help"_s, u"destroy"_s}, u"«destroy»"_s);
    }
    void wrongCallsAreUsageErrors() {
        QFETCH(QStringList, words);
        QFETCH(QString, part);
        const Outcome outcome = runTool(words);
        QCOMPARE(outcome.code, 2);
        QVERIFY2(outcome.err.contains(part), qPrintable(outcome.err));
        QVERIFY(outcome.err.contains(u"Χρήση:"));
        QVERIFY(outcome.out.isEmpty());
    }

    void helpAndVersion() {
        const Outcome help = runTool({u"help"_s});
        QCOMPARE(help.code, 0);
        for (const QString& command :
             {u"create"_s, u"demo"_s, u"sql"_s, u"check"_s, u"load"_s, u"backup"_s, u"restore"_s}) {
            QVERIFY(help.out.contains(command));
            QVERIFY(runTool({u"help"_s, command}).out.contains(u"dorvalist-admin "_s + command));
        }
        QCOMPARE(runTool({u"load"_s, u"--help"_s}).out, runTool({u"help"_s, u"load"_s}).out);
        QVERIFY(help.out.contains(u"Κωδικοί εξόδου"));
        QVERIFY(runTool({u"--version"_s}).out.startsWith(u"dorvalist-admin 1."));
    }

    void createRefusesWhatExistsAndEmptyPasswords() {
        const Outcome again = runTool({u"create"_s, office_, u"--admin-password"_s, u"x"_s});
        QCOMPARE(again.code, 1);
        QVERIFY(again.err.contains(u"υπάρχει ήδη", Qt::CaseInsensitive));
        const QString other = scratch_.filePath(u"other"_s);
        QCOMPARE(runTool({u"create"_s, other, u"--admin-password="_s}).code, 1);
        QVERIFY(!QFileInfo::exists(other));
        QCOMPARE(runTool(QStringList{u"create"_s, other, u"--admin-password=x"_s} + place()).code, 0);
        QCOMPARE(runTool({u"check"_s, other}).code, 0);
        remove(other);
    }

    void sqlReadsInPlainCells() {
        QCOMPARE(
            runTool({u"sql"_s, office_,
                     u"update Cards set σχολια='α\tβ\nγ\\', total=1234.5, ΗΜ_ΓΕΝΗΣΗΣ=#1980/02/29#, FieldYes1=1 where "
                     u"code=1"_s,
                     u"--write"_s})
                .out,
            u"Εγγραφές που άλλαξαν: 1\n"_s);
        const Outcome read =
            runTool({u"sql"_s, office_,
                     u"select code,σχολια,total,ΗΜ_ΓΕΝΗΣΗΣ,FieldYes1,OutlookEntryID from Cards where code=1"_s});
        QCOMPARE(read.code, 0);
        QCOMPARE(read.out,
                 u"code\tσχολια\ttotal\tΗΜ_ΓΕΝΗΣΗΣ\tFieldYes1\tOutlookEntryID\n"
                 u"1\tα\\tβ\\nγ\\\\\t1234,5\t29/02/1980\tTrue\t\n"_s);
        QVERIFY(runTool({u"sql"_s, office_, u"select photo from Cards where code=1"_s}).out.endsWith(u" bytes)\n"));
        QCOMPARE(runTool({u"sql"_s, office_, u"select UserName from Users order by UserName"_s, u"--users"_s}).out,
                 u"UserName\neleni\nmaria\nnikos\n"_s);
    }

    void sqlOnlyReadsUnlessToldOtherwise() {
        const Outcome refused = runTool({u"sql"_s, office_, u"delete from Cards"_s});
        QCOMPARE(refused.code, 1);
        QVERIFY(refused.err.contains(u"--write"));
        QCOMPARE(runTool({u"sql"_s, office_, u"select count(*) as n from Cards"_s}).out, u"n\n30\n"_s);
        const Outcome broken = runTool({u"sql"_s, office_, u"select from where"_s});
        QCOMPARE(broken.code, 1);
        QVERIFY(!broken.err.isEmpty());
        QVERIFY(broken.out.isEmpty());
    }

    void checkFindsDamage() {
        const Outcome well = runTool({u"check"_s, office_});
        QVERIFY2(well.code == 0, qPrintable(well.err));
        QVERIFY(well.out.contains(u"Cards\t30\n"));
        QVERIFY(well.out.contains(u"Users\t3\n"));
        spoil("DROP INDEX \"History_card\"");
        const Outcome missing = runTool({u"check"_s, office_});
        QCOMPARE(missing.code, 1);
        QVERIFY(missing.err.contains(u"History_card"));
    }

    // An index that disagrees with its table, as after a write that reached the disk by half.
    void checkFindsAnIndexThatLies() {
        spoil("DROP INDEX \"Calls_day\"; CREATE INDEX \"Calls_day\" ON \"Calls\" (\"ΗΜΕΡΟΜΗΝΙΑ\") WHERE 1=0;");
        QCOMPARE(runTool({u"check"_s, office_}).code, 1);
        if (testengine::isPostgres()) return;  // no file to be damaged
        QFile file(schema::usersDatabasePath(office_));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.seek(4096));
        file.write(QByteArray(4096, '\x5A'));
        file.close();
        const Outcome damaged = runTool({u"check"_s, office_});
        QCOMPARE(damaged.code, 1);
        QVERIFY(damaged.out.contains(u"Cards\t30\n"));
    }

    void checkOfNothing() { QCOMPARE(runTool({u"check"_s, scratch_.filePath(u"nowhere"_s)}).code, 1); }

    void backupAndRestore() {
        const QString file = scratch_.filePath(u"a.tar"_s), other = scratch_.filePath(u"restored"_s);
        const Outcome made = runTool({u"backup"_s, office_, file});
        QVERIFY2(made.code == 0, qPrintable(made.err));
        QVERIFY(made.out.contains(file) && made.err.contains(u"dorvalistu.mdb"));
        QCOMPARE(QFileInfo(file).permissions() & 0x77, QFile::Permissions());
        const Outcome again = runTool({u"backup"_s, office_, file});
        QCOMPARE(again.code, 1);
        QVERIFY(again.err.contains(u"Υπάρχει ήδη"));
        QCOMPARE(runTool({u"backup"_s, office_, file, u"--force"_s}).code, 0);
        QCOMPARE(runTool({u"restore"_s, file, office_}).code, 1);
        if (testengine::isPostgres()) return restoreOnTheServer(file);
        QCOMPARE(runTool({u"restore"_s, file, other}).code, 0);
        QVERIFY(runTool({u"check"_s, other}).out.contains(u"Cards\t30\n"));
        QCOMPARE(runTool({u"sql"_s, other, u"delete from Cards"_s, u"--write"_s}).code, 0);
        const Outcome forced = runTool({u"restore"_s, file, other, u"--force"_s});
        QVERIFY2(forced.code == 0, qPrintable(forced.err));
        QCOMPARE(forced.out.count(u"dorvalist.mdb.2"), 1);
        QVERIFY(runTool({u"check"_s, other}).out.contains(u"Cards\t30\n"));
        QCOMPARE(runTool({u"restore"_s, scratch_.filePath(u"own.tsv"_s), office_, u"--force"_s}).code, 1);
        QDir(other).removeRecursively();
        QFile::remove(file);
    }

    void loadTakesAWholeFileOrNothing() {
        QFile own(scratch_.filePath(u"own.tsv"_s));
        QVERIFY(own.open(QIODevice::WriteOnly));
        own.write("Παράδειγμα\tΕταιρία\tΧρήση\tΟυσία\n");
        own.flush();
        const QString query = u"select count(*) as n from Farmaka"_s;
        const QString before = runTool({u"sql"_s, office_, query}).out;
        QCOMPARE(runTool({u"load"_s, office_, u"farmaka"_s, own.fileName(), u"--replace"_s}).code, 0);
        QCOMPARE(runTool({u"sql"_s, office_, query}).out, u"n\n1\n"_s);
        QVERIFY(before != u"n\n1\n");
        own.write("Λάθος γραμμή\n");
        own.close();
        const Outcome refused = runTool({u"load"_s, office_, u"farmaka"_s, own.fileName(), u"--replace"_s});
        QCOMPARE(refused.code, 1);
        QVERIFY(refused.err.contains(u"γραμμή 2"));
        QCOMPARE(runTool({u"sql"_s, office_, query}).out, u"n\n1\n"_s);
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "test_cli.moc"
