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
    void everyAlternativeOfTheCardSearchHasItsIndex() {
        const bool server = testengine::isPostgres();
        const std::pair<const char*, int> cases[] = {
            {"παπ", 9}, {"+30 6941", 14}, {"maria_p", 9}, {"παπ%ου", 9}, {"69_1", 9}};
        for (const auto& [text, alternatives] : cases) {
            const QString plan = support::planOf(office_->mod.gConn, cards::findStatement(text));
            const QString lookUp = server ? "Bitmap Index Scan on \"Cards_" : "USING INDEX Cards_";
            QVERIFY2(plan.count(lookUp) == alternatives, qPrintable(text + plan));
            QVERIFY2(!plan.contains(server ? "Seq Scan" : "SCAN"), qPrintable(text + plan));
        }
    }

    void theJournalReadsItsPeriodOrItsWords() {
        const QDate to(2026, 11, 23), month = to.addDays(-30), decade = month.addYears(-10);
        for (const auto& [reason, from, wanted] :
             {std::tuple("", month, "History_day"), {"Ε-39", decade, "_History_words"}}) {
            const QString sql = cards::journalStatement({from, to, reason, {}}, from, to);
            const QString plan = support::planOf(office_->mod.gConn, sql);
            QVERIFY2(plan.contains(wanted), qPrintable(plan));
            QVERIFY2(testengine::isPostgres() || plan.count("SCAN") == (*reason ? 1 : 0), qPrintable(plan));
        }
    }
};

QTEST_MAIN(TestSearchPlans)
#include "test_searchplans.moc"
