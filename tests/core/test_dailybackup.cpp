#include "core/dailybackup.h"

#include <sys/resource.h>

#include <QSignalSpy>
#include <csignal>

#include "copies/backup.h"
#include "copies/servertools.h"
#include "schema/creation.h"
#include "schema/office.h"
#include "support/failure.h"
#include "support/office.h"
#include "support/seat.h"

using namespace Qt::Literals::StringLiterals;

using core::BackupKind;
using core::DailyBackup;

namespace {

struct Site {
    Site() {
        office.mod.gMainDbPath = schema::mainDatabasePath(office.folder());
        office.mod.gUsersDbPath = schema::usersDatabasePath(office.folder());
        core::setBackupFolder(office.desk.settings, folder);
        QDir().mkpath(folder);
    }
    // Runs what is begun to its end; false when that is nothing.
    using Start = void (DailyBackup::*)(QWidget*);
    static bool run(DailyBackup& backup, Start start = &DailyBackup::startIfDue) {
        QSignalSpy finished(&backup, &DailyBackup::finished);
        (backup.*start)(nullptr);
        return backup.isRunning() && finished.wait(60000);
    }
    bool run(Start start = &DailyBackup::startIfDue) { return run(backup, start); }
    QStringList copies() {
        return sorted(QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }
    static QStringList sorted(QStringList names) {
        std::sort(names.begin(), names.end());
        return names;
    }
    // Of this office, so many days before.
    QString name(int day, BackupKind kind = BackupKind::Daily, int secondsLess = 0) {
        return core::backupName(office.folder(), office.desk.clock.now().addDays(-day).addSecs(-secondsLess), kind);
    }

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
        QVERIFY(site.run());
        const QStringList first = site.copies();
        QCOMPARE(first, QStringList(site.name(0)));
        copies::checkBackup(QDir(site.folder).filePath(first[0]));
        site.office.desk.clock.advance(3600);
        QVERIFY(site.run());
        QCOMPARE(site.copies(), first);
        site.office.desk.clock.advance(86400);
        QVERIFY(site.run());
        QCOMPARE(site.copies().size(), 2);
        QVERIFY(site.office.desk.prompts.isEmpty());
    }

    // Another user's settings know nothing of the copy, and those who start at once all make one.
    void oneForAllSeats() {
        Site site;
        support::OtherSeat second(site.office);
        auto& [desk, mod] = static_cast<support::Seat&>(second);
        core::setBackupFolder(desk.settings, site.folder);
        mod.gDataPath = site.office.folder();
        mod.gMainDbPath = site.office.mod.gMainDbPath;
        mod.gUsersDbPath = site.office.mod.gUsersDbPath;
        DailyBackup seat(mod);
        desk.clock.advance(60);

        QSignalSpy finished(&site.backup, &DailyBackup::finished);
        site.backup.startIfDue(nullptr);
        QVERIFY(Site::run(seat));
        QVERIFY(!site.backup.isRunning() || finished.wait(60000));
        QVERIFY(Site::run(seat));
        desk.clock.advance(86400);
        QVERIFY(Site::run(seat));
        QCOMPARE(site.copies().size(), 2);
        QVERIFY(desk.prompts.isEmpty() && site.office.desk.prompts.isEmpty());
    }

    void withoutTheServersProgramsNothingIsDoneAndNothingSaid() {
        Site site;
        site.backup.findTools = [] { return copies::ServerTools(); };
        QCOMPARE(site.run(), !testengine::isPostgres());
        QVERIFY(site.office.desk.prompts.isEmpty());
        if (!testengine::isPostgres()) return;
        QVERIFY(site.run(&DailyBackup::startByHand));
        QVERIFY(site.office.desk.prompts.lastText().contains("pg_dump"));
    }

    // The windows' events go on being served while the copy is made.
    void theEventLoopLives() {
        Site site;
        int turns = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] { ++turns; });
        timer.start(0);
        QVERIFY(site.run());
        QVERIFY(turns > 10);
    }

    void onlyItsOwnOldFilesGoAndOnlyForAGoodOne() {
        Site site;
        QStringList kept = {site.name(40, BackupKind::ByHand), "dorvalist-mine.tar", "x" + site.name(50),
                            core::backupName("/άλλο", site.office.desk.clock.now().addDays(-30), BackupKind::Daily)};
        QStringList left = kept;
        for (int day = 1; day <= 20; ++day) left << site.name(day);
        left << site.name(3, BackupKind::Daily, 60);  // an earlier one of a day that has another
        for (const QString& name : left) leave(site.folder + '/' + name);
        // No room for a copy: everything stays, the failure is told, and the day isn't done.
        site.office.mod.gDataPath = site.folder;
        QVERIFY(site.run());
        QCOMPARE(site.copies().size(), left.size());
        QVERIFY(site.office.desk.prompts.lastText().startsWith("Το αντίγραφο ασφαλείας δεν έγινε"));

        site.office.mod.gDataPath = site.office.folder();
        QVERIFY(site.run());
        for (int day = 0; day <= 13; ++day) kept << site.name(day);
        QCOMPARE(site.copies(), Site::sorted(kept));
        QCOMPARE(site.office.desk.prompts.count(), 1);
    }

    void aWrongClockCostsNoCopy() {
        Site site;
        support::RecordingPrompts& prompts = site.office.desk.prompts;
        const QDate today = site.office.desk.clock.now().date();
        for (int day = 1; day <= 14; ++day) leave(site.folder + '/' + site.name(day));
        QStringList all = site.copies();
        for (const QDate& day : {QDate(2000, 1, 1), QDate(2000, 1, 2)}) {
            site.office.desk.clock.set(day);
            QVERIFY(site.run());
            all += site.name(0);
            QCOMPARE(site.copies(), Site::sorted(all));
            QCOMPARE(prompts.count(), 1);  // once for both
            QVERIFY2(prompts.lastText().contains("μελλοντική"), qPrintable(prompts.lastText()));
        }
        site.office.desk.clock.set(today);
        const QString late =
            core::backupName(site.office.folder(), QDateTime(QDate(2099, 1, 1), QTime()), BackupKind::Daily);
        leave(site.folder + '/' + late);
        QVERIFY(site.run());
        all = QStringList(late);
        for (int day = 0; day <= 13; ++day) all << site.name(day);
        QCOMPARE(site.copies(), Site::sorted(all));
        QCOMPARE(prompts.count(), 2);
        QVERIFY2(prompts.lastText().contains(late), qPrintable(prompts.lastText()));
    }

    // The disk that it is on may be away: nothing is filled in its place.
    void aFolderThatIsNoneIsToldAndNotMade() {
        Site site;
        QVERIFY(QDir(site.folder).removeRecursively());
        for (const bool file : {false, true}) {
            if (file) leave(site.folder);
            site.office.desk.prompts.clear();
            QVERIFY(site.run());
            QVERIFY(site.office.desk.prompts.lastText().contains(site.folder));
            QVERIFY(!QFileInfo(site.folder).isDir());
            const QDateTime now = site.office.desk.clock.now();
            const QString told = failureOf([&] { core::newestGoodBackup(site.folder, site.office.folder(), now); });
            QVERIFY(told.startsWith("Ο φάκελος δεν υπάρχει"));
        }
    }

    void leavingOrALostSeatBreaksItOff() {
        for (const bool leaving : {true, false}) {
            Site site;
            {
                DailyBackup backup(site.office.mod);
                QSignalSpy finished(&backup, &DailyBackup::finished);
                backup.startIfDue(nullptr);
                QVERIFY(backup.isRunning());
                if (!leaving) {
                    backup.stop();
                    QVERIFY(finished.wait(60000));
                    QVERIFY(!backup.isRunning());
                }
            }
            // It may have been ready before; nothing that is half made stays.
            QVERIFY(site.copies().size() <= 1);
            for (const QString& name : site.copies()) copies::checkBackup(QDir(site.folder).filePath(name));
            QVERIFY(site.office.desk.prompts.isEmpty());
        }
    }

    void byHandEndsInAMessageAndFollowsTheChosenFolder() {
        Site site;
        const QString other = site.office.directory_.filePath("δίσκος");
        QDir().mkpath(other);
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
        QVERIFY(site.run());  // the day's own is still to come
        QCOMPARE(core::backupsOf(other, site.office.folder()).size(), 2);
    }

    void theNewestGoodCopyIsFoundPastBadOnes() {
        Site site;
        QVERIFY(site.run());
        const QString good = site.folder + '/' + site.name(0);
        leave(site.folder + '/' + site.name(-1));
        // Another office's copy under this office's name, and one that a wrong clock dated.
        const QString foreign = site.office.directory_.filePath("άλλο");
        schema::createOffice(foreign, {u"x"_s, {}});
        copies::backupOffice(foreign, site.folder + '/' + site.name(-2));
        const QString late = site.folder + '/' + site.name(-1000);
        QVERIFY(QFile::copy(good, late));
        const QDateTime now = site.office.desk.clock.now().addDays(3);
        const auto found = [&] { return core::newestGoodBackup(site.folder, site.office.folder(), now); };
        QVERIFY(found() && found()->notChecked.isEmpty());
        QCOMPARE(found()->file, good);
        QCOMPARE(found()->made.date(), site.office.desk.clock.now().date());
        QVERIFY(!core::newestGoodBackup(site.folder, foreign, now));
        QVERIFY(QFile::remove(good));
        QCOMPARE(found()->file, late);
    }

    void onlyACopyOfItsKindIsGood() {
        Site site;
        QVERIFY(site.run());
        site.office.mod.gConn.close();
        QFile file(site.office.mod.gMainDbPath);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray before = file.readAll();
        file.close();
        const auto put = [&](const QByteArray& bytes) {
            if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("scratch");
            file.close();
        };
        const auto found = [&] {
            return core::newestGoodBackup(site.folder, site.office.folder(), site.office.desk.clock.now());
        };
        put(testengine::isPostgres() ? "x" : "host=a\ndatabase=b\n");
        QVERIFY(!found());
        put(before);
        QVERIFY(found());
    }

    // A copy that couldn't be looked into isn't a bad one.
    void aFullDiskIsToldOf() {
        Site site;
        QVERIFY(site.run());
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        const rlimit small{rlim_t(5000), before.rlim_max};
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        const auto failure =
            errorOf([&] { core::newestGoodBackup(site.folder, site.office.folder(), site.office.desk.clock.now()); });
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        QCOMPARE(failure ? failure->category() : data::ErrorCategory::Other, data::ErrorCategory::Full);
    }
};

QTEST_MAIN(TestDailyBackup)
#include "test_dailybackup.moc"
