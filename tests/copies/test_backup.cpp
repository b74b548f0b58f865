#include "copies/backup.h"

#include <sqlite3.h>

#include <atomic>
#include <thread>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#endif

#include "copies/restore.h"
#include "copies/upgradecopy.h"
#include "data/opening/password.h"
#include "schema/office.h"
#include "support/failure.h"
#include "support/officefolder.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;
using schema::Database;

namespace {

const QDateTime moment(QDate(2026, 11, 5), QTime(10, 30), Qt::UTC);

QByteArray contents(const QString& file) {
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray("<missing>");
}

void overwrite(const QString& file, qint64 at, const QByteArray& bytes) {
    QFile target(file);
    if (!target.open(QIODevice::ReadWrite) || !target.seek(at) || target.write(bytes) != bytes.size())
        qFatal("scratch");
}

struct Site {
    Site() {
        for (int i = 0; i < 400; ++i)
            office.main.execute(
                u"insert into Cards (ΕΠΩΝΥΜΟ, σχολια) values ('Επαφή %1', '%2')"_s.arg(i).arg(QString(2000, u'α')));
    }
    QString cards(data::Connection& connection) { return firstText(connection, u"select count(*) from Cards"_s); }
    QStringList left() {
        return QDir(scratch.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    copies::BackupInfo backup(const copies::BackupOptions& options = {}) {
        return copies::backupOffice(office.folder(), file, options);
    }

    ScratchOffice office;
    QTemporaryDir scratch;
    QString file = scratch.filePath(u"αντίγραφο.tar"_s);
    QString other = scratch.filePath(u"νέο γραφείο"_s);
};

// Writes in pairs until it is told to stop: a transaction moves one unit from one table's row to another's.
class Writer {
public:
    explicit Writer(const QString& file) {
        thread_ = std::thread([this, file] {
            data::Connection connection;
            copies::openUpgraded(connection, schema::connectionString(Database::Main, file));
            while (!stop_) {
                data::Transaction transaction(connection);
                connection.execute(u"update Cards set total=total-1 where code=1"_s);
                connection.execute(u"insert into Calls (ΟΝΟΜΑ) values ('x')"_s);
                transaction.commit();
                ++rounds;
            }
        });
    }
    ~Writer() {
        stop_ = true;
        thread_.join();
    }
    std::atomic<int> rounds = 0;

private:
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

}  // namespace

class TestBackup : public QObject {
    Q_OBJECT
private slots:
    void aRoundTripKeepsEverything() {
        Site site;
        const copies::BackupInfo info = site.backup({.now = moment});
        QCOMPARE(info.made, moment);
        QCOMPARE(info.folder, site.office.folder());
        QVERIFY(info.rows > 400);
        QCOMPARE(site.left(), QStringList({u"αντίγραφο.tar"_s}));
        QCOMPARE(QFileInfo(site.file).permissions() & 0x77, QFile::Permissions());
        QCOMPARE(copies::checkBackup(site.file).rows, info.rows);

        QVERIFY(copies::restoreOffice(site.file, site.other).isEmpty());
        data::Connection main, users;
        copies::openUpgraded(main, schema::connectionString(Database::Main, schema::mainDatabasePath(site.other)));
        copies::openUpgraded(users, schema::connectionString(Database::Users, schema::usersDatabasePath(site.other)));
        QCOMPARE(site.cards(main), u"400"_s);
        QVERIFY(data::verifyPassword(firstText(users, u"select Pass from Admin"_s), u"secret"_s));
    }

    // The sum of both tables never changes, so a copy in which it did was made at two moments.
    void aBusyWriterIsNeitherHeldNorTornApart() {
        Site site;
        site.office.main.execute(u"update Cards set total=0"_s);
        Writer writer(site.office.mainFile());
        QTRY_VERIFY_WITH_TIMEOUT(writer.rounds > 5, 20000);
        for (int i = 0; i < 3; ++i) {
            // Several commits happen between two steps of the copy itself.
            int waits = 0;
            const auto wait = [&](const QString& what, int) {
                const int seen = writer.rounds;
                QDeadlineTimer patience(10000);
                while (what.contains(u"Αντιγραφή") && what.endsWith(u"dorvalist.mdb") && writer.rounds < seen + 3 &&
                       !patience.hasExpired())
                    std::this_thread::yield();
                waits += writer.rounds >= seen + 3;
                return !patience.hasExpired();
            };
            site.backup({.replace = true, .now = moment, .progress = wait});
            QVERIFY(waits > 2);
            QDir(site.other).removeRecursively();
            copies::restoreOffice(site.file, site.other);
            data::Connection copy;
            copies::openUpgraded(copy, schema::connectionString(Database::Main, schema::mainDatabasePath(site.other)));
            const QString total = firstText(copy, u"select total from Cards where code=1"_s);
            QVERIFY(total.toInt() < 0);
            QCOMPARE(firstText(copy, u"select count(*) from Calls"_s).toInt(), -total.toInt());
        }
    }

    void neverOverwritesUnlessTold() {
        Site site;
        overwrite(site.file, 0, "mine");
        QVERIFY(failureOf([&] { site.backup(); }).contains(u"Υπάρχει ήδη"));
        QCOMPARE(contents(site.file), QByteArray("mine"));
        site.backup({.replace = true});
        copies::checkBackup(site.file);
    }

    void aMissingTargetFolder() {
        Site site;
        site.file = site.scratch.filePath(u"πουθενά/α.tar"_s);
        QVERIFY(failureOf([&] { site.backup(); }).contains(u"πουθενά"));
        QVERIFY(site.left().isEmpty());
    }

    void breakingOffAtAnyPointLeavesNothing() {
        Site site;
        int steps = 0;
        site.backup({.replace = true, .progress = [&](const QString&, int) { return ++steps > 0; }});
        QFile::remove(site.file);
        QVERIFY(steps >= 6);
        for (int last = 0; last < steps; ++last) {
            int step = 0;
            QVERIFY(failureOf([&] {
                        site.backup({.progress = [&](const QString&, int) { return step++ < last; }});
                    }).contains(u"διακόπηκε"));
            QVERIFY(site.left().isEmpty());
        }
    }

    void aSourceThatSomebodyLocksIsBusy() {
        Site site;
        site.office.closeBoth();
        sqlite3* lock = nullptr;
        QCOMPARE(sqlite3_open(qUtf8Printable(site.office.mainFile()), &lock), SQLITE_OK);
        QCOMPARE(sqlite3_exec(lock, "PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE", nullptr, nullptr, nullptr),
                 SQLITE_OK);
        QVERIFY(failureOf([&] { site.backup({.busyTimeoutMs = 50}); }).contains(u"Κάποιος άλλος"));
        QVERIFY(site.left().isEmpty());
        sqlite3_close(lock);
        site.backup();
    }

    void aDamagedSourceGivesNoCopy() {
        Site site;
        site.office.closeBoth();
        overwrite(site.office.mainFile(), QFileInfo(site.office.mainFile()).size() / 4096 / 2 * 4096,
                  QByteArray(8 * 4096, '\x5A'));
        QVERIFY(!failureOf([&] { site.backup(); }).isEmpty());
        QVERIFY(site.left().isEmpty());
    }

    void aDamagedCopyIsNotRestored_data() {
        QTest::addColumn<int>("kind");
        QTest::newRow("cut") << 0;
        QTest::newRow("one bit") << 1;
        QTest::newRow("noise") << 2;
        QTest::newRow("empty") << 3;
        QTest::newRow("end cut off") << 4;
    }
    void aDamagedCopyIsNotRestored() {
        QFETCH(int, kind);
        Site site;
        site.backup();
        QByteArray bytes = contents(site.file);
        if (kind == 0) bytes.truncate(bytes.size() / 3);
        if (kind == 1) bytes[bytes.indexOf("\xCE\xB1\xCE\xB1\xCE\xB1")] = char(0xCF);
        if (kind == 2) bytes = QByteArray(70000, '\x5A');
        if (kind == 3) bytes.clear();
        if (kind == 4) bytes.truncate(bytes.size() - 20000);
        QFile::remove(site.file);
        overwrite(site.file, 0, bytes);
        QVERIFY(!failureOf([&] { copies::checkBackup(site.file); }).isEmpty());
        QVERIFY(!failureOf([&] { copies::restoreOffice(site.file, site.other); }).isEmpty());
        QVERIFY(!QFileInfo::exists(site.other));
        QVERIFY(!failureOf([&] { copies::restoreOffice(site.file, site.office.folder(), {.force = true}); }).isEmpty());
        QCOMPARE(site.cards(site.office.main), u"400"_s);
    }

    void restoringKeepsTheOldFilesAside() {
        Site site;
        site.backup();
        site.office.main.execute(u"delete from Cards where code>50"_s);
        const QString folder = site.office.folder();
        QVERIFY(failureOf([&] { copies::restoreOffice(site.file, folder); }).contains(u"Υπάρχει ήδη"));
        QVERIFY(failureOf([&] {
                    copies::restoreOffice(site.file, folder, {.force = true});
                }).contains(u"Κάποιος δουλεύει"));
        QCOMPARE(site.cards(site.office.main), u"50"_s);
        site.office.closeBoth();
        const QStringList aside = copies::restoreOffice(site.file, folder, {.force = true, .now = moment});
        QCOMPARE(aside, QStringList({site.office.mainFile() + u".20261105-103000"_s,
                                     site.office.usersFile() + u".20261105-103000"_s}));
        site.office.openBoth();
        QCOMPARE(site.cards(site.office.main), u"400"_s);
        data::Connection old;
        schema::openToRead(old, schema::connectionString(Database::Main, aside[0]));
        QCOMPARE(site.cards(old), u"50"_s);
    }

    // What had only reached the journal when the power went stays with the file it belongs to.
    void theJournalOfADamagedFileGoesAsideWithIt() {
        Site site;
        site.backup();
        site.office.closeBoth();
        overwrite(site.office.mainFile(), 0, QByteArray(4096, '\x5A'));
        overwrite(site.office.mainFile() + u"-wal"_s, 0, "journal");
        const QStringList aside = copies::restoreOffice(site.file, site.office.folder(),
                                                        {.force = true, .databases = {Database::Main}, .now = moment});
        QCOMPARE(aside.size(), 1);
        QCOMPARE(contents(aside[0] + u"-wal"_s), QByteArray("journal"));
        QVERIFY(!QFileInfo::exists(site.office.mainFile() + u"-wal"_s));
        site.office.openBoth();
        QCOMPARE(site.cards(site.office.main), u"400"_s);
    }

#ifdef Q_OS_UNIX
    // No file may grow past a limit, at whatever part of the work that bites.
    void aFullTargetLeavesNothing() {
        Site site;
        site.backup();
        const qint64 whole = QFileInfo(site.file).size();
        QFile::remove(site.file);
        site.office.closeBoth();
        for (const qint64 limit : {whole / 8, whole - 30000}) {
            const pid_t child = fork();
            if (child == 0) {
                signal(SIGXFSZ, SIG_IGN);
                const rlimit most{rlim_t(limit), rlim_t(limit)};
                setrlimit(RLIMIT_FSIZE, &most);
                int code = 1;
                try {
                    site.backup();
                } catch (const data::Error& error) {
                    code = error.category() == data::ErrorCategory::Full ? 0 : 2;
                }
                _exit(code);
            }
            int status = 0;
            QCOMPARE(waitpid(child, &status, 0), child);
            QVERIFY2(WIFEXITED(status) && WEXITSTATUS(status) == 0, qPrintable(QString::number(status)));
            QVERIFY2(site.left().isEmpty(), qPrintable(site.left().join(u' ')));
        }
    }
#endif
};

QTEST_GUILESS_MAIN(TestBackup)
#include "test_backup.moc"
