#include "platform/clock.h"
#include "platform/folders.h"
#include "support/cases.h"

// What the program brings along, and where it may write.
class TestDelivered : public QObject {
    Q_OBJECT

private slots:
    void sounds() {
        const std::pair<const char*, qint64> cases[] = {
            {"NIMClick.wav", 10000}, {"NIMOver.wav", 10000}, {"alarm001.wav", 200000}};
        for (const auto& [name, mostBytes] : cases) {
            const support::InCase in(name);
            QFile file(platform::programFolder() + "/sounds/" + name);
            QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
            const QByteArray bytes = file.readAll();
            QVERIFY(bytes.size() <= mostBytes);
            QVERIFY(bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WAVE");
            QCOMPARE(qint64(qFromLittleEndian<quint32>(bytes.constData() + 4)) + 8, bytes.size());
            // Neither silent nor clipped.
            const auto* samples = reinterpret_cast<const qint16*>(bytes.constData() + 44);
            const qsizetype count = (bytes.size() - 44) / 2;
            int loudest = 0;
            for (qsizetype i = 0; i < count; ++i) loudest = std::max(loudest, std::abs(int(samples[i])));
            QVERIFY(loudest > 500 && loudest < 32767);
            QVERIFY2(std::abs(int(samples[count - 1])) < 600, "ends in a crack");
        }
    }

    void workFolderIsTheUsersAlone() {
        const QString folder = platform::workFolder();
        QVERIFY(!folder.endsWith('/'));
        QFile probe(folder + "/δοκιμή.txt");
        QVERIFY(probe.open(QIODevice::WriteOnly));
        QVERIFY(probe.remove());
        QVERIFY(!(QFile::permissions(folder) & (QFile::ReadOther | QFile::ReadGroup | QFile::WriteOther)));
    }

    void clockShowsTheWall() {
        // The zone of the run is two or three hours off UTC, so a clock that answered in UTC would show here.
        const QDateTime before = QDateTime::currentDateTime();
        const QDateTime shown = platform::SystemClock().now();
        QCOMPARE(shown.timeSpec(), Qt::UTC);
        const QDateTime wall(before.date(), before.time(), Qt::UTC);
        QVERIFY(wall.secsTo(shown) >= 0 && wall.secsTo(shown) < 60);
    }
};

QTEST_GUILESS_MAIN(TestDelivered)
#include "test_delivered.moc"
