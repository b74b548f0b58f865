#include "copies/seatlock.h"

#include <QProcess>
#include <QSignalSpy>

#include "support/cases.h"
#include "support/failure.h"
#include "support/files.h"

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
    const auto error = errorOf([&] { seat.take(folder, network); });
    if (!error) return {};
    return error->category() == data::ErrorCategory::Busy ? error->text() : u"other: "_s + error->text();
}

struct Folder {
    QString path() const { return directory.path(); }
    QString file() const { return directory.filePath("dorvalist.seat"); }
    QByteArray text() const { return support::bytesOf(file()); }
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

    void whoIsTakenOver() {
        const QString here = QSysInfo::machineHostName(), away = u"άλλο-μηχάνημα"_s;
        const QByteArray boot = QSysInfo::bootUniqueId();
        constexpr qint64 stale = SeatLock::staleSeconds + 60;
        QProcess gone;
        gone.start(u"/bin/true"_s, QStringList());
        QVERIFY(gone.waitForStarted());
        const qint64 dead = gone.processId(), alive = QCoreApplication::applicationPid();
        gone.waitForFinished();
        const struct {
            const char* name;
            qint64 pid;
            QString host;
            QByteArray boot;
            qint64 age;
            bool taken;
        } cases[] = {
            {"dead here", dead, here, boot, 10, true},
            {"alive here", alive, here, boot, 120, false},
            {"a copy of this machine", dead, here, "boot", 120, false},
            {"fresh elsewhere", dead, away, boot, 120, false},
            {"old elsewhere", alive, away, "boot", stale, true},
            {"dated wrongly", alive, away, "boot", -stale, true},
        };
        support::forEach(cases, [](const auto& one) {
            Folder folder;
            const QByteArray left = folder.leave(one.pid, one.host, one.boot, one.age);
            SeatLock seat;
            const QString text = refusal(seat, folder.path());
            QCOMPARE(text.isEmpty(), one.taken);
            QCOMPARE(seat.isHeld(), one.taken);
            QVERIFY(one.taken || (text.contains(one.host) && folder.text() == left));
            seat.giveBack();
            QCOMPARE(QDir(folder.path()).isEmpty(), one.taken);  // nothing else lies about either
        });
    }

    // Nobody's clock but the file server's: here it is ten minutes off that of the seat.
    void theAgeIsTheFoldersBusiness() {
        const QString other = u"άλλο-μηχάνημα"_s;
        for (const int off : {-600, 600}) {
            Folder folder;
            SeatLock seat;
            seat.folderTime = [off](const QString&) { return QDateTime::currentDateTime().addSecs(off); };
            folder.leave(1, other, "boot", -off + 1);
            QVERIFY2(refusal(seat, folder.path()).contains(other), qPrintable(QString::number(off)));
            folder.leave(1, other, "boot", 1);
            QCOMPARE(refusal(seat, folder.path()), QString());
        }
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
        QVERIFY(refusal(sleeper, folder.path()).contains(QSysInfo::machineHostName()));
        worker.touch();
        QCOMPARE(folder.text(), his);
    }

    void aServerHasRoomForAllAndAFileHasNot() {
        const QByteArray server = "host=a\ndatabase=b\n", damaged = "x";
        const struct {
            const char* name;
            QByteArray main, users;
            bool held;
        } cases[] = {
            {"both on a server", server, server, false},
            {"users in a file", server, damaged, true},
            {"main in a file", damaged, server, true},
            {"damaged", damaged, damaged, true},
        };
        support::forEach(cases, [](const auto& one) {
            Folder folder;
            support::write(folder.directory.filePath(u"dorvalist.mdb"_s), one.main);
            support::write(folder.directory.filePath(u"dorvalistu.mdb"_s), one.users);
            SeatLock seat;
            seat.take(folder.path(), network);
            QCOMPARE(seat.isHeld(), one.held);
        });
    }

    void thisMachinesScratchFolderIsLocal() {
        QCOMPARE(platform::fileSystemKind(QDir::tempPath()), FileSystemKind::Local);
        QCOMPARE(platform::fileSystemKind("/πουθενά"), FileSystemKind::Local);
    }
};

QTEST_GUILESS_MAIN(TestSeatLock)
#include "test_seatlock.moc"
