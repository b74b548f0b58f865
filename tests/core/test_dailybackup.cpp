#include "core/dailybackup.h"

#include <QSignalSpy>

#include "schema/backup.h"
#include "support/office.h"

using core::BackupKind;
using core::DailyBackup;

namespace {

struct Site {
    Site() {
        office.mod.gMainDbPath = schema::mainDatabasePath(office.folder());
        office.mod.gUsersDbPath = schema::usersDatabasePath(office.folder());
        core::setBackupFolder(office.desk.settings, folder);
    }
    // Runs what is due to its end; false when nothing was.
    bool runDue() {
        QSignalSpy finished(&backup, &DailyBackup::finished);
        backup.startIfDue(nullptr);
        return backup.isRunning() && finished.wait(60000);
    }
    QStringList copies() { return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot); }
    QString day() { return office.desk.settings.value("Options", "BackupDay", ""); }

    support::Office office;
    QString folder = office.directory_.filePath("αντίγραφα");
    DailyBackup backup{office.mod};
};

void leave(const QString& file) {
    QFile f(file);
    if (!f.open(QIODevice::WriteOnly)) qFatal("scratch");
}

}  // namespace

class TestDailyBackup : public QObject {
    Q_OBJECT
private slots:
    void onceADayWithoutAWord() {
        Site site;
        QVERIFY(site.runDue());
        QVERIFY(!site.runDue());
        QCOMPARE(site.copies(),
                 QStringList(core::backupName(site.office.folder(), site.office.desk.clock.now(), BackupKind::Daily)));
        schema::checkBackup(QDir(site.folder).filePath(site.copies().first()));
        site.office.desk.clock.advance(86400);
        QVERIFY(site.runDue());
        QCOMPARE(site.copies().size(), 2);
        QVERIFY(site.office.desk.prompts.isEmpty());
    }

    void withoutTheServersProgramsNothingIsDoneAndNothingSaid() {
        Site site;
        site.backup.findTools = [] { return schema::ServerTools(); };
        QCOMPARE(site.runDue(), !testengine::isPostgres());
        QVERIFY(site.office.desk.prompts.isEmpty());
        if (!testengine::isPostgres()) return;
        QSignalSpy finished(&site.backup, &DailyBackup::finished);
        site.backup.startByHand(nullptr);
        QVERIFY(finished.wait(60000));
        QVERIFY(site.office.desk.prompts.lastText().contains("pg_dump"));
    }

    // The windows' events go on being served while the copy is made.
    void theEventLoopLives() {
        Site site;
        int turns = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] { ++turns; });
        timer.start(0);
        QVERIFY(site.runDue());
        QVERIFY(turns > 10);
    }

    void onlyItsOwnOldFilesGoAndOnlyForAGoodOne() {
        Site site;
        QDir().mkpath(site.folder);
        const QDateTime now = site.office.desk.clock.now();
        const auto name = [&](const QString& office, int day, BackupKind kind) {
            return core::backupName(office, now.addDays(-day), kind);
        };
        QStringList kept;
        for (int day = 1; day <= 20; ++day)
            leave(site.folder + '/' + name(site.office.folder(), day, BackupKind::Daily));
        for (const QString& other :
             {name("/άλλο", 30, BackupKind::Daily), name(site.office.folder(), 40, BackupKind::ByHand),
              QString("dorvalist-mine.tar"), QString("x") + name(site.office.folder(), 50, BackupKind::Daily)}) {
            leave(site.folder + '/' + other);
            kept << other;
        }
        // No room for a copy: everything stays, the failure is told, and the day isn't done.
        site.office.mod.gDataPath = site.folder;
        QVERIFY(site.runDue());
        QCOMPARE(site.copies().size(), 24);
        QVERIFY(site.office.desk.prompts.lastText().startsWith("Το αντίγραφο ασφαλείας δεν έγινε"));
        QCOMPARE(site.day(), QString());

        site.office.mod.gDataPath = site.office.folder();
        QVERIFY(site.runDue());
        for (int day = 0; day <= 13; ++day) kept << name(site.office.folder(), day, BackupKind::Daily);
        QStringList there = site.copies();
        std::sort(kept.begin(), kept.end());
        std::sort(there.begin(), there.end());
        QCOMPARE(there, kept);
        QCOMPARE(site.office.desk.prompts.count(), 1);
    }

    void whatAKilledCopyLeftGoesAfterADay() {
        Site site;
        const QString old = site.folder + "/.dorvalist-AbCdEf", young = site.folder + "/.dorvalist-GhIjKl";
        for (const QString& folder : {old, young}) {
            QDir().mkpath(folder);
            leave(folder + "/dorvalist.mdb");
        }
        QVERIFY(QProcess::execute("touch", {"-d", "2 days ago", old}) == 0);
        QVERIFY(site.runDue());
        QVERIFY(!QFileInfo::exists(old) && QFileInfo::exists(young + "/dorvalist.mdb"));
    }

    void aFolderThatIsAFileIsTold() {
        Site site;
        leave(site.folder);
        QVERIFY(site.runDue());
        QVERIFY(site.office.desk.prompts.lastText().contains(site.folder));
        QVERIFY(!QFileInfo(site.folder).isDir());
    }

    void leavingBreaksItOff() {
        Site site;
        {
            DailyBackup leaving(site.office.mod);
            leaving.startIfDue(nullptr);
            QVERIFY(leaving.isRunning());
        }
        QVERIFY(site.copies().isEmpty() || site.copies().size() == 1);
        for (const QString& name : site.copies()) schema::checkBackup(QDir(site.folder).filePath(name));
        QVERIFY(site.office.desk.prompts.isEmpty());
        QCOMPARE(site.day(), QString());
    }

    void byHandEndsInAMessageAndFollowsTheChosenFolder() {
        Site site;
        const QString other = site.office.directory_.filePath("δίσκος");
        site.office.desk.prompts.answerFolder("");
        site.backup.chooseFolder(nullptr);
        QCOMPARE(core::backupFolder(site.office.desk.settings), site.folder);
        site.office.desk.prompts.answerFolder(other);
        site.backup.chooseFolder(nullptr);
        QSignalSpy finished(&site.backup, &DailyBackup::finished);
        site.backup.startByHand(nullptr);
        site.backup.startByHand(nullptr);  // a second press
        QVERIFY(site.office.desk.prompts.lastText().startsWith("Γίνεται ήδη"));
        QVERIFY(finished.wait(60000));
        const QStringList found = core::backupsOf(other, site.office.folder());
        QCOMPARE(found.size(), 1);
        QCOMPARE(site.office.desk.prompts.lastText(), "Το αντίγραφο ασφαλείας γράφτηκε και ελέγχθηκε:\n" + found[0]);
        QVERIFY(site.runDue());  // the day's own is still to come
    }

    void theNewestGoodCopyIsFoundPastBadOnes() {
        Site site;
        QVERIFY(site.runDue());
        const QDateTime good = site.office.desk.clock.now();
        leave(site.folder + '/' + core::backupName(site.office.folder(), good.addDays(1), BackupKind::Daily));
        // Another office's copy under this office's name.
        const QString foreign = site.office.directory_.filePath("άλλο");
        schema::createOffice(foreign, {QStringLiteral("x"), {}});
        schema::backupOffice(
            foreign, site.folder + '/' + core::backupName(site.office.folder(), good.addDays(2), BackupKind::Daily));
        const auto found = core::newestGoodBackup(site.folder, site.office.folder());
        QVERIFY(found.has_value());
        QCOMPARE(found->made.date(), good.date());
        QVERIFY(!core::newestGoodBackup(site.folder, foreign));
    }
};

QTEST_MAIN(TestDailyBackup)
#include "test_dailybackup.moc"
