// Two seats on one file: conflicts, locks, and a seat that dies while it saves.
#include <QProcess>

#include "roadfixture.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

class TestSeats : public QObject {
    Q_OBJECT

    std::unique_ptr<road::Office> office_;
    Connection one_, two_;

    void addRows(int count) {
        Recordset rows(one_, "select * from Cards where code=0");
        for (int i = 0; i < count; ++i) {
            rows.addNew();
            rows[u"επωνυμο"].setValue(u"Επαφή %1"_s.arg(i + 1));
            rows.update();
        }
    }

private slots:
    void init() {
        office_ = std::make_unique<road::Office>();
        one_.open(office_->connectionString(30));
        two_.open(office_->connectionString(30));
        addRows(2);
    }
    void cleanup() {
        one_.close();
        two_.close();
        office_.reset();
    }

    void sameColumn() {
        Recordset mine(one_, "select * from Cards order by code"), theirs(two_, "select * from Cards order by code");
        theirs[u"ονομα"].setValue("Άννα");
        theirs.update();
        mine[u"ονομα"].setValue("Μαρία");
        const auto error = errorOf([&] { mine.update(); });
        QVERIFY(error && error->category() == ErrorCategory::Conflict);
        QVERIFY(error->text().contains("άλλαξε"));
        QCOMPARE(error->number(), qint32(0x80040E38));
        QCOMPARE(mine[u"ονομα"].text(), "Μαρία");
        mine.cancelUpdate();
        mine.requery();
        QCOMPARE(mine[u"ονομα"].text(), "Άννα");
    }

    void differentColumns() {
        Recordset mine(one_, "select * from Cards order by code"), theirs(two_, "select * from Cards order by code");
        theirs[u"ονομα"].setValue("Άννα");
        theirs.update();
        mine[u"category"].setValue(7);
        mine[u"ονομα"].setValue(QVariant());  // as it was read: no change
        mine.update();
        mine.requery();
        QCOMPARE(mine[u"ονομα"].text(), "Άννα");
        QCOMPARE(mine[u"category"].toLong(), 7);
    }

    // All columns of every type given their own values again write nothing and clash with nobody.
    void nothingChanged() {
        one_.execute("update Cards set ΗΜ_ΓΕΝΗΣΗΣ=#1980/11/05#, FIELdnum1=0.1, category=3, ΑΝΔΡΑΣ=True, σχολια='α'");
        Recordset mine(one_, "select * from Cards order by code");
        two_.execute("update Cards set ΗΜ_ΓΕΝΗΣΗΣ=#1990/01/01#, FIELdnum1=5, category=4, ΑΝΔΡΑΣ=False, σχολια='β'");
        mine[u"ΗΜ_ΓΕΝΗΣΗΣ"].setValue("05/11/1980");
        mine[u"FIELdnum1"].setValue("0,1");
        mine[u"category"].setValue("3");
        mine[u"ΑΝΔΡΑΣ"].setValue(1);
        mine[u"σχολια"].setValue("α");
        mine.update();
        QCOMPARE(Recordset(two_, "select σχολια from Cards").field(0).text(), "β");
    }

    void deletedRow() {
        Recordset mine(one_, "select * from Cards order by code");
        two_.execute("delete from Cards where code=1");
        mine[u"ονομα"].setValue("Μαρία");
        VERIFY_FAILURE(u"διαγράφηκε", mine.update());
        mine.cancelUpdate();
        mine[u"επωνυμο"].setValue("Επαφή 1");  // nothing changes, but the row is gone
        VERIFY_ERROR(Conflict, mine.update());
        mine.cancelUpdate();
        VERIFY_ERROR(Conflict, mine.remove());
        QCOMPARE(mine.recordCount(), 2);
    }

    void lockedDatabase() {
        Recordset mine(one_, "select * from Cards order by code");
        Transaction theirs(two_);
        two_.execute("update Cards set category=1");  // a server locks rows, not the database
        mine[u"ονομα"].setValue("Μαρία");
        QElapsedTimer timer;
        timer.start();
        VERIFY_ERROR(Busy, mine.update());
        QVERIFY2(timer.elapsed() >= 25 && timer.elapsed() < 3000, qPrintable(QString::number(timer.elapsed())));
        VERIFY_ERROR(Busy, one_.execute("delete from Cards"));
        if (!testengine::isPostgres()) VERIFY_ERROR(Busy, Transaction mine_(one_));
        QCOMPARE(Recordset(one_, "select * from Cards").recordCount(), 2);  // reading goes on
        theirs.commit();
        mine.update();
        QCOMPARE(Recordset(two_, "select ονομα from Cards where code=1").field(0).text(), "Μαρία");
    }

    // A seat killed at any moment loses nothing that it reported as saved and leaves nothing half written.
    void killedWhileSaving() {
        const int kills = testengine::isPostgres() ? 20 : 100;  // there it is the server's own promise
        one_.close();
        two_.close();
        QRandomGenerator random(11);
        qint64 next = 1, reports = 0;
        QMap<qint64, qint64> saved;  // row to the last value reported
        for (int round = 0; round < kills; ++round) {
            QProcess writer;
            writer.start(QString::fromUtf8(DORV_PROGRAM), {office_->file(), QString::number(next)});
            QVERIFY(writer.waitForStarted());
            const int lines = round % 12;
            QByteArray output;
            while (output.count('\n') <= lines && writer.waitForReadyRead(20000))
                output += writer.readAllStandardOutput();
            QVERIFY2(output.count('\n') > lines, writer.readAllStandardError().constData());
            QElapsedTimer spin;
            for (spin.start(); spin.nsecsElapsed() < qint64(random.bounded(1'500'000));) {
            }
            writer.kill();
            QVERIFY(writer.waitForFinished());
            output += writer.readAllStandardOutput();
            output.truncate(output.lastIndexOf('\n'));
            for (const QByteArray& line : output.split('\n')) {
                const auto words = line.split(' ');
                if (words.size() != 2) continue;  // "ready"
                saved[words[0].toLongLong()] = words[1].toLongLong();
                next = qMax(next, words[1].toLongLong() + 1);
                ++reports;
            }
            ++next;  // the value that may be saved and was not reported
            Connection after;
            after.open(office_->connectionString());
            Recordset rows(after, "select * from Saves order by code");
            QMap<qint64, qint64> found;
            for (; !rows.eof(); rows.moveNext()) {
                QCOMPARE(rows[u"a"].toLong(), rows[u"b"].toLong());
                QCOMPARE(rows[u"notes"].actualSize(), 3000);
                found[rows[u"code"].toLong()] = rows[u"a"].toLong();
            }
            for (auto it = saved.cbegin(); it != saved.cend(); ++it)
                QVERIFY2(found.value(it.key(), -1) >= it.value(), qPrintable(QString::number(it.key())));
            if (round % 10 == 9) QCOMPARE(after.engine().damages(), QStringList());
        }
        QVERIFY(reports > kills);
    }
};

QTEST_GUILESS_MAIN(TestSeats)
#include "test_seats.moc"
