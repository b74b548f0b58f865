#include "copies/seatlock.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QtCore/QtCore>

#include "data/error.h"

using namespace Qt::Literals::StringLiterals;

using copies::SeatLock;
using platform::FileSystemKind;

namespace {

FileSystemKind network(const QString&) {
    return FileSystemKind::Network;
}
FileSystemKind local(const QString&) {
    return FileSystemKind::Local;
}

QString refusal(SeatLock& seat, const QString& folder) {
    try {
        seat.take(folder, network);
    } catch (const data::Error& error) {
        return error.category() == data::ErrorCategory::Busy ? error.text() : u"other: "_s + error.text();
    }
    return {};
}

struct Folder {
    QString path() const { return directory.path(); }
    QString file() const { return directory.filePath("dorvalist.seat"); }
    QByteArray text() const {
        QFile lock(file());
        return lock.open(QIODevice::ReadOnly) ? lock.readAll() : QByteArray("<missing>");
    }
    // What another machine or a dead process left.
    QByteArray leave(qint64 pid, const QString& host, const QByteArray& boot, qint64 secondsAgo) const {
        QFile lock(file());
        if (!lock.open(QIODevice::WriteOnly)) qFatal("scratch");
        lock.write(host.toUtf8() + '\n' + boot + '\n' + QByteArray::number(pid) + "\nx\n");
        lock.flush();
        lock.setFileTime(QDateTime::currentDateTime().addSecs(-secondsAgo), QFileDevice::FileModificationTime);
        return text();
    }
    QTemporaryDir directory;
};

}  // namespace

class TestSeatLock : public QObject {
    Q_OBJECT
private slots:
    void aLocalFolderHasRoomForAll() {
        Folder folder;
        SeatLock one, two;
        one.take(folder.path(), local);
        two.take(folder.path(), local);
        QVERIFY(!one.isHeld() && QDir(folder.path()).isEmpty());
    }

    void aSecondSeatOnTheNetworkIsRefusedUntilTheFirstLeaves() {
        Folder folder;
        SeatLock one, two;
        QCOMPARE(refusal(one, folder.path()), QString());
        const QString text = refusal(two, folder.path());
        QVERIFY2(text.contains(QSysInfo::machineHostName()) && text.contains("διακομιστή"), qPrintable(text));
        QVERIFY(one.isHeld() && !two.isHeld());
        one.giveBack();
        QVERIFY(!QFileInfo::exists(folder.file()));
        QCOMPARE(refusal(two, folder.path()), QString());
    }

    void whoIsTakenOver_data() {
        QTest::addColumn<qint64>("pid");
        QTest::addColumn<QString>("host");
        QTest::addColumn<QByteArray>("boot");
        QTest::addColumn<qint64>("age");
        QTest::addColumn<bool>("taken");
        const QString here = QSysInfo::machineHostName(), away = "άλλο-μηχάνημα";
        const QByteArray boot = QSysInfo::bootUniqueId();
        const qint64 stale = SeatLock::staleSeconds + 60;
        QProcess gone;
        gone.start("/bin/true", QStringList());
        QVERIFY(gone.waitForStarted());
        const qint64 dead = gone.processId(), alive = QCoreApplication::applicationPid();
        gone.waitForFinished();
        QTest::newRow("dead here") << dead << here << boot << qint64(10) << true;
        QTest::newRow("alive here") << alive << here << boot << qint64(120) << false;
        QTest::newRow("a copy of this machine") << dead << here << QByteArray("boot") << qint64(120) << false;
        QTest::newRow("fresh elsewhere") << dead << away << boot << qint64(120) << false;
        QTest::newRow("old elsewhere") << alive << away << QByteArray("boot") << stale << true;
        QTest::newRow("dated wrongly") << alive << away << QByteArray("boot") << -stale << true;
    }
    void whoIsTakenOver() {
        QFETCH(qint64, pid);
        QFETCH(QString, host);
        QFETCH(QByteArray, boot);
        QFETCH(qint64, age);
        QFETCH(bool, taken);
        Folder folder;
        const QByteArray left = folder.leave(pid, host, boot, age);
        SeatLock seat;
        const QString text = refusal(seat, folder.path());
        QCOMPARE(text.isEmpty(), taken);
        QCOMPARE(seat.isHeld(), taken);
        QVERIFY(taken || (text.contains(host) && folder.text() == left));
        seat.giveBack();
        QCOMPARE(QDir(folder.path()).isEmpty(), taken);  // nothing else lies about either
    }

    // Nobody's clock but the file server's: here it is ten minutes off that of the seat.
    void theAgeIsTheFoldersBusiness_data() {
        QTest::addColumn<qint64>("off");
        QTest::newRow("behind") << qint64(-600);
        QTest::newRow("ahead") << qint64(600);
    }
    void theAgeIsTheFoldersBusiness() {
        QFETCH(qint64, off);
        Folder folder;
        SeatLock seat;
        seat.folderTime = [off](const QString&) { return QDateTime::currentDateTime().addSecs(off); };
        folder.leave(1, "άλλο-μηχάνημα", "boot", -off + 1);
        QVERIFY(!refusal(seat, folder.path()).isEmpty());
        folder.leave(1, "άλλο-μηχάνημα", "boot", 1);
        QCOMPARE(refusal(seat, folder.path()), QString());
    }

    void touchingKeepsItFreshAndNoticesALoss() {
        Folder folder;
        SeatLock seat;
        QSignalSpy lost(&seat, &SeatLock::lost);
        seat.take(folder.path(), network);
        const QByteArray mine = folder.text();
        QFile file(folder.file());
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-1000), QFileDevice::FileModificationTime));
        file.close();
        seat.touch();
        QVERIFY(QFileInfo(folder.file()).lastModified().secsTo(QDateTime::currentDateTime()) < 100);
        QVERIFY(lost.isEmpty());
        QCOMPARE(folder.text(), mine);
        QFile::remove(folder.file());
        seat.touch();
        QCOMPARE(lost.count(), 1);
        QVERIFY(!QFileInfo::exists(folder.file()));
    }

    // A machine slept, another took over and works; what the first one does when it wakes is nothing to that one.
    void aLostSeatLeavesTheNewOneAlone() {
        Folder folder;
        SeatLock sleeper, worker;
        QSignalSpy lost(&sleeper, &SeatLock::lost);
        sleeper.take(folder.path(), network);
        worker.folderTime = [](const QString&) {
            return QDateTime::currentDateTime().addSecs(SeatLock::staleSeconds + 60);
        };
        QCOMPARE(refusal(worker, folder.path()), QString());
        const QByteArray his = folder.text();
        sleeper.touch();
        QCOMPARE(lost.count(), 1);
        sleeper.giveBack();
        QCOMPARE(folder.text(), his);
        QVERIFY(!refusal(sleeper, folder.path()).isEmpty());
        worker.touch();
        QCOMPARE(folder.text(), his);
    }

    void aServerHasRoomForAllAndAFileHasNot_data() {
        QTest::addColumn<QByteArray>("main");
        QTest::addColumn<QByteArray>("users");
        QTest::addColumn<bool>("held");
        const QByteArray server = "host=a\ndatabase=b\n", damaged = "x";
        QTest::newRow("both on a server") << server << server << false;
        QTest::newRow("users in a file") << server << damaged << true;
        QTest::newRow("main in a file") << damaged << server << true;
        QTest::newRow("damaged") << damaged << damaged << true;
    }
    void aServerHasRoomForAllAndAFileHasNot() {
        QFETCH(QByteArray, main);
        QFETCH(QByteArray, users);
        QFETCH(bool, held);
        Folder folder;
        for (const auto& [name, bytes] : {std::pair("dorvalist.mdb", main), std::pair("dorvalistu.mdb", users)}) {
            QFile file(folder.directory.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        }
        SeatLock seat;
        seat.take(folder.path(), network);
        QCOMPARE(seat.isHeld(), held);
    }

    void thisMachinesScratchFolderIsLocal() {
        QCOMPARE(platform::fileSystemKind(QDir::tempPath()), FileSystemKind::Local);
        QCOMPARE(platform::fileSystemKind("/πουθενά"), FileSystemKind::Local);
    }
};

QTEST_GUILESS_MAIN(TestSeatLock)
#include "test_seatlock.moc"
