#include "main/entry.h"
#include "schema/creation.h"

#include <QSignalSpy>

#include "copies/backup.h"
#include "copies/upgradecopy.h"
#include "core/backupfolder.h"
#include "data/recordset.h"
#include "main/program.h"
#include "platform/folders.h"
#include "schema/office.h"
#include "support/cases.h"
#include "support/driver.h"
#include "support/services.h"

using namespace Qt::Literals::StringLiterals;

using entry::Outcome;

namespace {

const QString noBase = u"Πρόβλημα στο main αρχείο της εφαρμογής (Dorvalist.mdb)"_s;

QByteArray contents(const QString& file) {
    QFile f(file);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

void write(const QString& file, const QByteArray& bytes) {
    QFile f(file);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size()) qFatal("scratch file");
}

const QByteArray noise(70000, '\x5A');

platform::FileSystemKind onNetwork(const QString&) {
    return platform::FileSystemKind::Network;
}

// Whether a text is the pieces of a pattern in their order, with anything in place of each '*'.
bool fits(const QString& text, const QString& pattern) {
    QStringList pieces = pattern.split('*');
    for (QString& piece : pieces) piece = QRegularExpression::escape(piece);
    const auto any = QRegularExpression::DotMatchesEverythingOption;
    return QRegularExpression(QRegularExpression::anchoredPattern(pieces.join(".*")), any).match(text).hasMatch();
}

struct Site {
    Site() { schema::createOffice(office, {u"admin"_s, {}}); }
    QString main() const { return schema::mainDatabasePath(office); }
    QString users() const { return schema::usersDatabasePath(office); }
    Outcome run() { return entry::run(mod); }
    void stored(const QString& path) { desk.settings.setValue("Startup", "Path", path); }
    QString stored() const { return desk.settings.value("STARTUP", "path", "none"); }
    // What was told and asked, a dialog by its title.
    QStringList told() const {
        QStringList all;
        for (const auto& shown : desk.prompts.shown()) all << (shown.text.isEmpty() ? shown.title : shown.text);
        return all;
    }

    QTemporaryDir directory;
    QString office = directory.filePath("γραφείο α");
    support::Desk desk;
    core::MainMod mod{desk.services};
};

// An office that was in use before, with a folder for its copies.
struct KnownSite : Site {
    KnownSite() {
        stored(office);
        QDir().mkpath(copies);
        core::setBackupFolder(desk.settings, copies);
    }
    QString copies = directory.filePath("αντίγραφα");
};

void logOn(entry::Program& program, const QString& password) {
    const support::Driver logon(*program.logon());
    logon.type("Text1", "Admin");
    logon.type("Text2", password);
    logon.click("Command1");
}

void execute(const QString& file, const QString& sql) {
    data::Connection connection;
    copies::openUpgraded(connection, schema::connectionString(schema::Database::Main, file));
    connection.execute(sql);
}

// Waits for the dialog behind whatever is done before it opens.
void inRestoreDialog(const std::function<void(const support::Driver&)>& act) {
    auto* look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, look, [look, act] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog || dialog->objectName() != "frmRestore") return;
        look->stop();
        look->deleteLater();
        act(support::Driver(*dialog));
    });
    look->start(10);
}

}  // namespace

class TestEntry : public QObject {
    Q_OBJECT
private slots:
    void theFolderIsFoundOrAskedFor() {
        const QString ask = "Επιλογή Υποκαταλόγου dorvalist.mdb ...", here = "γραφείο α", empty = "άδειος φάκελος",
                      noFile = noBase + QString::number(data::adoErrorNumber(data::ErrorCategory::Connection)) + " *",
                      noFiles = "Δεν υπάρχουν στο [ *ΑΔΕΙΟΣ ΦΑΚΕΛΟΣ ]\nτα αρχεία του προγράμματος",
                      noUsers =
                          "Δεν υπάρχουν στο [ *ΓΡΑΦΕΙΟ Α ]\n όλα τα αρχεία του προγράμματος! (Λείπει το "
                          "Dorvalistu.mdb!!!)";
        struct Case {
            const char* name;
            bool known;           // from an earlier run
            QString missing;      // a file of the office
            QStringList answers;  // folders, beside the office
            Outcome outcome;
            QStringList told;
        };
        const Case cases[] = {
            {"a normal run", true, "", {}, Outcome::Logon, {}},
            {"a first run", false, "", {here}, Outcome::Logon, {ask}},
            {"cancelled", false, "", {""}, Outcome::End, {ask}},
            {"no folder", false, "", {"πουθενά", ""}, Outcome::End, {ask, "Δεν υπάρχει το directory */πουθενά", ask}},
            {"without the files", false, "", {empty, here}, Outcome::Logon, {ask, noFile, noFiles, ask}},
            {"without the users' file", true, "dorvalistu.mdb", {}, Outcome::End, {noFile, noUsers}},
            {"without the main file", true, "dorvalist.mdb", {""}, Outcome::End, {ask}}};
        for (const Case& c : cases) {
            const support::InCase in(c.name);
            Site site;
            QDir(site.directory.path()).mkdir(empty);
            if (c.known) site.stored(site.office);
            if (!c.missing.isEmpty()) QVERIFY(QDir(site.office).remove(c.missing));
            for (const QString& folder : c.answers)
                site.desk.prompts.answerFolder(folder.isEmpty() ? folder : site.directory.filePath(folder));
            QCOMPARE(site.run(), c.outcome);
            const QStringList told = site.told();
            QCOMPARE(told.size(), c.told.size());
            for (int i = 0; i < told.size(); ++i) QVERIFY2(fits(told[i], c.told[i]), qPrintable(told[i]));
            const bool started = c.outcome == Outcome::Logon;
            QCOMPARE(site.stored(), c.known || started ? site.office : "none");
            QCOMPARE(site.mod.gConn.isOpen() && site.mod.gConnUsers.isOpen(), started);
            QVERIFY(QDir(site.directory.filePath(empty)).isEmpty());
        }
    }

    void aFileThatIsNoDatabaseIsToldAndNotTouched() {
        QByteArray uneven(70000, '\0');
        for (qsizetype i = 0; i < uneven.size(); ++i) uneven[i] = char((i * 7919) >> 3);
        struct Case {
            const char* name;
            QByteArray bytes;
            QString says;
        };
        const Case cases[] = {
            {"empty", "", "*"},
            {"noise", uneven, "*"},
            {"short noise", "x", "*"},
            {"Jet", QByteArray("\0\1\0\0Standard Jet DB\0\1\0\0\0", 24) + QByteArray(4096, '\1'), "*Access*"},
            {"a foreign SQLite file's header",
             QByteArray("SQLite format 3\0\x10\0\1\1\0\x40\x20\x20", 24) + QByteArray(4072, '\0'), "*"},
        };
        for (const Case& c : cases) {
            const support::InCase in(c.name);
            Site site;
            site.stored(site.office);
            write(site.main(), c.bytes);
            const auto before = QDir(site.office).entryList();
            QCOMPARE(site.run(), Outcome::Logon);
            QCOMPARE(site.desk.prompts.count(), 1);
            QVERIFY2(fits(site.told()[0], noBase + c.says), qPrintable(site.told()[0]));
            QVERIFY(!site.told()[0].contains('\n'));
            QVERIFY(!site.mod.gConn.isOpen() && site.mod.gConnUsers.isOpen());
            QVERIFY(contents(site.main()) == c.bytes);
            site.mod.gConnUsers.close();
            QCOMPARE(QDir(site.office).entryList(), before);
        }
    }

    void aDamagedDatabaseIsRestoredFromTheNewestGoodCopy() {
        for (const auto& [main, yes] : {std::pair(true, true), {true, false}, {false, true}}) {
            const support::InCase in(QString("%1, %2").arg(main ? "main" : "users", yes ? "yes" : "no"));
            KnownSite site;
            const QDateTime made = site.desk.clock.now().addDays(-2);
            const QString copy = core::backupName(site.office, made, core::BackupKind::Daily);
            copies::backupOffice(site.office, site.copies + '/' + copy, {.now = made});
            const QString damaged = main ? site.main() : site.users(), whole = main ? site.users() : site.main();
            const QByteArray before = contents(whole);
            write(damaged, noise);

            site.desk.prompts.answer(yes);
            QCOMPARE(site.run(), Outcome::Logon);
            QCOMPARE(site.desk.prompts.count(), yes ? 3 : 2);
            QVERIFY(site.told()[0].startsWith(noBase));
            if (yes)
                QVERIFY2(fits(site.told()[2], "Επαναφέρθηκε*03/11/2026 10:30*" + QFileInfo(damaged).fileName() +
                                                  ".\n*" + damaged + ".20261105-103000"),
                         qPrintable(site.told()[2]));
            QVERIFY2(site.told()[1].contains("03/11/2026 10:30"), qPrintable(site.told()[1]));
            QCOMPARE(site.mod.gConn.isOpen() && site.mod.gConnUsers.isOpen(), yes);
            QVERIFY(contents(yes ? damaged + ".20261105-103000" : damaged) == noise);
            site.mod.gConn.close();
            site.mod.gConnUsers.close();
            QVERIFY(contents(whole) == before);
        }
    }

    void aMissingFileComesFromTheNewestGoodCopy() {
        for (const bool main : {true, false}) {
            const support::InCase in(main ? "main" : "users");
            KnownSite site;
            const QDateTime made = site.desk.clock.now().addDays(-2);
            copies::backupOffice(site.office,
                                 site.copies + '/' + core::backupName(site.office, made, core::BackupKind::Daily),
                                 {.now = made});
            QVERIFY(QFile::remove(main ? site.main() : site.users()));
            site.desk.prompts.answer(true);
            QCOMPARE(site.run(), Outcome::Logon);
            const QStringList told = site.told();
            QVERIFY2(told.size() > 1 && told[told.size() - 2].contains("03/11/2026 10:30"), qPrintable(told.join('|')));
            QVERIFY(told.last().startsWith("Επαναφέρθηκε"));
            QVERIFY(site.mod.gConn.isOpen() && site.mod.gConnUsers.isOpen());
        }
    }

    void aRefusedFolderIsNotRemembered() {
        struct Case {
            const char* name;
            QByteArray bytes;
            bool readOnly;
        };
        const Case cases[] = {
            {"Jet", QByteArray("\0\1\0\0Standard Jet DB\0\1\0\0\0", 24) + QByteArray(4096, '\1'), false},
            {"noise", noise, false},
            {"no rights", {}, true},
        };
        for (const Case& c : cases) {
            const support::InCase in(c.name);
            Site site;
            if (!c.bytes.isEmpty()) write(site.main(), c.bytes);
            if (c.readOnly) QFile::setPermissions(site.main(), QFile::ReadOwner);
            if (c.readOnly && QFileInfo(site.main()).isWritable()) continue;  // nothing is refused to this user
            site.desk.prompts.answerFolder(site.office);
            QCOMPARE(site.run(), Outcome::Logon);
            QVERIFY(site.told().last().startsWith(noBase));
            QCOMPARE(site.stored(), "none");
        }
    }

    // A copy that is no better than what is there isn't offered; and a disk with the copies that is away isn't the same
    // as having none.
    void withoutAGoodCopyNothingIsOffered() {
        for (const bool away : {false, true}) {
            KnownSite site;
            if (away)
                QVERIFY(QDir(site.copies).removeRecursively());
            else
                write(site.copies + '/' + core::backupName(site.office, site.desk.clock.now(), core::BackupKind::Daily),
                      "x");
            write(site.main(), noise);
            QCOMPARE(site.run(), Outcome::Logon);
            QCOMPARE(site.desk.prompts.count(), away ? 2 : 1);
            QVERIFY(site.told()[0].startsWith(noBase));
            QCOMPARE(site.told().last().contains("αντίγραφα ασφαλείας στον φάκελο «" + site.copies), away);
        }
    }

    // Whoever holds the seat may be at work: nobody opens, or restores, over him. A damaged office is for one seat,
    // too.
    void aSecondSeatOnTheNetworkIsRefused() {
        for (const bool damaged : {false, true}) {
            KnownSite site;
            if (damaged) write(site.main(), noise);
            support::Desk secondDesk;
            secondDesk.settings.setValue("Startup", "Path", site.office);
            core::MainMod second{secondDesk.services};
            second.fileSystemKind = onNetwork;
            {
                core::MainMod first{site.desk.services};
                first.fileSystemKind = onNetwork;
                QCOMPARE(entry::run(first), Outcome::Logon);
                QVERIFY(first.gSeat.isHeld());
                QCOMPARE(first.gConn.isOpen(), !damaged);
                QCOMPARE(entry::run(second), Outcome::Logon);
                QVERIFY(!second.gConn.isOpen() && !second.gConnUsers.isOpen());
                QCOMPARE(secondDesk.prompts.count(), 1);
                QVERIFY(secondDesk.prompts.lastText().contains("διακομιστή"));

                entry::Program program(first);
                emit first.gSeat.lost();
                QVERIFY(!first.gConn.isOpen() && !first.gConnUsers.isOpen());
                QVERIFY(site.desk.prompts.lastText().contains("Τα αρχεία έκλεισαν"));
            }
            // A seat whose program has ended is free.
            QCOMPARE(entry::run(second), Outcome::Logon);
            QVERIFY(second.gSeat.isHeld() && second.gConnUsers.isOpen());
        }
    }

    void aRefusedSeatIsTriedAgainFromTheLogon() {
        KnownSite site;
        site.desk.settings.setValue("Settings", "Name", "Γραφείο");
        site.mod.fileSystemKind = onNetwork;
        support::Desk otherDesk;
        otherDesk.settings.setValue("Startup", "Path", site.office);
        auto other = std::make_unique<core::MainMod>(otherDesk.services);
        other->fileSystemKind = onNetwork;
        QCOMPARE(entry::run(*other), Outcome::Logon);
        entry::Program program(site.mod);
        QVERIFY(program.start());
        const support::Driver logon(*program.logon());
        for (int tries = 1; tries <= 2; ++tries) {
            QVERIFY(logon.isVisible("cmdRetry"));
            QCOMPARE(site.desk.prompts.count(), tries);
            if (tries == 2) other.reset();
            logon.click("cmdRetry");
        }
        QVERIFY(!logon.isVisible("cmdRetry"));
        QCOMPARE(site.desk.prompts.count(), 2);
        logOn(program, "admin");
        QVERIFY(program.mainWindow());
    }

    void settingsThatAreNotWrittenAreTold() {
        KnownSite site;
        entry::Program program(site.mod);
        site.desk.settings.refused("/αλλού/dorvalist.ini");
        QTRY_COMPARE(site.desk.prompts.count(), 1);
        QVERIFY(site.desk.prompts.lastText().contains("/αλλού/dorvalist.ini"));
    }

    void exchangedFilesAreRefused() {
        Site site;
        site.stored(site.office);
        QFile::rename(site.main(), site.main() + "x");
        QFile::rename(site.users(), site.main());
        QFile::rename(site.main() + "x", site.users());
        QCOMPARE(site.run(), Outcome::Logon);
        QVERIFY(site.told()[0].startsWith(noBase));
        QVERIFY(!site.mod.gConn.isOpen() && !site.mod.gConnUsers.isOpen());
    }

    void aNewerVersionIsRefusedUntouched() {
        Site site;
        site.stored(site.office);
        QByteArray bytes = contents(site.main());
        bytes[63] = char(schema::currentVersion + 1);  // SQLite's user_version, big-endian at 60
        write(site.main(), bytes);
        QCOMPARE(site.run(), Outcome::Logon);
        QVERIFY2(site.told()[0].contains(QString::number(schema::currentVersion + 1)), qPrintable(site.told()[0]));
        QVERIFY(contents(site.main()) == bytes);
    }

    // By hand from the menu, and when the day's copy, the first to read every page, meets damage.
    void aCopyIsChosenAndRestored() {
        for (const bool damaged : {false, true}) {
            const support::InCase in(damaged ? "damaged" : "by hand");
            KnownSite site;
            site.desk.settings.setValue("Settings", "Name", "Γραφείο");
            const auto copyFile = [&](int daysAgo) {
                const QDateTime made = site.desk.clock.now().addDays(-daysAgo);
                return site.copies + '/' + core::backupName(site.office, made, core::BackupKind::Daily);
            };
            execute(site.main(), "insert into Cards (ΕΠΩΝΥΜΟ) values ('παλιά')");
            copies::backupOffice(site.office, copyFile(2), {.now = site.desk.clock.now().addDays(-2)});
            write(copyFile(1), "x");
            execute(site.main(), "insert into Cards (ΕΠΩΝΥΜΟ) values ('νέα')");
            const qint64 middle = QFileInfo(site.main()).size() / 4096 / 2 * 4096;
            if (damaged) write(site.main(), contents(site.main()).replace(middle, 8 * 4096, QByteArray(8 * 4096, 'Z')));

            entry::Program program(site.mod);
            QSignalSpy copied(&program.backup(), &core::DailyBackup::finished);
            QVERIFY(program.start());
            QVERIFY(site.told().isEmpty());
            logOn(program, "admin");
            if (damaged) site.desk.prompts.answer(true);
            site.desk.prompts.answer(true);
            QStringList rows;
            inRestoreDialog([&](const support::Driver& dialog) {
                rows = dialog.rows();
                dialog.list()->selectRow(0);
                if (!damaged) QVERIFY(dialog.isEnabled("Command1"));
                dialog.list()->selectRow(int(rows.size()) - 2);
                QVERIFY(!dialog.isEnabled("Command1"));
                dialog.list()->selectRow(int(rows.size()) - 1);
                dialog.click("Command1");
            });
            QVERIFY(copied.wait(60000));
            if (!damaged) program.mainWindow()->menu("mnuRestore")->trigger();
            QVERIFY(QTest::qWaitFor([&] { return !program.mainWindow(); }, 30000));
            QCOMPARE(rows.size(), damaged ? 2 : 3);
            QVERIFY2(fits(rows[damaged ? 0 : 1], "04/11/2026 10:30||1|Δεν είναι ακέραιο."),
                     qPrintable(rows.join('\n')));
            QVERIFY2(fits(rows.last(), "03/11/2026 10:30|1|*|Καλό"), qPrintable(rows.join('\n')));
            const QStringList told = site.told();
            if (damaged) QVERIFY2(!told.filter("έχει βλάβη").isEmpty(), qPrintable(told.join('\n')));
            QVERIFY2(fits(told.last(), damaged ? "Επαναφέρθηκε*03/11/2026*.20261105-103000*" : "Επαναφέρθηκε*"),
                     qPrintable(told.join('\n')));
            QVERIFY(program.logon()->isVisible());
            data::Recordset cards(site.mod.gConn, "select ΕΠΩΝΥΜΟ from Cards order by code");
            QCOMPARE(cards.recordCount(), 1);
            QCOMPARE(cards.field(0).text(), "παλιά");
        }
    }

    void fromStartToMainWindowAndBack() {
        KnownSite site;
        site.desk.settings.setValue("Settings", "Name", "Γραφείο");
        entry::Program program(site.mod);
        QVERIFY(program.start());
        logOn(program, "wrong");
        QVERIFY(!program.mainWindow());
        logOn(program, "admin");
        QVERIFY(program.mainWindow()->isVisible());
        program.mainWindow()->menu("mnuCards")->trigger();
        QVERIFY(site.mod.gAddressOpen);

        // The day's copy comes by itself, once the window is up.
        QSignalSpy copied(&program.backup(), &core::DailyBackup::finished);
        QVERIFY(copied.wait(60000));
        QCOMPARE(core::backupsOf(site.copies, site.office).size(), 1);
        program.mainWindow()->menu("mnuBackupNow")->trigger();
        QVERIFY(copied.wait(60000));
        QCOMPARE(core::backupsOf(site.copies, site.office).size(), 2);
        QVERIFY(site.desk.prompts.lastText().contains("γράφτηκε"));
        site.desk.prompts.clear();

        // Log-off asks nothing, and the name stays until somebody else is in.
        program.mainWindow()->menu("mnuLogOff")->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(site.desk.prompts.isEmpty());
        QVERIFY(!program.mainWindow() && program.logon()->isVisible());
        QVERIFY(!site.mod.gAddressOpen);
        QCOMPARE(site.mod.gUserName, "Admin");

        QSignalSpy finished(&program, &entry::Program::finished);
        support::Driver(*program.logon()).click("Command2");
        QCOMPARE(finished.count(), 1);
    }
};

QTEST_MAIN(TestEntry)
#include "test_entry.moc"
