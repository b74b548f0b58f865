#include <QRegularExpression>

#include "schema/demo.h"
#include "scratchoffice.h"

using namespace Qt::Literals::StringLiterals;

namespace {

// The engine's own account of how it would run a statement.
struct PlanText : data::RowSink {
    QString text_;
    void beginRow() override { text_ += u'\n'; }
    void null() override {}
    void integer(qint64) override {}
    void real(double) override {}
    void text(const char* utf8, qsizetype size) override { text_ += QString::fromUtf8(utf8, size); }
    void blob(const char*, qsizetype) override {}
};

}  // namespace

// The windows' own statements meet the indexes that were made for them.
class TestIndexes : public QObject {
    Q_OBJECT

    std::unique_ptr<ScratchOffice> office_;

private slots:
    void initTestCase() {
        office_ = std::make_unique<ScratchOffice>();
        if (!testengine::isPostgres()) return;
        // A server's planner wants rows to plan for, and reads a small table whatever indexes there are.
        schema::DemoOptions options;
        options.cards = 3000;
        options.referenceDate = QDate(2026, 11, 23);
        schema::fillDemo(office_->main, office_->users, options);
        office_->main.engine().script("ANALYZE; SET enable_seqscan = off");
    }
    void cleanupTestCase() { office_.reset(); }

    void windowsStatementsUseTheirIndex_data() {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("wanted");
        QTest::newRow("all cards in order")
            << u"select code,OutlookEntryID from cards order by ΕΠΩΝΥΜΟ"_s << u"COVERING INDEX Cards_order"_s;
        QTest::newRow("list of contacts")
            << u"Select code,επωνυμο,ονομα,category,τηλεφωνο1,πολη,περιοχη,επαγγελμα,εταιρια,total from cards WHERE "
               "category=2 ORDER BY επωνυμο"_s
            << u"COVERING INDEX Cards_list"_s;
        QTest::newRow("towns") << u"Select distinct πολη from CARDS order by πολη"_s << u"COVERING INDEX Cards_town"_s;
        QTest::newRow("districts") << u"Select distinct περιοχη from CARDS order by περιοχη"_s
                                   << u"COVERING INDEX Cards_district"_s;
        const QStringList searched = {u"επωνυμο"_s,   u"ονομα"_s,     u"εταιρια"_s, u"τηλεφωνο1"_s, u"τηλεφωνο2"_s,
                                      u"τηλεφωνο3"_s, u"τηλεφωνο4"_s, u"email"_s,   u"κινητο"_s};
        QTest::newRow("card search") << u"Select [επωνυμο],[ονομα],[code] from cards where "_s +
                                            searched.join(u" like 'παπ%' or "_s) +
                                            u" like 'παπ%' ORDER BY επωνυμο,ονομα,email"_s
                                     << u"MULTI-INDEX OR"_s;
        QTest::newRow("caller") << u"Select code,photo from cards where τηλεφωνο1 ='2101' or τηλεφωνο2 ='2101' or "
                                   u"τηλεφωνο3 ='2101' or τηλεφωνο4 ='2101' or κινητο ='2101'"_s
                                << u"MULTI-INDEX OR"_s;
        const QString due = u"dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ)"_s;
        QTest::newRow("visits that fall due") << u"Select [code],"_s + due + u" as Teleytaia from CARDS where ("_s +
                                                     due + u" between #2026/11/23# and #2026/11/30# ) ORDER BY "_s + due
                                              << u"INDEX Cards_due (<expr>>? AND <expr><?)"_s;
        QTest::newRow("birthdays and name days")
            << u"Select CODE,ΟΝΟΜΑ from Cards where (day(ΗΜ_ΓΕΝΗΣΗΣ)=\"23\" and month(ΗΜ_ΓΕΝΗΣΗΣ)=\"11\") or "
               "(day(ΗΜ_ΕΟΡΤΗΣ)=\"23\" and month(ΗΜ_ΕΟΡΤΗΣ)=\"11\")  order by ΕΠΩΝΥΜΟ"_s
            << u"INDEX Cards_nameday (<expr>=? AND <expr>=?)"_s;
        QTest::newRow("a word in the long texts")
            << u"Select code from cards WHERE ΚΕΙΜΕΝΟ1 LIKE '%λέξη%' or ΚΕΙΜΕΝΟ2 LIKE '%λέξη%' order by επωνυμο"_s
            << u"SCAN _Cards_words VIRTUAL TABLE"_s;
        QTest::newRow("a word of the reason in ten years")
            << u"SELECT History.ΗΜΕΡΟΜΗΝΙΑ, Cards.code FROM Cards INNER JOIN History ON Cards.code = History.codecards "
               "where (ΗΜΕΡΟΜΗΝΙΑ between #2016/11/01# and #2026/11/23# ) and ΑΙΤΙΟΛΟΓΙΑ like '%Ε-39%' ORDER BY "
               "ΗΜΕΡΟΜΗΝΙΑ"_s
            << u"SCAN _History_words VIRTUAL TABLE"_s;
        QTest::newRow("medicines") << u"Select name,company from farmaka WHERE name LIKE '%depon%' or Company LIKE "
                                      "'%depon%' order by name"_s
                                   << u"SCAN _Farmaka_words VIRTUAL TABLE"_s;
        QTest::newRow("reminder") << u"select * from dates where day=#11/23/2026# and remind=#2026/11/23 10:30:00# and "
                                     "user='maria' order by [start],[end]"_s
                                  << u"Dates_day (Day=?)"_s;
        QTest::newRow("Outlook twin") << u"select * from cards where OutlookEntryId ='A1'"_s << u"Cards_outlook"_s;
        QTest::newRow("movements of a card")
            << u"Select * from History where codecards=5 order by ημερομηνια,aa"_s << u"History_card"_s;
        QTest::newRow("journal") << u"select * from History where ΗΜΕΡΟΜΗΝΙΑ between #2026/01/01# and #2026/01/31#"_s
                                 << u"History_day"_s;
        QTest::newRow("links of a card") << u"Select * from LINKS where codecards=5 order by ΠΕΡΙΓΡΑΦΗ,aa"_s
                                         << u"Links_card"_s;
        QTest::newRow("day") << u"select * from dates where day=#11/23/2026# and User='maria'"_s << u"Dates_day"_s;
        QTest::newRow("appointments of a card") << u"Select aa from dates where codecard=5"_s << u"Dates_card"_s;
        QTest::newRow("calls of a day") << u"Select * from calls where ΗΜΕΡΟΜΗΝΙΑ= #2026/11/23# order by -aa"_s
                                        << u"Calls_day"_s;
        QTest::newRow("calls by name") << u"Select * from calls where ονομα like 'Παπ%' order by -aa"_s
                                       << u"Calls_name"_s;
    }
    void windowsStatementsUseTheirIndex() {
        QFETCH(QString, sql);
        QFETCH(QString, wanted);
        ScratchOffice& office = *office_;
        const auto translation = office.main.translate(sql);
        PlanText plan;
        if (testengine::isPostgres()) {
            office.main.engine().query("EXPLAIN " + translation->sql, {}, &plan);
            const auto name = QRegularExpression(u"_?(Cards|History|Links|Dates|Calls|Farmaka)_\\w+"_s).match(wanted);
            QString server = name.hasMatch() ? name.captured() : u"BitmapOr"_s;
            if (server == u"Cards_list") server = u"Cards_"_s;  // a small office's card is narrow enough
            QVERIFY2(plan.text_.contains(server) && !plan.text_.contains(u"Seq Scan"), qPrintable(plan.text_));
            return;
        }
        office.main.engine().query("EXPLAIN QUERY PLAN " + translation->sql, {}, &plan);
        QVERIFY2(plan.text_.contains(wanted), qPrintable(plan.text_ + u'\n' + QString::fromUtf8(translation->sql)));
        const bool whole = wanted.startsWith(u"COVERING");
        QVERIFY2(whole || plan.text_.count(u"SCAN") == wanted.count(u"SCAN"), qPrintable(plan.text_));
    }

    void historyComesInOrderWithoutSorting() {
        ScratchOffice& office = *office_;
        PlanText plan;
        const auto translation =
            office.main.translate(u"Select * from History where codecards=5 order by ημερομηνια,aa"_s);
        const QByteArray explain = testengine::isPostgres() ? "EXPLAIN " : "EXPLAIN QUERY PLAN ";
        office.main.engine().query(explain + translation->sql, {}, &plan);
        // A server may sort the few movements of a card, but doesn't look for them.
        QVERIFY2(plan.text_.contains(u"History_card") && !plan.text_.contains(u"TEMP B-TREE"), qPrintable(plan.text_));
    }
};

QTEST_GUILESS_MAIN(TestIndexes)
#include "test_indexes.moc"
