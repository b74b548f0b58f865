#include "cards/frmfind.h"
#include "cards/journal.h"
#include "support/office.h"
#include "support/plan.h"

using support::Office;

// The statements of the card search and the journal, as the windows compose them, meet the indexes made for them.
class TestSearchPlans : public QObject {
    Q_OBJECT

    std::unique_ptr<Office> office_;

private slots:
    void initTestCase() {
        office_ = std::make_unique<Office>();
        support::preparePlans(office_->mod.gConn, office_->mod.gConnUsers);
    }
    void cleanupTestCase() { office_.reset(); }

    // One alternative without its index, and the engine reads every card.
    void everyAlternativeOfTheCardSearchHasItsIndex_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("alternatives");
        QTest::newRow("name") << "παπ" << 9;
        QTest::newRow("number") << "+30 6941" << 14;
        QTest::newRow("one letter left open") << "maria_p" << 9;
        QTest::newRow("an end after an open middle") << "παπ%ου" << 9;
        QTest::newRow("number with an open digit") << "69_1" << 9;
    }
    void everyAlternativeOfTheCardSearchHasItsIndex() {
        QFETCH(QString, text);
        QFETCH(int, alternatives);
        const QString plan = support::planOf(office_->mod.gConn, cards::findStatement(text));
        const bool server = testengine::isPostgres();
        const QString lookUp = server ? "Bitmap Index Scan on \"Cards_" : "USING INDEX Cards_";
        QVERIFY2(plan.count(lookUp) == alternatives, qPrintable(plan));
        QVERIFY2(!plan.contains(server ? "Seq Scan" : "SCAN"), qPrintable(plan));
    }

    void theJournalReadsItsPeriodOrItsWords_data() {
        QTest::addColumn<QString>("reason");
        QTest::addColumn<int>("years");
        QTest::addColumn<QString>("wanted");
        QTest::newRow("a month") << "" << 0 << "History_day";
        QTest::newRow("a word in ten years") << "Ε-39" << 10 << "_History_words";
    }
    void theJournalReadsItsPeriodOrItsWords() {
        QFETCH(QString, reason);
        QFETCH(int, years);
        QFETCH(QString, wanted);
        const QDate to(2026, 11, 23), from = to.addYears(-years).addDays(-30);
        const QString plan =
            support::planOf(office_->mod.gConn, cards::journalStatement({from, to, reason, {}}, from, to));
        QVERIFY2(plan.contains(wanted), qPrintable(plan));
        QVERIFY2(testengine::isPostgres() || plan.count("SCAN") == (reason.isEmpty() ? 0 : 1), qPrintable(plan));
    }
};

QTEST_MAIN(TestSearchPlans)
#include "test_searchplans.moc"
