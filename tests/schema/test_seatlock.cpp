#include "schema/seatlock.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QtCore/QtCore>

#include "data/error.h"

using platform::FileSystemKind;
using schema::SeatLock;

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
        return error.category() == data::ErrorCategory::Busy ? error.text() : QStringLiteral("other: ") + error.text();
    }
    return {};
}

struct Folder {
    QString path() const { return directory.path(); }
    QString file() const { return directory.filePath("dorvalist.seat"); }
    // What another machine or a dead process left.
    void leave(qint64 pid, const QString& host, qint64 secondsAgo) const {
        QFile lock(file());
        if (!lock.open(QIODevice::WriteOnly)) qFatal("scratch");
        lock.write(QStringLiteral("%1\ndorvalist\n%2\n\n").arg(pid).arg(host).toUtf8());
        lock.flush();
        lock.setFileTime(QDateTime::currentDateTime().addSecs(-secondsAgo), QFileDevice::FileModificationTime);
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
        QTest::addColumn<qint64>("age");
        QTest::addColumn<bool>("taken");
        const QString here = QSysInfo::machineHostName(), away = "άλλο-μηχάνημα";
        QProcess gone;
        gone.start("/bin/true", QStringList());
        QVERIFY(gone.waitForStarted());
        const qint64 dead = gone.processId();
        gone.waitForFinished();
        QTest::newRow("dead here") << dead << here << qint64(10) << true;
        QTest::newRow("fresh elsewhere") << qint64(1) << away << qint64(120) << false;
        QTest::newRow("old elsewhere") << qint64(1) << away << qint64(SeatLock::staleSeconds + 60) << true;
    }
    void whoIsTakenOver() {
        QFETCH(qint64, pid);
        QFETCH(QString, host);
        QFETCH(qint64, age);
        QFETCH(bool, taken);
        Folder folder;
        folder.leave(pid, host, age);
        SeatLock seat;
        const QString text = refusal(seat, folder.path());
        QCOMPARE(text.isEmpty(), taken);
        QCOMPARE(seat.isHeld(), taken);
        QVERIFY(taken || text.contains(host));
    }

    void touchingKeepsItFreshAndNoticesALoss() {
        Folder folder;
        SeatLock seat;
        QSignalSpy lost(&seat, &SeatLock::lost);
        seat.take(folder.path(), network);
        QFile file(folder.file());
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-1000), QFileDevice::FileModificationTime));
        file.close();
        seat.touch();
        QVERIFY(QFileInfo(folder.file()).lastModified().secsTo(QDateTime::currentDateTime()) < 100);
        QVERIFY(lost.isEmpty());
        folder.leave(4711, "άλλο-μηχάνημα", 0);
        seat.touch();
        QCOMPARE(lost.count(), 1);
    }

    void thisMachinesScratchFolderIsLocal() {
        QCOMPARE(platform::fileSystemKind(QDir::tempPath()), FileSystemKind::Local);
        QCOMPARE(platform::fileSystemKind("/πουθενά"), FileSystemKind::Local);
    }
};

QTEST_GUILESS_MAIN(TestSeatLock)
#include "test_seatlock.moc"
