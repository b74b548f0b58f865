#include "cards/journal.h"

#include "carddriver.h"
#include "cards/frmhmerologio.h"
#include "main/mdimain.h"
#include "support/cases.h"
#include "support/sqlitetrace.h"

using namespace support;

using cards::JournalFilter;
using cards::JournalReader;

namespace {

struct Journal : CardOffice {
    Journal() {
        desk.setOwner();
        mod.gConn.execute("insert into CardKategory (Description,payable) values ('O''Neil',0)");
        a = addCard("Άλφα", "Άννα");
        b = addCard("Βήτα", "Βάσω", {{"category", value("select max(Code) from CardKategory")}});
        addMovement(a, "2026-10-31T00:00:00", "Ενοίκιο", 100, 0);
        addMovement(b, "2026-11-01T00:00:00", "Ενοίκιο Νοεμβρίου", 50.1, 0);
        addMovement(a, "2026-11-03T14:30:00", "100% έκπτωση", 0, 0.2);
        addMovement(b, "2026-11-05T09:00:00", "ΕΊΣΠΡΑΞΗ", 0, 30);
        addMovement(999, "2026-11-04T00:00:00", "Σβησμένης καρτέλας", 1000, 0);
    }
    void addOn(QDate day, qint64 card, const QString& reason, double debit, double credit) {
        addMovement(card, day.startOfDay(Qt::UTC).toString("yyyy-MM-ddTHH:mm:ss"), reason, debit, credit);
    }
    qint64 a = 0, b = 0;
};

struct JournalWindow {
    explicit JournalWindow(core::MainMod& mod) : window(mod) {
        window.load();
        activate(window);
        window.menu("MnuΗμερολόγιο")->trigger();
        form = qobject_cast<cards::frmHmerologio*>(window.windows().find("frmHmerologio"));
    }
    cards::frmAddress* card() { return qobject_cast<cards::frmAddress*>(window.windows().find("frmAddress")); }

    entry::MDIMain window;
    cards::frmHmerologio* form;
};

struct JournalDriver : JournalWindow, Driver {
    explicit JournalDriver(core::MainMod& mod) : JournalWindow(mod), Driver(*form) { settle(); }
    void settle() const { QTRY_VERIFY(!form->isReading()); }
    void show() const {
        click("lblClick(0)");
        settle();
    }
    void setPeriod(const QString& from, const QString& to) const {
        type("txtFrom", from);
        type("txtTo", to);
    }
    QStringList reasons() const { return column(3).mid(0, list()->count() - 2); }
    using JournalWindow::window;
};

// How many pieces the reader takes.
int readAll(JournalReader& reader) {
    int pieces = 1;
    while (reader.step()) ++pieces;
    return pieces;
}

}  // namespace

class TestJournal : public QObject {
    Q_OBJECT
private slots:
    // However the period is cut into pieces, every movement comes once and in order.
    void aLongPeriodIsReadWholeAndOnce() {
        Journal office;
        QDate day(2020, 1, 1);
        QStringList reasons;
        for (int i = 0; i < 300; ++i, day = day.addDays(1 + i % 7)) {
            reasons << QString::number(i);
            office.addOn(day, i % 2 ? office.a : office.b, reasons.last(), 0.1, 0.01);
        }
        JournalReader reader(office.mod.gConn, {QDate(2020, 1, 1), day, {}, {}});
        QVERIFY(readAll(reader) > 1);
        QStringList read;
        for (const auto& row : reader.takeRows()) read << row.cells[3];
        QCOMPARE(read, reasons);
        QCOMPARE(reader.debit().text(), "30,00");
        QCOMPARE(reader.credit().text(), "3,00");
    }

    // What is asked of the engine doesn't grow with the period: one look for the words, then either all the finds at
    // once or the days without the words.
    void wordsAreLookedUpOncePerSearch() {
        const QDate from(2016, 1, 1), to(2025, 12, 31);
        for (const auto& [reason, finds] :
             {std::pair("σπάνια", 30), {"πληρωμή", int(data::dialect::Translation::probeLimit) + 1}}) {
            const InCase in(reason);
            Journal office;
            data::Transaction transaction(office.mod.gConn);
            for (int i = 0; i < finds; ++i)
                office.addOn(from.addDays(i % 3653), office.a, QString("Έκτακτη ") + reason, 1, 0);
            transaction.commit();
            const JournalFilter filter{from, to, reason, {}};
            const auto translation = office.mod.gConn.translate(cards::journalStatement(filter, from, to));
            std::unique_ptr<SqliteTrace> trace;
            if (!testengine::isPostgres()) trace = std::make_unique<SqliteTrace>(office.mod.gConn);
            JournalReader reader(office.mod.gConn, filter);
            const int pieces = readAll(reader);
            QCOMPARE(reader.takeRows().size(), finds);
            if (!trace) continue;  // a server's planner chooses by itself
            const bool few = finds <= data::dialect::Translation::probeLimit;
            QCOMPARE(trace->count(translation->probe), 1);
            QCOMPARE(trace->containing("_History_words"), few ? 2 : 1);
            QCOMPARE(few, pieces == 1);
        }
    }

    void piecesGrowUntilTheirDaysCount() {
        struct Case {
            const char* name;
            double fixed, perDay;
            int most;        // pieces
            double longest;  // milliseconds
        };
        for (const Case& c : {Case{"nothing there", 0.1, 0, 60, 1},
                              {"a few milliseconds whatever the days", 7, 0, 60, 7},
                              {"twenty of them", 20, 0, 60, 20},
                              {"twenty and some for each day", 20, 0.1, 60, 30},
                              {"some for each day", 0.1, 0.1, 80, 14},
                              {"busy days", 0.1, 7, 3653, 15},
                              {"very busy days", 0.1, 40, 3653, 81}}) {
            const InCase in(c.name);
            cards::PieceLength length;
            int pieces = 0;
            for (int left = 3653; left > 0; ++pieces) {
                const int days = std::min(length.days(), left);
                const double took = c.fixed + c.perDay * days;
                QVERIFY2(took <= c.longest, qPrintable(QString::number(took)));
                left -= days;
                length.took(took);
            }
            QVERIFY2(pieces <= c.most, qPrintable(QString::number(pieces)));
        }
    }

    // A busy year behind quiet ones is met with a short piece, and left with shorter ones at once.
    void aPieceThatWasTooLongIsFollowedByShortOnes() {
        cards::PieceLength length;
        for (int i = 0; i < 20; ++i) length.took(0.1);
        const int quiet = length.days();
        QVERIFY(quiet <= 100);
        length.took(quiet * 4.0);
        QVERIFY2(length.days() <= 3, qPrintable(QString::number(length.days())));
    }

    void itOpensOnTheMonthToDate() {
        Journal office;
        JournalDriver journal(office.mod);
        QCOMPARE(journal.shown("txtFrom"), "01/11/2026");
        QCOMPARE(journal.rows(),
                 QStringList({"01/11/2026|Βήτα|Βάσω|Ενοίκιο Νοεμβρίου|50,10|0,00",
                              "03/11/2026|Άλφα|Άννα|100% έκπτωση|0,00|0,20", "05/11/2026|Βήτα|Βάσω|ΕΊΣΠΡΑΞΗ|0,00|30,00",
                              " ", " |||ΣΥΝΟΛΑ|50,10|30,20"}));
        QCOMPARE(journal.shown("Label1(3)"), "Χρέωση: 50,10");
        QCOMPARE(journal.shown("lblYpoloipo"), "Πίστωση: 30,20");
    }

    void whatIsFound() {
        struct Case {
            const char* name;
            QString from, to, category, reason;
            QStringList found;
        };
        const QString from = "01/10/2026", to = "05/11/2026", november = "Ενοίκιο Νοεμβρίου";
        const Case cases[] = {{"word", from, to, "", "ενοικιο", {"Ενοίκιο", november}},
                              {"inside", from, to, "", "πραξ", {"ΕΊΣΠΡΑΞΗ"}},
                              {"category with a quote", from, to, "O'Neil", "", {november, "ΕΊΣΠΡΑΞΗ"}},
                              {"both", from, to, "O'Neil", "ενοίκ", {november}},
                              {"quote", from, to, "", "o'n", {}},
                              {"one day", "31/10/2026", "31/10/2026", "", "", {"Ενοίκιο"}},
                              {"empty period", "01/01/2000", "31/12/2000", "", "", {}},
                              {"upside down", to, from, "", "", {}},
                              {"all time", "01/01/0100", "31/12/9999", "", "νοεμ", {november}},
                              {"very long word", from, to, "", QString(10000, u'α'), {}}};
        Journal office;
        JournalDriver journal(office.mod);
        for (const Case& c : cases) {
            const InCase in(c.name);
            journal.setPeriod(c.from, c.to);
            journal.type("Combo1", c.category);
            journal.type("txtAitia", c.reason);
            journal.find("txtAitia")->setFocus();
            QTest::keyClick(journal.find("txtAitia"), Qt::Key_Return);
            journal.settle();
            QCOMPARE(journal.reasons(), c.found);
            QVERIFY(office.desk.prompts.isEmpty());
        }
    }

    void aRenamedCategoryIsOfferedAndFound() {
        Journal office;
        JournalDriver journal(office.mod);
        journal.type("Combo1", "O'Neil");
        OtherSeat(office).mod.gConn.execute("update CardKategory set Description='Μακ' where Description='O''Neil'");
        journal.show();
        QVERIFY(office.desk.prompts.isEmpty());
        QCOMPARE(journal.reasons().size(), 2);
        auto* list = journal.find<QComboBox>("Combo1");
        list->showPopup();
        list->hidePopup();
        QCOMPARE(list->currentText(), "Μακ");
    }

    // The period was typed and its list not asked for.
    void whatIsPrintedIsOfThePeriodInTheHeading() {
        Journal office;
        JournalDriver journal(office.mod);
        journal.setPeriod("31/10/2026", "31/10/2026");
        journal.click("lblClick(1)");
        const QStringList texts = office.desk.printers.sent.value(0).texts();
        QVERIFY(texts.contains("Ενοίκιο") && !texts.contains("ΕΊΣΠΡΑΞΗ"));
        journal.find<controls::DateBox>("txtTo")->setFormattedText("__/__/____");
        journal.click("lblClick(1)");
        QVERIFY(office.desk.prompts.lastText().contains("περίοδος"));
        QCOMPARE(office.desk.printers.sent.size(), 1);
    }

    // The card may lie before the one on show, or be newer than the card window's keys.
    void aRowOpensItsCard() {
        Journal office;
        JournalDriver journal(office.mod);
        journal.window.menu("mnuCards")->trigger();
        const qint64 fresh = office.addCard("Ωμέγα", "Ρ");
        office.addMovement(fresh, "2026-11-05T00:00:00", "Νέα", 1, 0);
        journal.show();
        const Driver card(*journal.card());
        for (const auto& [reason, surname] : {std::pair("Ενοίκιο Νοεμβρίου", "Βήτα"),
                                              {"ΕΊΣΠΡΑΞΗ", "Βήτα"},
                                              {"100% έκπτωση", "Άλφα"},
                                              {"Νέα", "Ωμέγα"}}) {
            QVERIFY(journal.rowOf(reason, 3) >= 0);
            emit journal.list()->rowActivated(journal.rowOf(reason, 3));
            QCOMPARE(card.shown(card::surname), surname);
        }
        for (int i = 1; i <= 2; ++i) emit journal.list()->rowActivated(journal.list()->count() - i);
        QVERIFY(office.desk.prompts.isEmpty());
        journal.card()->CardEdit();
        emit journal.list()->rowActivated(0);
        QVERIFY(office.desk.prompts.lastText().contains("σε διόρθωση"));
        QCOMPARE(card.shown(card::surname), "Ωμέγα");
    }

    void headersMoveTheSharedOrder() {
        Journal office;
        {
            JournalDriver journal(office.mod);
            for (const int column : {1, 5}) emit journal.list()->columnClicked(column);
            journal.settle();
            QCOMPARE(journal.reasons().size(), 3);
            journal.list()->setColumnWidth(3, 222);
            journal.window.windows().unload("frmHmerologio");
        }
        const auto& settings = office.desk.settings;
        for (const auto& [key, order] : {std::pair("SqlOrdr", "Location"), {"SqlOrdr1", "Day"}, {"SqlOrdr2", "Start"}})
            QCOMPARE(settings.value("DateQuery", key, {}), order);
        QCOMPARE(settings.number("lvHmerologio", "Αιτιολογία", 0), 222 * 15);
    }

    void faultsEndInTheBoxAndTheWindowGoesOn() {
        Journal office;
        JournalDriver journal(office.mod);
        const std::pair<std::function<void()>, const char*> faults[] = {
            {[&] { journal.find<controls::DateBox>("txtTo")->setFormattedText("__/__/____"); }, "Η περίοδος"},
            {[&] {
                 journal.setPeriod("01/11/2026", "05/11/2026");
                 journal.type("Combo1", "O'Neil");
                 office.mod.gConn.execute("delete from CardKategory where Description='O''Neil'");
             },
             "Η κατηγορία «O'Neil» δεν υπάρχει πια"},
            {[&] {
                 journal.type("Combo1", "");
                 office.lose();
             },
             "Η σύνδεση"}};
        for (const auto& [fault, told] : faults) {
            fault();
            journal.show();
            QVERIFY2(office.desk.prompts.lastText().startsWith(
                         QString("Πρόβλημα κατά την επεξεργασία των δεμένων! \nΕλέγχετε τα πεδία της ημερομηνίας! \n"
                                 "Dorvalist Error: ") +
                         told),
                     qPrintable(office.desk.prompts.lastText()));
            QCOMPARE(journal.list()->count(), 0);
            QCOMPARE(journal.shown("Label1(3)") + journal.shown("lblYpoloipo"), "Χρέωση: 0,00Πίστωση: 0,00");
            if (QString(told).contains("κατηγορία")) QVERIFY(journal.find<QComboBox>("Combo1")->findText("O'Neil") < 0);
        }
        QCOMPARE(office.desk.prompts.count(), 3);
        office.bringBack();
        journal.show();
        QCOMPARE(journal.reasons().size(), 3);
    }

    void leavingWhileItReadsIsHarmless() {
        Journal office;
        office.addOn(QDate(200, 5, 5), office.a, "Παλιά", 1, 0);  // far more days than are read at once
        JournalDriver journal(office.mod);
        journal.setPeriod("01/01/0100", "05/11/2026");
        const QPointer<cards::frmHmerologio> form(journal.form);
        for (int i = 0; i < 2; ++i) journal.form->FillList();
        QVERIFY(form->isReading());
        journal.window.windows().unload("frmHmerologio");
        QVERIFY(!journal.window.windows().find("frmHmerologio"));
        QTRY_VERIFY(!form);
        QVERIFY(office.desk.prompts.isEmpty());
    }
};

QTEST_MAIN(TestJournal)
#include "test_journal.moc"
