#include "main/entry.h"

#include <QSignalSpy>

#include "copies/backup.h"
#include "core/backupfolder.h"
#include "main/program.h"
#include "platform/folders.h"
#include "schema/creation.h"
#include "schema/office.h"
#include "support/office.h"

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

struct Site {
    Site() { schema::createOffice(office, {u"admin"_s, {}}); }
    QString main() const { return schema::mainDatabasePath(office); }
    QString users() const { return schema::usersDatabasePath(office); }
    Outcome run() { return entry::run(mod); }
    void stored(const QString& path) { desk.settings.setValue("Startup", "Path", path); }
    QString stored() const { return desk.settings.value("STARTUP", "path", "none"); }

    QTemporaryDir directory;
    QString office = directory.filePath("γραφείο α");
    support::Desk desk;
    core::MainMod mod{desk.services};
};

}  // namespace

class TestEntry : public QObject {
    Q_OBJECT
private slots:
    void aNormalRunSaysNothing() {
        Site site;
        site.stored(site.office);
        QCOMPARE(site.run(), Outcome::Logon);
        QVERIFY(site.desk.prompts.isEmpty());
        QVERIFY(site.mod.gConn.isOpen() && site.mod.gConnUsers.isOpen());
    }

    void aFirstRunAsksAndRemembers() {
        Site site;
        site.desk.prompts.answerFolder(site.office);
        QCOMPARE(site.run(), Outcome::Logon);
        QCOMPARE(site.desk.prompts.count(), 1);
        QCOMPARE(site.desk.prompts.lastTitle(), QString("Επιλογή Υποκαταλόγου dorvalist.mdb ..."));
        QCOMPARE(site.stored(), site.office);
    }

    void aCancelledFolderEndsWithoutAWord() {
        Site site;
        site.desk.prompts.answerFolder("");
        QCOMPARE(site.run(), Outcome::End);
        QCOMPARE(site.desk.prompts.count(), 1);
        QCOMPARE(site.stored(), QString("none"));
    }

    void aFolderThatIsNone() {
        Site site;
        const QString nowhere = site.directory.filePath("πουθενά");
        site.desk.prompts.answerFolder(nowhere);
        site.desk.prompts.answerFolder("");
        QCOMPARE(site.run(), Outcome::End);
        QVERIFY(site.desk.prompts.wasShown("Δεν υπάρχει το directory " + nowhere));
        QCOMPARE(site.stored(), QString("none"));
    }

    void aFolderWithoutTheFilesGivesTwoMessagesAndAsksAgain() {
        Site site;
        const QString empty = site.directory.filePath("άδειος φάκελος");
        QDir().mkpath(empty);
        site.desk.prompts.answerFolder(empty);
        site.desk.prompts.answerFolder(site.office);
        QCOMPARE(site.run(), Outcome::Logon);
        const auto& shown = site.desk.prompts.shown();
        QCOMPARE(shown.size(), 4);
        QVERIFY2(shown[1].text.startsWith(noBase +
                                          QString::number(data::adoErrorNumber(data::ErrorCategory::Connection)) + " "),
                 qPrintable(shown[1].text));
        QVERIFY(!shown[1].text.contains('\n'));
        QVERIFY(shown[2].text.startsWith("Δεν υπάρχουν στο [ ") &&
                shown[2].text.endsWith("ΑΔΕΙΟΣ ΦΑΚΕΛΟΣ ]\nτα αρχεία του προγράμματος"));
        QCOMPARE(site.stored(), site.office);
        QVERIFY(QDir(empty).isEmpty());
    }

    void theUsersFileIsMissing() {
        Site site;
        site.stored(site.office);
        QFile::remove(site.users());
        QCOMPARE(site.run(), Outcome::End);
        QVERIFY(
            site.desk.prompts.lastText().endsWith(" όλα τα αρχεία του προγράμματος! (Λείπει το Dorvalistu.mdb!!!)"));
        QCOMPARE(site.stored(), site.office);
    }

    void theMainFileMovedAway() {
        Site site;
        site.stored(site.office);
        QFile::remove(site.main());
        site.desk.prompts.answerFolder("");
        QCOMPARE(site.run(), Outcome::End);
        QCOMPARE(site.desk.prompts.count(), 1);
    }

    void aFileThatIsNoDatabaseIsToldAndNotTouched_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("says");
        QByteArray noise(70000, '\0');
        for (qsizetype i = 0; i < noise.size(); ++i) noise[i] = char((i * 7919) >> 3);
        QTest::newRow("empty") << QByteArray() << "";
        QTest::newRow("noise") << noise << "";
        QTest::newRow("short noise") << QByteArray("x") << "";
        QTest::newRow("Jet") << QByteArray::fromRawData("\0\1\0\0Standard Jet DB\0\1\0\0\0", 24) +
                                    QByteArray(4096, '\1')
                             << "Access";
        QTest::newRow("a foreign SQLite file's header")
            << QByteArray("SQLite format 3\0\x10\0\1\1\0\x40\x20\x20", 24) + QByteArray(4072, '\0') << "";
    }
    void aFileThatIsNoDatabaseIsToldAndNotTouched() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, says);
        Site site;
        site.stored(site.office);
        write(site.main(), bytes);
        const auto before = QDir(site.office).entryList();
        QCOMPARE(site.run(), Outcome::Logon);
        QCOMPARE(site.desk.prompts.count(), 1);
        QVERIFY2(site.desk.prompts.lastText().startsWith(noBase), qPrintable(site.desk.prompts.lastText()));
        QVERIFY2(site.desk.prompts.lastText().contains(says), qPrintable(site.desk.prompts.lastText()));
        QVERIFY(!site.mod.gConn.isOpen() && site.mod.gConnUsers.isOpen());
        QVERIFY(contents(site.main()) == bytes);
        site.mod.gConnUsers.close();
        QCOMPARE(QDir(site.office).entryList(), before);
    }

    void aDamagedDatabaseIsRestoredFromTheNewestGoodCopy_data() {
        QTest::addColumn<bool>("main");
        QTest::addColumn<bool>("yes");
        QTest::newRow("main, yes") << true << true;
        QTest::newRow("main, no") << true << false;
        QTest::newRow("users, yes") << false << true;
    }
    void aDamagedDatabaseIsRestoredFromTheNewestGoodCopy() {
        QFETCH(bool, main);
        QFETCH(bool, yes);
        Site site;
        site.stored(site.office);
        const QString folder = site.directory.filePath("αντίγραφα");
        QDir().mkpath(folder);
        core::setBackupFolder(site.desk.settings, folder);
        const QDateTime made = site.desk.clock.now().addDays(-2);
        copies::backupOffice(site.office, folder + '/' + core::backupName(site.office, made, core::BackupKind::Daily),
                             {.now = made});
        const QString damaged = main ? site.main() : site.users(), whole = main ? site.users() : site.main();
        const QByteArray noise(70000, '\x5A'), before = contents(whole);
        write(damaged, noise);

        site.desk.prompts.answer(yes);
        QCOMPARE(site.run(), Outcome::Logon);
        QCOMPARE(site.desk.prompts.count(), 2);
        QVERIFY(site.desk.prompts.shown()[0].text.startsWith(noBase));
        QVERIFY2(site.desk.prompts.lastText().contains("03/11/2026 10:30"), qPrintable(site.desk.prompts.lastText()));
        QCOMPARE(site.mod.gConn.isOpen() && site.mod.gConnUsers.isOpen(), yes);
        QVERIFY(contents(yes ? damaged + ".20261105-103000" : damaged) == noise);
        site.mod.gConn.close();
        site.mod.gConnUsers.close();
        QVERIFY(contents(whole) == before);
    }

    // A copy that is no better than what is there isn't offered.
    void aBadCopyIsNotOffered() {
        Site site;
        site.stored(site.office);
        core::setBackupFolder(site.desk.settings, site.directory.path());
        write(site.directory.filePath(core::backupName(site.office, site.desk.clock.now(), core::BackupKind::Daily)),
              "x");
        write(site.main(), QByteArray(70000, '\x5A'));
        QCOMPARE(site.run(), Outcome::Logon);
        QCOMPARE(site.desk.prompts.count(), 1);
    }

    // The disk with the copies is away: that isn't the same as having none.
    void copiesThatAreAwayAreToldOf() {
        Site site;
        site.stored(site.office);
        core::setBackupFolder(site.desk.settings, site.directory.filePath("δίσκος"));
        write(site.main(), QByteArray(70000, '\x5A'));
        QCOMPARE(site.run(), Outcome::Logon);
        QCOMPARE(site.desk.prompts.count(), 2);
        QVERIFY(site.desk.prompts.lastText().contains("δίσκος"));
    }

    void aSecondSeatOnTheNetworkIsRefused() {
        Site site;
        site.stored(site.office);
        const auto network = [](const QString&) { return platform::FileSystemKind::Network; };
        site.mod.fileSystemKind = network;
        QCOMPARE(site.run(), Outcome::Logon);
        QVERIFY(site.mod.gSeat.isHeld() && site.mod.gConn.isOpen());
        core::MainMod second{site.desk.services};
        second.fileSystemKind = network;
        QCOMPARE(entry::run(second), Outcome::Logon);
        QVERIFY(!second.gConn.isOpen() && !second.gConnUsers.isOpen());
        QCOMPARE(site.desk.prompts.count(), 1);
        QVERIFY2(site.desk.prompts.lastText().contains("διακομιστή"), qPrintable(site.desk.prompts.lastText()));

        entry::Program program(site.mod);
        emit site.mod.gSeat.lost();
        QVERIFY(!site.mod.gConn.isOpen() && !site.mod.gConnUsers.isOpen());
    }

    // Whoever holds the seat may be at work: nobody restores over him.
    void aDamagedOfficeIsForOneSeatToo() {
        Site site;
        site.stored(site.office);
        core::setBackupFolder(site.desk.settings, site.directory.path());
        write(site.main(), QByteArray(70000, '\x5A'));
        const auto network = [](const QString&) { return platform::FileSystemKind::Network; };
        site.mod.fileSystemKind = network;
        QCOMPARE(site.run(), Outcome::Logon);
        QVERIFY(site.mod.gSeat.isHeld());
        site.desk.prompts.clear();
        core::MainMod second{site.desk.services};
        second.fileSystemKind = network;
        QCOMPARE(entry::run(second), Outcome::Logon);
        QVERIFY(!second.gConnUsers.isOpen());
        QCOMPARE(site.desk.prompts.count(), 1);
        QVERIFY(site.desk.prompts.lastText().contains("διακομιστή"));
    }

    void exchangedFilesAndNewerVersionsAreRefused() {
        Site site;
        site.stored(site.office);
        QFile::rename(site.main(), site.main() + "x");
        QFile::rename(site.users(), site.main());
        QFile::rename(site.main() + "x", site.users());
        QCOMPARE(site.run(), Outcome::Logon);
        QVERIFY(site.desk.prompts.lastText().startsWith(noBase));
        QVERIFY(!site.mod.gConn.isOpen() && !site.mod.gConnUsers.isOpen());
    }

    void aNewerVersionIsRefusedUntouched() {
        Site site;
        site.stored(site.office);
        QByteArray bytes = contents(site.main());
        bytes[63] = char(schema::currentVersion + 1);  // SQLite's user_version, big-endian at 60
        write(site.main(), bytes);
        QCOMPARE(site.run(), Outcome::Logon);
        QVERIFY2(site.desk.prompts.lastText().contains(QString::number(schema::currentVersion + 1)),
                 qPrintable(site.desk.prompts.lastText()));
        QVERIFY(contents(site.main()) == bytes);
    }

    void fromStartToMainWindowAndBack() {
        Site site;
        site.stored(site.office);
        site.desk.settings.setValue("Settings", "Name", "Γραφείο");
        const QString copies = site.directory.filePath("αντίγραφα");
        QDir().mkpath(copies);
        core::setBackupFolder(site.desk.settings, copies);
        entry::Program program(site.mod);
        QVERIFY(program.start());
        auto type = [&](const QString& user, const QString& password) {
            program.logon()->findChild<controls::TextBox*>("Text1")->setText(user);
            program.logon()->findChild<controls::TextBox*>("Text2")->setText(password);
            program.logon()->findChild<QPushButton*>("Command1")->click();
        };
        type("Admin", "wrong");
        QVERIFY(!program.mainWindow());
        type("Admin", "admin");
        QVERIFY(program.mainWindow()->isVisible());
        program.mainWindow()->menu("mnuCards")->trigger();
        QVERIFY(site.mod.gAddressOpen);

        // The day's copy comes by itself, once the window is up.
        QSignalSpy copied(&program.backup(), &core::DailyBackup::finished);
        QVERIFY(copied.wait(60000));
        QCOMPARE(core::backupsOf(copies, site.office).size(), 1);
        program.mainWindow()->menu("mnuBackupNow")->trigger();
        QVERIFY(copied.wait(60000));
        QCOMPARE(core::backupsOf(copies, site.office).size(), 2);
        QVERIFY(site.desk.prompts.lastText().contains("γράφτηκε"));
        site.desk.prompts.clear();

        // Log-off asks nothing, and the name stays until somebody else is in.
        program.mainWindow()->menu("mnuLogOff")->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(site.desk.prompts.isEmpty());
        QVERIFY(!program.mainWindow() && program.logon()->isVisible());
        QVERIFY(!site.mod.gAddressOpen);
        QCOMPARE(site.mod.gUserName, QString("Admin"));

        QSignalSpy finished(&program, &entry::Program::finished);
        program.logon()->findChild<QPushButton*>("Command2")->click();
        QCOMPARE(finished.count(), 1);
    }
};

QTEST_MAIN(TestEntry)
#include "test_entry.moc"
