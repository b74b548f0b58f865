#include "copies/archive.h"
#include "copies/backup.h"
#include "copies/restore.h"
#include "copies/upgradecopy.h"
#include "schema/office.h"
#include "schema/workfolder.h"

#include <sqlite3.h>

#include <atomic>
#include <thread>

#ifdef Q_OS_UNIX
#include <sys/resource.h>

#include "support/childprocess.h"
#endif

#include "data/opening/password.h"
#include "support/cases.h"
#include "support/failure.h"
#include "support/files.h"
#include "support/officefolder.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;
using schema::Database;

namespace {

const QDateTime moment(QDate(2026, 11, 5), QTime(10, 30), Qt::UTC);

struct Site {
    Site() {
        data::Transaction all(office.main);
        for (int i = 0; i < 400; ++i)
            office.main.execute(
                u"insert into Cards (ΕΠΩΝΥΜΟ, σχολια) values ('Επαφή %1', '%2')"_s.arg(i).arg(QString(2000, u'α')));
        all.commit();
    }
    QString cards(data::Connection& connection) { return firstText(connection, u"select count(*) from Cards"_s); }
    QStringList left() { return entriesOf(scratch.path()); }
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
        // In a folder that a group shares the copy is the group's, too.
        QTemporaryDir shared;
        QFile::setPermissions(shared.path(), QFile::Permissions(0x7770));
        copies::backupOffice(site.office.folder(), shared.filePath(u"α.tar"_s));
        QCOMPARE(QFileInfo(shared.filePath(u"α.tar"_s)).permissions() & 0x77, QFile::ReadGroup | QFile::WriteGroup);

        QVERIFY(copies::restoreOffice(site.file, site.other).isEmpty());
        Databases copy(site.other);
        QCOMPARE(site.cards(copy.main), u"400"_s);
        QVERIFY(data::verifyPassword(firstText(copy.users, u"select Pass from Admin"_s), u"secret"_s));
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
            Databases copy(site.other);
            const QString total = firstText(copy.main, u"select total from Cards where code=1"_s);
            QVERIFY(total.toInt() < 0);
            QCOMPARE(firstText(copy.main, u"select count(*) from Calls"_s).toInt(), -total.toInt());
        }
    }

    void neverOverwritesUnlessTold() {
        Site site;
        overwrite(site.file, "mine");
        VERIFY_FAILURE(u"Υπάρχει ήδη", site.backup());
        QCOMPARE(bytesOf(site.file), QByteArray("mine"));
        site.backup({.replace = true});
        copies::checkBackup(site.file);
    }

    void aMissingTargetFolder() {
        Site site;
        site.file = site.scratch.filePath(u"πουθενά/α.tar"_s);
        VERIFY_FAILURE(u"πουθενά", site.backup());
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
            VERIFY_FAILURE(u"διακόπηκε", site.backup({.progress = [&](const QString&, int) { return step++ < last; }}));
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
        VERIFY_FAILURE(u"Κάποιος άλλος", site.backup({.busyTimeoutMs = 50}));
        QVERIFY(site.left().isEmpty());
        sqlite3_close(lock);
        site.backup();
    }

    void aDamagedSourceGivesNoCopy() {
        Site site;
        site.office.closeBoth();
        overwrite(site.office.mainFile(), QByteArray(8 * 4096, '\x5A'),
                  QFileInfo(site.office.mainFile()).size() / 4096 / 2 * 4096);
        VERIFY_ERROR(Corrupt, site.backup());
        QVERIFY(site.left().isEmpty());
    }

    void aDamagedCopyIsNotRestored() {
        Site site;
        site.backup();
        const QByteArray whole = bytesOf(site.file);
        QByteArray oneBit = whole;
        oneBit[whole.size() / 2] = char(oneBit[whole.size() / 2] ^ 1);
        // Packed soundly, but of a database of which one letter is another.
        const QStringList names = {schema::contentsFileName, u"dorvalist.mdb"_s, u"dorvalistu.mdb"_s};
        QVector<copies::ArchiveMember> members;
        for (const QString& name : names) members += {name, site.scratch.filePath(name)};
        copies::extractArchive(site.file, site.scratch.path(), names);
        QByteArray letters = bytesOf(members[1].file);
        letters[letters.indexOf("\xCE\xB1\xCE\xB1\xCE\xB1")] = char(0xCF);
        overwrite(members[1].file, letters);
        copies::writeArchive(site.file, members);
        const QByteArray oneLetter = bytesOf(site.file);
        const struct {
            const char* name;
            QByteArray bytes;
            QString says;
        } cases[] = {
            {"cut", whole.left(whole.size() / 3), u"έχει καταστραφεί"_s},
            {"one bit", oneBit, u" έχει "_s},
            {"one letter", oneLetter, u"έχει αλλοιωθεί"_s},
            {"noise", QByteArray(70000, '\x5A'), u"έχει καταστραφεί"_s},
            {"empty", {}, u"έχει καταστραφεί"_s},
            {"end cut off", whole.chopped(200), u"έχει καταστραφεί"_s},
        };
        forEach(cases, [&](const auto& one) {
            write(site.file, one.bytes);
            VERIFY_FAILURE(one.says, copies::checkBackup(site.file));
            VERIFY_FAILURE(one.says, copies::restoreOffice(site.file, site.other));
            QVERIFY(!QFileInfo::exists(site.other));
            VERIFY_FAILURE(one.says, copies::restoreOffice(site.file, site.office.folder(), {.force = true}));
            QCOMPARE(site.cards(site.office.main), u"400"_s);
        });
    }

    void restoringKeepsTheOldFilesAside() {
        Site site;
        site.backup();
        site.office.main.execute(u"delete from Cards where code>50"_s);
        const QString folder = site.office.folder();
        VERIFY_FAILURE(u"Υπάρχει ήδη", copies::restoreOffice(site.file, folder));
        VERIFY_FAILURE(u"Κάποιος δουλεύει", copies::restoreOffice(site.file, folder, {.force = true}));
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
        overwrite(site.office.mainFile(), QByteArray(4096, '\x5A'));
        overwrite(site.office.mainFile() + u"-wal"_s, "journal");
        const QStringList aside = copies::restoreOffice(site.file, site.office.folder(),
                                                        {.force = true, .databases = {Database::Main}, .now = moment});
        QCOMPARE(aside.size(), 1);
        QCOMPARE(bytesOf(aside[0] + u"-wal"_s), QByteArray("journal"));
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
            const int result = runInChild([&] {
                signal(SIGXFSZ, SIG_IGN);
                const rlimit most{rlim_t(limit), rlim_t(limit)};
                setrlimit(RLIMIT_FSIZE, &most);
                const auto error = errorOf([&] { site.backup(); });
                return error ? int(error->category()) : -1;
            });
            QCOMPARE(result, int(data::ErrorCategory::Full));
            QVERIFY2(site.left().isEmpty(), qPrintable(site.left().join(u' ')));
        }
    }
#endif
};

QTEST_GUILESS_MAIN(TestBackup)
#include "test_backup.moc"
