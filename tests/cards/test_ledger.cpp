#include "cards/ledger.h"

#include "support/cases.h"

using cards::Ledger;
using cards::LedgerRow;
using data::Money;

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
        QCOMPARE(ledger.balance().text(), "100.000,00");
        for (int i = 0; i < 1'000'000; ++i) ledger.add(movement(i, today, 0, 0.1));
        QCOMPARE(shown(std::move(ledger)).last(), "|ΣΥΝΟΛΑ|0,00|100.000,00|0,00");
    }

    void rowsOfAPeriod() {
        struct Case {
            const char* name;
            QDate from, to;
            QStringList rows;
        };
        const QString october = "20/10/2026|Λόγος|100,00|0,00|100,00", start = "01/11/2026|Λόγος|50,00|0,00|150,00",
                      end = "05/11/2026|Λόγος|0,00|30,00|120,00", later = "06/11/2026|Λόγος|7,50|0,00|127,50";
        const Case cases[] = {
            {"both ends count; what follows is in the balance",
             first,
             today,
             {"|ΑΠΟ ΜΕΤΑΦΟΡΑ|||150,00", "", start, end, "", "|ΣΥΝΟΛΑ|50,00|30,00|127,50"}},
            {"from the first movement: carried is its own balance",
             QDate(2026, 10, 20),
             QDate(2027, 1, 1),
             {"|ΑΠΟ ΜΕΤΑΦΟΡΑ|||100,00", "", october, start, end, later, "", "|ΣΥΝΟΛΑ|157,50|30,00|127,50"}},
            {"after all movements", QDate(2027, 1, 1), QDate(2027, 2, 1), {"", "|ΣΥΝΟΛΑ|0,00|0,00|127,50"}},
            {"upside down", today, first, {"", "|ΣΥΝΟΛΑ|0,00|0,00|127,50"}},
        };
        for (const Case& c : cases) {
            const support::InCase in(c.name);
            Ledger ledger(c.from, c.to);
            ledger.add(movement(1, QDate(2026, 10, 20), 100, 0));
            ledger.add(movement(2, first, 50, 0));
            ledger.add(movement(3, today, 0, 30));
            ledger.add(movement(4, today.addDays(1), 7.5, 0));
            QCOMPARE(shown(std::move(ledger)), c.rows);
        }
    }

    void onlyMovementsAreTagged() {
        Ledger ledger(first, today);
        ledger.add(movement(7, first, 1, 0));
        // A row without a day counts in the balance and is in no period.
        ledger.add({8, {}, {}, Money::of(5), {}});
        QCOMPARE(ledger.balance().text(), "6,00");
        QVector<qint64> tags;
        for (const LedgerRow& row : std::move(ledger).finish()) tags << row.movement.value_or(0);
        QCOMPARE(tags, QVector<qint64>({0, 0, 7, 0, 0}));
    }
};

QTEST_GUILESS_MAIN(TestLedger)
#include "test_ledger.moc"
