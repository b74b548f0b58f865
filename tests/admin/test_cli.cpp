// The tool's commands, run as processes.
#include "copies/upgradecopy.h"
#include "data/opening/password.h"
#include "support/cases.h"
#include "support/files.h"
#include "support/officefolder.h"
#include "support/tool.h"

using namespace support;

class TestCli : public QObject {
    Q_OBJECT

    QTemporaryDir scratch_;
    QString office_ = scratch_.filePath(u"office"_s);

    // What makes an office where this run's databases are.
    QStringList place() {
        if (!testengine::isPostgres()) return {};
        return serverOption(testengine::server(testengine::Schema::newName()));
    }
    static void remove(const QString& folder) {
        dropServerOf(folder);
        QDir(folder).removeRecursively();
    }
    void spoil(const QByteArray& script) { Databases(office_).main.engine().script(script); }

    void restoreOnTheServer(const QString& file) {
        QCOMPARE(runTool({u"sql"_s, office_, u"delete from Cards"_s, u"--write"_s}).code, 0);
        const ToolRun forced = runTool({u"restore"_s, file, office_, u"--force"_s});
        QVERIFY2(forced.code == 0, qPrintable(forced.err));
        QVERIFY(runTool({u"check"_s, office_}).out.contains(u"Cards\t30\n"));
        QFile::remove(file);
        for (const QString& line : forced.out.split(u'\n'))
            if (line.contains(u"σχήμα "))
                data::postgres::dropPgDatabase(testengine::server(line.section(u"σχήμα "_s, 1)));
    }

private slots:
    void initTestCase() {
        const ToolRun made = runTool(
            QStringList{u"demo"_s, office_, u"--cards"_s, u"30"_s, u"--seed=5"_s, u"--date"_s, u"2026-11-23"_s} +
            place());
        QVERIFY2(made.code == 0, qPrintable(made.err));
        QVERIFY(made.out.contains(u"maria\tmaria1\t1"));
        QVERIFY(made.out.contains(u"Admin\tadmin\t1"));
    }

    void cleanupTestCase() { remove(office_); }

    void wrongCallsAreUsageErrors() {
        const struct {
            const char* name;
            QStringList words;
            QString says;
        } cases[] = {
            {"nothing", {}, u"Λείπει η εντολή"_s},
            {"unknown command", {u"destroy"_s}, u"«destroy»"_s},
            {"unknown option", {u"check"_s, u"x"_s, u"--force"_s}, u"«--force»"_s},
            {"missing folder", {u"create"_s}, u"Λείπουν"_s},
            {"one more", {u"check"_s, u"x"_s, u"y"_s}, u"«y»"_s},
            {"no value", {u"demo"_s, u"x"_s, u"--cards"_s}, u"χρειάζεται τιμή"_s},
            {"value for a switch", {u"sql"_s, u"x"_s, u"y"_s, u"--write=1"_s}, u"δεν παίρνει τιμή"_s},
            {"twice", {u"demo"_s, u"x"_s, u"--seed=1"_s, u"--seed=2"_s}, u"δύο φορές"_s},
            {"no number", {u"demo"_s, u"x"_s, u"--cards=many"_s}, u"ακέραιο"_s},
            {"too many", {u"demo"_s, u"x"_s, u"--cards=99999999999"_s}, u"ακέραιο"_s},
            {"no date", {u"demo"_s, u"x"_s, u"--date=31/12/2026"_s}, u"εεεε-μμ-ηη"_s},
            {"no day", {u"agenda"_s, u"x"_s, u"--user=maria"_s, u"--day=morgen"_s}, u"«--day»"_s},
            {"nobody's agenda", {u"agenda"_s, u"x"_s}, u"«--user»"_s},
            {"backup of nothing", {u"backup"_s, u"x"_s}, u"Λείπουν"_s},
            {"unknown kind", {u"load"_s, u"x"_s, u"cards"_s, u"f"_s}, u"«cards»"_s},
            {"no terminal", {u"create"_s, u"x"_s}, u"--admin-password"_s},
            {"help of nothing", {u"help"_s, u"destroy"_s}, u"«destroy»"_s},
        };
        forEach(cases, [](const auto& one) {
            const ToolRun run = runTool(one.words);
            QCOMPARE(run.code, 2);
            QVERIFY2(run.err.contains(one.says), qPrintable(run.err));
            QVERIFY(run.err.contains(u"Χρήση:"));
            QVERIFY(run.out.isEmpty());
        });
    }

    void helpAndVersion() {
        const ToolRun help = runTool({u"help"_s});
        QCOMPARE(help.code, 0);
        for (const QString& command :
             {u"create"_s, u"demo"_s, u"sql"_s, u"agenda"_s, u"check"_s, u"load"_s, u"backup"_s, u"restore"_s}) {
            QVERIFY(help.out.contains(command));
            QVERIFY(runTool({u"help"_s, command}).out.contains(u"dorvalist-admin "_s + command));
        }
        QCOMPARE(runTool({u"load"_s, u"--help"_s}).out, runTool({u"help"_s, u"load"_s}).out);
        QVERIFY(help.out.contains(u"Κωδικοί εξόδου"));
        QVERIFY(runTool({u"--version"_s}).out.startsWith(u"dorvalist-admin 1."));
    }

    void createRefusesWhatExistsAndEmptyPasswords() {
        const ToolRun again = runTool({u"create"_s, office_, u"--admin-password"_s, u"x"_s});
        QCOMPARE(again.code, 1);
        QVERIFY(again.err.contains(u"υπάρχει ήδη", Qt::CaseInsensitive));
        const QString other = scratch_.filePath(u"other"_s);
        QCOMPARE(runTool({u"create"_s, other, u"--admin-password="_s}).code, 1);
        QVERIFY(!QFileInfo::exists(other));
        QCOMPARE(runTool(QStringList{u"create"_s, other, u"--admin-password=x"_s} + place()).code, 0);
        QCOMPARE(runTool({u"check"_s, other}).code, 0);
        remove(other);
    }

    void aPasswordNeedsNoCommandLine() {
        const QString file = scratch_.filePath(u"password"_s), option = u"--admin-password-file"_s;
        write(file, "κρυφός κωδικός\r\nother\n");
        const struct {
            const char* name;
            QStringList words;
            QByteArray input;
            QMap<QString, QString> environment;
            int code;
        } cases[] = {
            {"file", {option, file}, {}, {{u"DORVALIST_ADMIN_PASSWORD"_s, u"x"_s}}, 0},
            {"input", {option, u"-"_s}, "κρυφός κωδικός\n", {}, 0},
            {"environment", {}, {}, {{u"DORVALIST_ADMIN_PASSWORD"_s, u"κρυφός κωδικός"_s}}, 0},
            {"nowhere", {}, {}, {}, 2},
            {"no such file", {option, file + u'x'}, {}, {}, 1},
            {"an empty input", {option, u"-"_s}, {}, {}, 1},
            {"two ways", {option, file, u"--admin-password"_s, u"x"_s}, {}, {}, 2},
        };
        for (const auto& one : cases) {
            const InCase in(one.name);
            const QString other = scratch_.filePath(u"other"_s);
            const ToolRun made =
                runTool(QStringList{u"create"_s, other} + one.words + place(), one.input, one.environment);
            QVERIFY2(made.code == one.code, qPrintable(made.err));
            QCOMPARE(QFileInfo::exists(other), one.code == 0);
            if (one.code != 0) continue;
            {
                data::Connection users;
                copies::openUpgraded(
                    users, schema::connectionString(schema::Database::Users, schema::usersDatabasePath(other)));
                const QString stored = firstText(users, u"select Pass from Admin"_s);
                QVERIFY(data::verifyPassword(stored, u"κρυφός κωδικός"_s));
            }
            remove(other);
        }
    }

    void sqlReadsInPlainCells() {
        QCOMPARE(
            runTool({u"sql"_s, office_,
                     u"update Cards set σχολια='α\tβ\nγ\\', total=1234.5, ΗΜ_ΓΕΝΗΣΗΣ=#1980/02/29#, FieldYes1=1 where "
                     u"code=1"_s,
                     u"--write"_s})
                .out,
            u"Εγγραφές που άλλαξαν: 1\n"_s);
        const ToolRun read =
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

    void agendaOfOneUsersDay() {
        const char* const rows[] = {"maria',#2031-03-30#,#14:00#,null,'Αργά',null,null",
                                    "maria',#2031-03-30#,#09:30#,#10:00#,'Α\tΒ','Σκίννερ','Αθήνα'",
                                    "nikos',#2031-03-30#,#09:00#,#10:00#,'Ξένη',null,null",
                                    "maria',#2031-03-31#,#09:00#,#10:00#,'Αύριο',null,null"};
        for (const char* row : rows)
            QCOMPARE(runTool({u"sql"_s, office_,
                              u"insert into dates ([user],[day],[start],[end],subject,contact,location) values ('"_s +
                                  QString::fromUtf8(row) + u')',
                              u"--write"_s})
                         .code,
                     0);
        const QStringList call{u"agenda"_s, office_, u"--user"_s, u"maria"_s, u"--day"_s};
        QCOMPARE(runTool(call + QStringList(u"2031-03-30"_s)).out,
                 u"Έναρξη\tΤέλος\tΕπαφή\tΘέμα\tΤόπος\n09:30\t10:00\tΣκίννερ\tΑ\\tΒ\tΑθήνα\n14:00\t\t\tΑργά\t\n"_s);
        const ToolRun free = runTool(call + QStringList(u"2031-04-01"_s));
        QCOMPARE(free.code, 0);
        QVERIFY(free.out.count(u'\n') == 1 && free.err.contains(u"Δεν υπάρχουν συναντήσεις"));
    }

    void sqlOnlyReadsUnlessToldOtherwise() {
        const ToolRun refused = runTool({u"sql"_s, office_, u"delete from Cards"_s});
        QCOMPARE(refused.code, 1);
        QVERIFY(refused.err.contains(u"--write"));
        QCOMPARE(runTool({u"sql"_s, office_, u"select count(*) as n from Cards"_s}).out, u"n\n30\n"_s);
        const ToolRun broken = runTool({u"sql"_s, office_, u"select from where"_s});
        QCOMPARE(broken.code, 1);
        QVERIFY2(broken.err.contains(u"Στη θέση 8"), qPrintable(broken.err));
        QVERIFY(broken.out.isEmpty());
    }

    void backupAndRestore() {
        const QString file = scratch_.filePath(u"a.tar"_s), other = scratch_.filePath(u"restored"_s);
        const ToolRun made = runTool({u"backup"_s, office_, file});
        QVERIFY2(made.code == 0, qPrintable(made.err));
        QVERIFY(made.out.contains(file) && made.err.contains(u"dorvalistu.mdb"));
        QCOMPARE(QFileInfo(file).permissions() & 0x77, QFile::Permissions());
        const ToolRun again = runTool({u"backup"_s, office_, file});
        QCOMPARE(again.code, 1);
        QVERIFY(again.err.contains(u"Υπάρχει ήδη"));
        QCOMPARE(runTool({u"backup"_s, office_, file, u"--force"_s}).code, 0);
        QCOMPARE(runTool({u"restore"_s, file, office_}).code, 1);
        if (testengine::isPostgres()) return restoreOnTheServer(file);
        QCOMPARE(runTool({u"restore"_s, file, other}).code, 0);
        QVERIFY(runTool({u"check"_s, other}).out.contains(u"Cards\t30\n"));
        QCOMPARE(runTool({u"sql"_s, other, u"delete from Cards"_s, u"--write"_s}).code, 0);
        const ToolRun forced = runTool({u"restore"_s, file, other, u"--force"_s});
        QVERIFY2(forced.code == 0, qPrintable(forced.err));
        QCOMPARE(forced.out.count(u"dorvalist.mdb.2"), 1);
        QVERIFY(runTool({u"check"_s, other}).out.contains(u"Cards\t30\n"));
        QCOMPARE(runTool({u"restore"_s, scratch_.filePath(u"own.tsv"_s), office_, u"--force"_s}).code, 1);
        QDir(other).removeRecursively();
        QFile::remove(file);
    }

    void loadTakesAWholeFileOrNothing() {
        const QString own = scratch_.filePath(u"own.tsv"_s);
        const QByteArray line = "Παράδειγμα\tΕταιρία\tΧρήση\tΟυσία\n";
        write(own, line);
        const QString query = u"select count(*) as n from Farmaka"_s;
        const QString before = runTool({u"sql"_s, office_, query}).out;
        QCOMPARE(runTool({u"load"_s, office_, u"farmaka"_s, own, u"--replace"_s}).code, 0);
        QCOMPARE(runTool({u"sql"_s, office_, query}).out, u"n\n1\n"_s);
        QVERIFY(before != u"n\n1\n");
        write(own, line + "Λάθος γραμμή\n");
        const ToolRun refused = runTool({u"load"_s, office_, u"farmaka"_s, own, u"--replace"_s});
        QCOMPARE(refused.code, 1);
        QVERIFY(refused.err.contains(u"γραμμή 2"));
        QCOMPARE(runTool({u"sql"_s, office_, query}).out, u"n\n1\n"_s);
    }

    // What nobody notices at work, and what mends it.
    void checkFindsForeignAndMissingTriggers() {
        const struct {
            const char* name;
            QByteArray script;
            QString says;
        } cases[] = {
            {"foreign",
             testengine::isPostgres()
                 ? "CREATE FUNCTION spy() RETURNS trigger LANGUAGE plpgsql AS 'BEGIN RETURN NULL; END'; CREATE TRIGGER "
                   "spy BEFORE INSERT ON \"Cards\" FOR EACH ROW EXECUTE FUNCTION spy()"
                 : "CREATE TRIGGER spy BEFORE INSERT ON Cards BEGIN SELECT RAISE(IGNORE); END",
             u"spy"_s},
            {"missing", "DROP TRIGGER \"_Cards_words_added\"", u"Πίνακας Cards: το ευρετήριο των λέξεων"_s},
            {"another",
             "DROP TRIGGER \"_Cards_words_changed\"; CREATE TRIGGER \"_Cards_words_changed\" AFTER UPDATE "
             "ON Cards BEGIN SELECT 1; END",
             u"Πίνακας Cards: το ευρετήριο των λέξεων"_s},
        };
        const QString insert = u"insert into Cards (ΕΠΩΝΥΜΟ,ΚΕΙΜΕΝΟ1) values ('%1','κρυφή λέξη')"_s;
        const QString search = u"select ΕΠΩΝΥΜΟ from Cards where ΚΕΙΜΕΝΟ1 like '%κρυφή%' and ΕΠΩΝΥΜΟ='%1'"_s;
        for (const auto& one : cases) {
            if (testengine::isPostgres() && one.says != u"spy") continue;
            const InCase in(one.name);
            const QString name = QString::fromUtf8(one.name);
            spoil(one.script);
            const ToolRun found = runTool({u"check"_s, office_});
            QVERIFY2(found.code == 1 && found.err.contains(one.says), qPrintable(found.err));
            if (one.says != u"spy") runTool({u"sql"_s, office_, insert.arg(name), u"--write"_s});
            const ToolRun mended = runTool({u"check"_s, office_, u"--repair"_s});
            QVERIFY2(mended.code == 0, qPrintable(mended.err));
            QVERIFY(mended.out.contains(u"γράφτηκε το αντίγραφο"));
            if (one.says == u"spy") runTool({u"sql"_s, office_, insert.arg(name), u"--write"_s});
            QVERIFY(runTool({u"sql"_s, office_, search.arg(name)}).out.contains(name));
            runTool({u"sql"_s, office_, u"delete from Cards where ΕΠΩΝΥΜΟ='%1'"_s.arg(name), u"--write"_s});
        }
    }

#ifdef Q_OS_UNIX
    void checkTellsWhatOthersCanRead() {
        const QString main = schema::mainDatabasePath(office_);
        const QFile::Permissions before = QFile::permissions(scratch_.path());
        QFile::setPermissions(scratch_.path(), QFile::Permissions(0x7755));
        QFile::setPermissions(main, QFile::Permissions(0x6644));
        data::ServerDescription server;
        server.database = server.password = u"x"_s;
        const QString kept = main + u".20260101-101010"_s;
        data::writeServerDescription(kept, server);
        QFile::setPermissions(kept, QFile::Permissions(0x6644));
        const ToolRun told = runTool({u"check"_s, office_});
        QCOMPARE(told.code, 1);
        QVERIFY(told.err.contains(u"Το «dorvalist.mdb» το διαβάζουν όλοι"));
        QVERIFY(told.err.contains(u"Το «dorvalist.mdb.20260101-101010» έχει μέσα κωδικό"));
        QCOMPARE(runTool({u"check"_s, office_, u"--repair"_s}).code, 0);
        QCOMPARE(QFile::permissions(main) & 0xF, QFile::Permissions());
        QFile::remove(kept);
        QFile::setPermissions(scratch_.path(), before);
    }
#endif

    // At the end, since the office stays damaged.
    void checkFindsDamage() {
        QCOMPARE(runTool({u"check"_s, scratch_.filePath(u"nowhere"_s)}).code, 1);
        const ToolRun well = runTool({u"check"_s, office_});
        QVERIFY2(well.code == 0, qPrintable(well.err));
        QVERIFY(well.out.contains(u"Cards\t30\n") && well.out.contains(u"Users\t3\n"));
        // An index that disagrees with its table, as after a write that reached the disk by half.
        spoil("DROP INDEX \"Calls_day\"; CREATE INDEX \"Calls_day\" ON \"Calls\" (\"ΗΜΕΡΟΜΗΝΙΑ\") WHERE 1=0;");
        const ToolRun lying = runTool({u"check"_s, office_});
        QVERIFY2(lying.code == 1 && lying.err.contains(u"Calls_day"), qPrintable(lying.err));
        spoil("DROP INDEX \"History_card\"");
        const ToolRun missing = runTool({u"check"_s, office_});
        QVERIFY2(missing.code == 1 && missing.err.contains(u"λείπει το ευρετήριο History_card"),
                 qPrintable(missing.err));
        const ToolRun mended = runTool({u"check"_s, office_, u"--repair"_s});
        QVERIFY2(mended.code == 0, qPrintable(mended.err));
        QVERIFY(mended.out.contains(u"Calls_day") && mended.out.contains(u"History_card"));
        QCOMPARE(runTool({u"check"_s, office_}).code, 0);
        if (testengine::isPostgres()) return;  // no file to be damaged
        overwrite(schema::usersDatabasePath(office_), QByteArray(4096, '\x5A'), 4096);
        const ToolRun damaged = runTool({u"check"_s, office_});
        QCOMPARE(damaged.code, 1);
        QVERIFY(damaged.out.contains(u"Cards\t30\n") && !damaged.out.contains(u"Users\t3\n"));
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "test_cli.moc"
