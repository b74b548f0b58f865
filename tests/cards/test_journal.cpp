#include "cards/frmaddress.h"
#include "cards/frmhmerologio.h"
#include "cards/journal.h"
#include "main/mdimain.h"
#include "support/office.h"
#include "support/sqlitetrace.h"
#include "support/testengine.h"

using cards::JournalFilter;
using cards::JournalReader;
using support::Office;

namespace {

struct Journal : Office {
    Journal() {
        desk.settings.setValue("Settings", "Name", "Γραφείο");
        mod.gConn.execute("insert into CardKategory (Description,payable) values ('O''Neil',0)");
        category = value("select max(Code) from CardKategory").toLongLong();
        a = addCard("Άλφα", "Άννα");
        b = addCard("Βήτα", "Βάσω", {{"category", category}});
        add(a, "2026/10/31", "Ενοίκιο", 100, 0);
        add(b, "2026/11/01", "Ενοίκιο Νοεμβρίου", 50.1, 0);
        add(a, "2026/11/03 14:30:00", "100% έκπτωση", 0, 0.2);
        add(b, "2026/11/05 09:00:00", "ΕΊΣΠΡΑΞΗ", 0, 30);
        add(999, "2026/11/04", "Σβησμένης καρτέλας", 1000, 0);
    }
    void add(qint64 card, const QString& day, const QString& reason, double debit, double credit) {
        mod.gConn.execute(QString("insert into History (codecards,ΗΜΕΡΟΜΗΝΙΑ,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ,ΠΙΣΤΩΣΗ) values "
                                  "(%1,#%2#,'%3',%4,%5)")
                              .arg(card)
                              .arg(day, reason)
                              .arg(debit)
                              .arg(credit));
    }
    qint64 a = 0, b = 0, category = 0;
};

struct JournalDriver {
    explicit JournalDriver(Journal& office) : window(office.mod) {
        window.load();
        window.show();
        if (!QTest::qWaitForWindowActive(&window)) QTest::qFail("no focus", __FILE__, __LINE__);
        window.menu("MnuΗμερολόγιο")->trigger();
        form = qobject_cast<cards::frmHmerologio*>(window.windows().find("frmHmerologio"));
        settle();
    }
    void settle() { QTRY_VERIFY(!form->isReading()); }
    void list() {
        form->findChild<QAbstractButton*>("lblClick(0)")->click();
        settle();
    }
    template <typename W>
    W* find(const QString& name) {
        return form->findChild<W*>(name);
    }
    controls::ListView* rows() { return find<controls::ListView>("ListView1"); }
    QStringList reasons() {
        QStringList all;
        for (int i = 0; i < rows()->count() - 2; ++i) all << rows()->row(i).cells.value(3);
        return all;
    }
    cards::frmAddress* card() { return qobject_cast<cards::frmAddress*>(window.windows().find("frmAddress")); }

    entry::MDIMain window;
    cards::frmHmerologio* form = nullptr;
};

}  // namespace

class TestJournal : public QObject {
    Q_OBJECT
private slots:
    // However the period is cut into pieces, every movement comes once and in order.
    void aLongPeriodIsReadWholeAndOnce() {
        Journal office;
        QDate day(2020, 1, 1);
        for (int i = 0; i < 300; ++i, day = day.addDays(1 + i % 7))
            office.add(i % 2 ? office.a : office.b, day.toString("yyyy/MM/dd"), QString::number(i), 0.1, 0.01);
        JournalReader reader(office.mod.gConn, {QDate(2020, 1, 1), day, {}, {}});
        int pieces = 1;
        while (reader.step()) ++pieces;
        QVERIFY(pieces > 1);
        const auto rows = reader.takeRows();
        QCOMPARE(rows.size(), 300);
        for (int i = 0; i < rows.size(); ++i) QCOMPARE(rows[i].cells[3], QString::number(i));
        QCOMPARE(reader.debit().text(), QString("30,00"));
        QCOMPARE(reader.credit().text(), QString("3,00"));
    }

    // What is asked of the engine doesn't grow with the period: one look for the words, then either all the finds at
    // once or the days without the words.
    void wordsAreLookedUpOncePerSearch_data() {
        QTest::addColumn<QString>("reason");
        QTest::addColumn<int>("finds");
        QTest::newRow("rare") << "σπάνια" << 30;
        QTest::newRow("common") << "πληρωμή" << int(data::dialect::Translation::probeLimit) + 1;
    }
    void wordsAreLookedUpOncePerSearch() {
        QFETCH(QString, reason);
        QFETCH(int, finds);
        const QDate from(2016, 1, 1), to(2025, 12, 31);
        Journal office;
        {
            data::Transaction transaction(office.mod.gConn);
            for (int i = 0; i < finds; ++i)
                office.add(office.a, from.addDays(i % 3653).toString("yyyy/MM/dd"), "Έκτακτη " + reason, 1, 0);
            transaction.commit();
        }
        const JournalFilter filter{from, to, reason, {}};
        const auto translation = office.mod.gConn.translate(cards::journalStatement(filter, from, to));
        std::unique_ptr<support::SqliteTrace> trace;
        if (!testengine::isPostgres()) trace = std::make_unique<support::SqliteTrace>(office.mod.gConn);
        JournalReader reader(office.mod.gConn, filter);
        int pieces = 1;
        while (reader.step()) ++pieces;
        QCOMPARE(reader.takeRows().size(), finds);
        if (!trace) return;  // a server's planner chooses by itself
        const bool few = finds <= data::dialect::Translation::probeLimit;
        QCOMPARE(trace->count(translation->probe), 1);
        QCOMPARE(trace->containing("_History_words"), few ? 2 : 1);
        QCOMPARE(few, pieces == 1);
    }

    void piecesGrowUntilTheirDaysCount_data() {
        QTest::addColumn<double>("fixed");
        QTest::addColumn<double>("perDay");
        QTest::addColumn<int>("most");        // pieces
        QTest::addColumn<double>("longest");  // milliseconds
        QTest::newRow("nothing there") << 0.1 << 0.0 << 60 << 1.0;
        QTest::newRow("a few milliseconds whatever the days") << 7.0 << 0.0 << 60 << 7.0;
        QTest::newRow("twenty of them") << 20.0 << 0.0 << 60 << 20.0;
        QTest::newRow("twenty and some for each day") << 20.0 << 0.1 << 60 << 30.0;
        QTest::newRow("some for each day") << 0.1 << 0.1 << 80 << 14.0;
        QTest::newRow("busy days") << 0.1 << 7.0 << 3653 << 15.0;
        QTest::newRow("very busy days") << 0.1 << 40.0 << 3653 << 81.0;
    }
    void piecesGrowUntilTheirDaysCount() {
        QFETCH(double, fixed);
        QFETCH(double, perDay);
        cards::PieceLength length;
        QFETCH(int, most);
        QFETCH(double, longest);
        int pieces = 0;
        for (int left = 3653; left > 0; ++pieces) {
            const int days = std::min(length.days(), left);
            const double took = fixed + perDay * days;
            QVERIFY2(took <= longest, qPrintable(QString::number(took)));
            left -= days;
            length.took(took);
        }
        QVERIFY2(pieces <= most, qPrintable(QString::number(pieces)));
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
        JournalDriver journal(office);
        QCOMPARE(journal.find<controls::DateBox>("txtFrom")->formattedText(), QString("01/11/2026"));
        QStringList lines;
        for (int i = 0; i < journal.rows()->count(); ++i) lines << journal.rows()->row(i).cells.join('|');
        const QStringList expected = {"01/11/2026|Βήτα|Βάσω|Ενοίκιο Νοεμβρίου|50,10|0,00",
                                      "03/11/2026|Άλφα|Άννα|100% έκπτωση|0,00|0,20",
                                      "05/11/2026|Βήτα|Βάσω|ΕΊΣΠΡΑΞΗ|0,00|30,00", " ", " |||ΣΥΝΟΛΑ|50,10|30,20"};
        QCOMPARE(lines, expected);
        QCOMPARE(journal.find<QLabel>("Label1(3)")->text(), QString("Χρέωση: 50,10"));
        QCOMPARE(journal.find<QLabel>("lblYpoloipo")->text(), QString("Πίστωση: 30,20"));
    }

    void whatIsFound_data() {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QString>("category");
        QTest::addColumn<QString>("reason");
        QTest::addColumn<QStringList>("found");
        const QString from = "01/10/2026", to = "05/11/2026";
        QTest::newRow("word") << from << to << ""
                              << "ενοικιο" << QStringList({"Ενοίκιο", "Ενοίκιο Νοεμβρίου"});
        QTest::newRow("inside") << from << to << ""
                                << "πραξ" << QStringList{"ΕΊΣΠΡΑΞΗ"};
        QTest::newRow("category with a quote") << from << to << "O'Neil"
                                               << "" << QStringList({"Ενοίκιο Νοεμβρίου", "ΕΊΣΠΡΑΞΗ"});
        QTest::newRow("both") << from << to << "O'Neil"
                              << "ενοίκ" << QStringList{"Ενοίκιο Νοεμβρίου"};
        QTest::newRow("quote") << from << to << ""
                               << "o'n" << QStringList();
        QTest::newRow("one day") << "31/10/2026"
                                 << "31/10/2026"
                                 << ""
                                 << "" << QStringList{"Ενοίκιο"};
        QTest::newRow("empty period") << "01/01/2000"
                                      << "31/12/2000"
                                      << ""
                                      << "" << QStringList();
        QTest::newRow("upside down") << to << from << ""
                                     << "" << QStringList();
        QTest::newRow("all time") << "01/01/0100"
                                  << "31/12/9999"
                                  << ""
                                  << "νοεμ" << QStringList{"Ενοίκιο Νοεμβρίου"};
        QTest::newRow("very long word") << from << to << "" << QString(10000, u'α') << QStringList();
    }
    void whatIsFound() {
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(QString, category);
        QFETCH(QString, reason);
        Journal office;
        JournalDriver journal(office);
        journal.find<controls::DateBox>("txtFrom")->setFormattedText(from);
        journal.find<controls::DateBox>("txtTo")->setFormattedText(to);
        journal.find<QComboBox>("Combo1")->setCurrentText(category);
        auto* word = journal.find<controls::TextBox>("txtAitia");
        word->setFocus();
        word->setText(reason);
        QTest::keyClick(word, Qt::Key_Return);
        journal.settle();
        QTEST(journal.reasons(), "found");
        QVERIFY(office.desk.prompts.isEmpty());
    }

    // The card may lie before the one on show, or be newer than the card window's keys.
    void aRowOpensItsCard() {
        Journal office;
        JournalDriver journal(office);
        journal.window.menu("mnuCards")->trigger();
        const qint64 fresh = office.addCard("Ωμέγα", "Ρ");
        office.add(fresh, "2026/11/05", "Νέα", 1, 0);
        journal.list();
        for (const auto& [reason, surname] :
             {std::pair("ΕΊΣΠΡΑΞΗ", "Βήτα"), {"100% έκπτωση", "Άλφα"}, {"Νέα", "Ωμέγα"}})
            for (int i = 0; i < journal.rows()->count(); ++i)
                if (journal.rows()->row(i).cells.value(3) == QString(reason)) {
                    emit journal.rows()->rowActivated(i);
                    QCOMPARE(journal.card()->findChild<controls::TextBox*>("Text7(0)")->text(), QString(surname));
                }
        for (int i = 1; i <= 2; ++i) emit journal.rows()->rowActivated(journal.rows()->count() - i);
        QVERIFY(office.desk.prompts.isEmpty());
        journal.card()->CardEdit();
        emit journal.rows()->rowActivated(0);
        QCOMPARE(office.desk.prompts.count(), 1);
        QCOMPARE(journal.card()->findChild<controls::TextBox*>("Text7(0)")->text(), QString("Ωμέγα"));
        office.desk.prompts.answer(true);
    }

    void headersMoveTheSharedOrder() {
        Journal office;
        {
            JournalDriver journal(office);
            emit journal.rows()->columnClicked(1);
            emit journal.rows()->columnClicked(5);
            journal.settle();
            QCOMPARE(journal.reasons().size(), 3);
            journal.rows()->setColumnWidth(3, 222);
            journal.window.windows().unload("frmHmerologio");
        }
        const auto& settings = office.desk.settings;
        QCOMPARE(settings.value("DateQuery", "SqlOrdr", {}), QString("Location"));
        QCOMPARE(settings.value("DateQuery", "SqlOrdr1", {}), QString("Day"));
        QCOMPARE(settings.value("DateQuery", "SqlOrdr2", {}), QString("Start"));
        QCOMPARE(settings.number("lvHmerologio", "Αιτιολογία", 0), 222 * 15);
    }

    void faultsEndInTheBoxAndTheWindowGoesOn() {
        Journal office;
        JournalDriver journal(office);
        const QString lead =
            "Πρόβλημα κατά την επεξεργασία των δεμένων! \nΕλέγχετε τα πεδία της ημερομηνίας! \nDorvalist Error: ";
        auto* to = journal.find<controls::DateBox>("txtTo");
        to->setFormattedText("__/__/____");
        journal.list();
        QVERIFY(office.desk.prompts.lastText().startsWith(lead));
        to->setFormattedText("05/11/2026");
        office.mod.gConn.execute("delete from CardKategory where Description='O''Neil'");
        journal.find<QComboBox>("Combo1")->setCurrentText("O'Neil");
        journal.list();
        journal.find<QComboBox>("Combo1")->setCurrentText("");
        office.mod.gConn.close();
        journal.list();
        QCOMPARE(office.desk.prompts.count(), 3);
        QVERIFY(office.desk.prompts.lastText().startsWith(lead));
        QCOMPARE(journal.rows()->count(), 0);
        office.mod.gConnUsers.close();
        office.open(office.mod);
        journal.list();
        QCOMPARE(journal.reasons().size(), 3);
    }

    void leavingWhileItReadsIsHarmless() {
        Journal office;
        JournalDriver journal(office);
        journal.find<controls::DateBox>("txtFrom")->setFormattedText("01/01/0100");
        journal.form->FillList();
        journal.form->FillList();
        journal.window.windows().unload("frmHmerologio");
        QTest::qWait(50);
        QVERIFY(!journal.window.windows().find("frmHmerologio"));
    }
};

QTEST_MAIN(TestJournal)
#include "test_journal.moc"
