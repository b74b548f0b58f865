#include "cards/ledger.h"

#include <QTest>

using cards::Ledger;
using cards::LedgerRow;
using cards::Money;

namespace {

cards::Movement movement(qint64 id, QDate day, double debit, double credit) {
    return {id, QDateTime(day, QTime(0, 0), Qt::UTC), "Λόγος", Money::of(debit), Money::of(credit)};
}

// Rows as "date|reason|debit|credit|balance", blank rows as "".
QStringList shown(Ledger ledger) {
    QStringList lines;
    for (const LedgerRow& row : std::move(ledger).finish()) lines << row.cells.join('|').trimmed();
    return lines;
}

const QDate first(2026, 11, 1), today(2026, 11, 5);

}  // namespace

class TestLedger : public QObject {
    Q_OBJECT
private slots:
    void aMillionDimesAreExact() {
        Ledger ledger(first, today);
        for (int i = 0; i < 1'000'000; ++i) ledger.add(movement(i, QDate(2020, 1, 1), 0.1, 0));
        QCOMPARE(ledger.balance().toDouble(), 100000.0);
        QCOMPARE(ledger.balance().text(), QString("100.000,00"));
        for (int i = 0; i < 1'000'000; ++i) ledger.add(movement(i, today, 0, 0.1));
        QCOMPARE(ledger.balance().toDouble(), 0.0);
        QCOMPARE(shown(std::move(ledger)).last(), QString("|ΣΥΝΟΛΑ|0,00|100.000,00|0,00"));
    }

    void textOfAmounts_data() {
        QTest::addColumn<double>("amount");
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("stored");
        QTest::newRow("zero") << 0.0 << "0,00" << 0.0;
        QTest::newRow("cents") << 0.07 << "0,07" << 0.07;
        QTest::newRow("thousands") << 1234567.5 << "1.234.567,50" << 1234567.5;
        QTest::newRow("negative") << -999.999 << "-1.000,00" << -999.999;
        QTest::newRow("half a cent") << 2.675 << "2,68" << 2.675;
        QTest::newRow("too small to show") << -0.004 << "0,00" << -0.004;
        QTest::newRow("beyond all money") << 1e300 << "900.000.000.000.000,00" << 9e14;
        QTest::newRow("no number") << qQNaN() << "0,00" << 0.0;
    }
    void textOfAmounts() {
        QFETCH(double, amount);
        QTEST(Money::of(amount).text(), "text");
        QTEST(Money::of(amount).toDouble(), "stored");
    }

    void sumsBeyondAllMoneyStandStill() {
        Money sum;
        for (int i = 0; i < 100; ++i) sum += Money::of(9e14);
        QVERIFY(sum.toDouble() > 9e14);
        for (int i = 0; i < 300; ++i) sum -= Money::of(9e14);
        QVERIFY(sum.toDouble() < -9e14);
    }

    void typedAmounts_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QVariant>("stored");
        QTest::newRow("rounds up") << "12,345" << QVariant(12.35);
        QTest::newRow("rounds as a person reads") << "2,675" << QVariant(2.68);
        QTest::newRow("rounds down") << "0,004" << QVariant(0.0);
        QTest::newRow("whole") << "100" << QVariant(100.0);
        QTest::newRow("lone comma end") << "5," << QVariant(5.0);
        QTest::newRow("two commas") << "1,2,3" << QVariant();
        QTest::newRow("empty") << "" << QVariant();
        QTest::newRow("comma") << "," << QVariant();
        QTest::newRow("more than all money") << QString(30, u'9') << QVariant();
        QTest::newRow("endless") << QString(10000, u'9') << QVariant();
    }
    void typedAmounts() {
        QFETCH(QString, typed);
        const auto stored = cards::typedAmount(typed);
        QTEST(stored ? QVariant(*stored) : QVariant(), "stored");
    }

    void rowsOfAPeriod_data() {
        QTest::addColumn<QDate>("from");
        QTest::addColumn<QDate>("to");
        QTest::addColumn<QStringList>("rows");
        const QString october = "20/10/2026|Λόγος|100,00|0,00|100,00", start = "01/11/2026|Λόγος|50,00|0,00|150,00",
                      end = "05/11/2026|Λόγος|0,00|30,00|120,00", later = "06/11/2026|Λόγος|7,50|0,00|127,50";
        QTest::newRow("both ends count; what follows is in the balance")
            << first << today
            << QStringList{"|ΑΠΟ ΜΕΤΑΦΟΡΑ|||150,00", "", start, end, "", "|ΣΥΝΟΛΑ|50,00|30,00|127,50"};
        QTest::newRow("from the first movement: carried is its own balance")
            << QDate(2026, 10, 20) << QDate(2027, 1, 1)
            << QStringList{"|ΑΠΟ ΜΕΤΑΦΟΡΑ|||100,00", "", october, start, end, later, "", "|ΣΥΝΟΛΑ|157,50|30,00|127,50"};
        QTest::newRow("after all movements")
            << QDate(2027, 1, 1) << QDate(2027, 2, 1) << QStringList{"", "|ΣΥΝΟΛΑ|0,00|0,00|127,50"};
        QTest::newRow("upside down") << today << first << QStringList{"", "|ΣΥΝΟΛΑ|0,00|0,00|127,50"};
    }
    void rowsOfAPeriod() {
        QFETCH(QDate, from);
        QFETCH(QDate, to);
        Ledger ledger(from, to);
        ledger.add(movement(1, QDate(2026, 10, 20), 100, 0));
        ledger.add(movement(2, first, 50, 0));
        ledger.add(movement(3, today, 0, 30));
        ledger.add(movement(4, today.addDays(1), 7.5, 0));
        QTEST(shown(std::move(ledger)), "rows");
    }

    void onlyMovementsAreTagged() {
        Ledger ledger(first, today);
        ledger.add(movement(7, first, 1, 0));
        // A row without a day counts in the balance and is in no period.
        ledger.add({8, {}, {}, Money::of(5), {}});
        QCOMPARE(ledger.balance().text(), QString("6,00"));
        QVector<qint64> tags;
        for (const LedgerRow& row : std::move(ledger).finish()) tags << row.movement.value_or(0);
        QCOMPARE(tags, QVector<qint64>({0, 0, 7, 0, 0}));
    }
};

QTEST_GUILESS_MAIN(TestLedger)
#include "test_ledger.moc"
