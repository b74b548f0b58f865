// The lists of the diary: appointments of a period, cards that fall due, the work of today, who celebrates.
#include <QCheckBox>
#include <QHeaderView>
#include <QTimer>

#include "diary/due.h"
#include "diaryoffice.h"
#include "schema/tablewriter.h"
#include "support/cases.h"

using namespace support;

namespace {

const QDateTime today = day(2026, 11, 5);  // where the clock stands

struct Appointments : DiarySite {
    Appointments() {
        for (const char* name : {"Μαρία", "Ορέστης", "O'Neil"}) addUser(name);
        addDate(today.addDays(8), "09:00", "Μετά");
        addDate(today.addDays(7), "09:00", "Όγδοη μέρα", {{"User", "O'Neil"}});
        first = addDate(today, "14:30", "Έλεγχος",
                        {{"contact", "Σκίννερ"},
                         {"Location", "Γραφείο"},
                         {"End", at("15:00")},
                         {"Entoleas", "Admin"},
                         {"Remind", at("14:00")}});
        addDate(today, "09:00", "Κανενός", {{"User", QVariant()}, {"End", QVariant()}});
        addDate(today.addDays(-1), "09:00", "Πριν");
    }
    qint64 first;
};

struct Cards : DiarySite {
    qint64 due(const QString& surname, const QVariant& last, const QVariant& frequency, const QVariant& amount = {}) {
        return addCard(surname, "Α",
                       {{"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ", last}, {"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ", frequency}, {"ΠΟΣΟ_ΚΙΝΗΣΗΣ", amount}});
    }
};

void setPeriod(const Driver& window, const QString& from, const QString& to) {
    window.find<controls::DateBox>("txtFrom")->setFormattedText(from);
    window.find<controls::DateBox>("txtTo")->setFormattedText(to);
}
QString typed(const Driver& window) {
    return window.find<controls::DateBox>("txtFrom")->text() + window.find<controls::DateBox>("txtTo")->text();
}

}  // namespace

class TestDiaryLists : public QObject {
    Q_OBJECT
private slots:
    void appointmentsOfAPeriodAndAUser() {
        Appointments office;
        const Driver list = office.window("frmDatesShow");
        QCOMPARE(typed(list), "05/11/202612/11/2026");
        QStringList users;
        for (int i = 0; i < list.find<QComboBox>("Combo1")->count(); ++i)
            users << list.find<QComboBox>("Combo1")->itemText(i);
        QCOMPARE(users, QStringList({"", "Admin", "O'Neil", "Μαρία", "Ορέστης"}));
        QVERIFY(list.rows().contains("Σκίννερ|Έλεγχος|Γραφείο|05/11/2026|14:30|15:00|Μαρία|Admin"));
        QVERIFY(list.rows().contains("|Κανενός||05/11/2026|09:00|||"));
        struct Case {
            const char *from, *to, *user;
            QStringList subjects;
            QString name = QString(from) + to + user;
        };
        const Case cases[] = {{"05/11/2026", "12/11/2026", "", {"Όγδοη μέρα", "Έλεγχος", "Κανενός"}},
                              {"05/11/2026", "12/11/2026", "O'Neil", {"Όγδοη μέρα"}},
                              {"04/11/2026", "04/11/2026", "Μαρία", {"Πριν"}},
                              {"05/11/2026", "13/11/2026", "Μαρία", {"Μετά", "Έλεγχος"}},
                              {"05/11/2026", "13/11/2026", "Ορέστης", {}},
                              {"12/11/2026", "05/11/2026", "", {}}};
        forEach(cases, [&](const Case& c) {
            const QStringList before = list.rows();
            setPeriod(list, c.from, c.to);
            list.type("Combo1", c.user);
            QCOMPARE(list.rows(), before);
            list.click("lblClick(0)");
            QCOMPARE(list.column(1), c.subjects);
        });
        QVERIFY(office.desk.prompts.isEmpty());
        // On paper the user at work, whoever is chosen.
        setPeriod(list, "05/11/2026", "12/11/2026");
        list.type("Combo1", "O'Neil");
        list.click("lblClick(1)");
        const QStringList paper = office.desk.printers.sent.value(0).texts();
        QVERIFY(paper.contains("Έλεγχος") && !paper.contains("Όγδοη μέρα") && !paper.contains("Μετά"));
    }

    // The text is of the appointments, whatever the date; what others save doesn't wait for it.
    void aDateThatIsNone() {
        Appointments office;
        const Driver list = office.window("frmDatesShow"), visits = office.window("frmLigounShow");
        const Driver work = office.window("frmTodayShow");
        QCOMPARE(work.column(1), QStringList("Έλεγχος"));
        for (const char* none : {"__/__/____", "31/02/2026"}) {
            const InCase in(none);
            for (const Driver& window : {list, visits, work}) setPeriod(window, "01/11/2026", none);
            for (const auto& [window, of] : {std::pair(list, "συναντήσεων"), {visits, "επισκέψεων"}})
                for (const char* button : {"lblClick(0)", "lblClick(1)"}) {
                    window.click(button);
                    QVERIFY(office.desk.prompts.lastText().contains(of));
                    office.desk.prompts.clear();
                }
            QCOMPARE(list.rows().size(), 3);
            const int beeps = office.desk.sound.beeps;
            work.click("cmdShow");
            QCOMPARE(office.desk.sound.beeps, beeps + 1);
            QCOMPARE(work.rows(), QStringList());
            office.mod.doors.appointmentsChanged();
            QVERIFY(office.desk.prompts.isEmpty());
        }
        for (const Driver& window : {list, visits, work}) {
            const int beeps = office.desk.sound.beeps;
            activate(*office.main);
            window.window().setFocus();
            office.main->windows().front(window.window().objectName());
            window.find("txtTo")->setFocus();
            QTest::keyClick(window.find("txtTo"), Qt::Key_Tab);
            QVERIFY(window.hasFocus("txtTo"));
            QVERIFY(office.desk.sound.beeps > beeps);
        }
    }

    void aClickOnAHeadMovesTheKeysAlone() {
        if (testengine::isPostgres()) return;
        struct Case {
            const char* name;
            int columns;
            QStringList keys;    // by column, "" for one that moves nothing
            const char* stored;  // the section
            QStringList defaults;
        };
        const QStringList ofDates{"Subject", "Location", "Day", "Start", "end", "", "", ""},
            byDay{"Day", "Start", "End"};
        const Case cases[] = {{"frmDatesShow", 8, ofDates, "DateQuery", byDay},
                              {"frmTodayShow", 6, ofDates, "DateQuery", byDay},
                              {"frmLigounShow", 5, ofDates, "LigounQuery", byDay},
                              {"frmThinksToDoShow",
                               5,
                               {"Subject", "Notes", "Priority", "", ""},
                               "ThinksQuery",
                               {"Priority", "Subject", "Notes"}}};
        forEach(cases, [](const Case& c) {
            Appointments office;
            office.addTask("Β", "2");
            office.addTask("Α", "1");
            const Driver window = office.window(c.name);
            const auto keys = [&] {
                return QStringList{office.mod.gSqlOrdr, office.mod.gSqlOrdr1, office.mod.gSqlOrdr2};
            };
            QCOMPARE(keys(), c.defaults);
            const QStringList rows = window.rows();
            QCOMPARE(window.list()->columns().size(), c.columns);
            for (int column = 0; column < c.columns; ++column) {
                QStringList expected = keys();
                if (!c.keys[column].isEmpty()) expected = {c.keys[column], expected[0], expected[1]};
                emit window.list()->columnClicked(column);
                QCOMPARE(keys(), expected);
                QCOMPARE(window.rows(), rows);
            }
            const QStringList last = keys();
            office.main->windows().unload(c.name);
            QStringList stored;
            for (const char* key : {"SqlOrdr", "SqlOrdr1", "SqlOrdr2"})
                stored << office.desk.settings.value(c.stored, key, {});
            QCOMPARE(stored, last);
        });
    }

    void aDoubleClickOpensWhatTheRowStandsFor() {
        struct Case {
            const char *name, *list, *opens, *box, *shows;
            bool closesTheList = false;  // to input, until the editor is gone
        };
        const Case cases[] = {{"frmDatesShow", "ListView1", "frmDate", "txtSubject", "Έλεγχος", true},
                              {"frmTodayShow", "ListView1", "frmDate", "txtSubject", "Έλεγχος"},
                              {"frmTodayShow", "ListView2", "frmThink", "txtSubject", "Εργασία"},
                              {"frmTodayShow", "ListView3", "frmAddress", "Text7(0)", "Ωνάσης"},
                              {"frmLigounShow", "ListView1", "frmAddress", "Text7(0)", "Ωνάσης"},
                              {"frmNameDay", "ListView2", "frmAddress", "Text7(0)", "Ωνάσης"}};
        forEach(cases, [](const Case& c) {
            Appointments office;
            office.addTask("Εργασία", "1");
            office.addCard("Άλλος", "Α");
            office.addCard("Ωνάσης", "Α",
                           {{"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ", today.addDays(-1)}, {"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ", 1}, {"ΗΜ_ΕΟΡΤΗΣ", today}});
            office.addCard("Τρίτος", "Α");
            office.window("frmDatesShow");
            office.window("frmThinksToDoShow");
            const Driver list = office.window(c.name);
            list.list(c.list)->setFocus();
            const int column = c.opens == QString("frmDate") ? 1 : 0;
            office.activateRow(list, list.rowOf(c.shows, column, c.list), c.list);
            QCOMPARE(office.opened(c.opens).shown(c.box), c.shows);
            QCOMPARE(list.window().isEnabled(), !c.closesTheList);
            office.main->windows().unload(c.opens);
            office.settle();
            QVERIFY(list.window().isEnabled());
            QCOMPARE(QApplication::focusWidget(), list.list(c.list));
        });
    }

    void cardsFallDueSoManyDaysAfterTheirLastMovement() {
        Cards office;
        office.due("Αύριο", today, 1, 1000.5);
        office.due("Σήμερα", today.addDays(-30), 30, 234.05);
        office.due("Χωρίς ποσό", today.addDays(-2), 1);
        office.due("Μηδέν", today, 0, 0.4);
        office.due("Του 2000", day(1999, 12, 31), 1, -1);
        office.due("Του 1999", day(1999, 12, 30), 1, 7);
        office.due("Χωρίς κίνηση", QVariant(), 1, 7);
        office.due("Χωρίς συχνότητα", today, QVariant(), 7);
        office.due("Μεθαύριο", today, 2, 7);
        const auto rows = [&](QDate from, QDate to, bool withFrequency) {
            QStringList found;
            diary::Due due = diary::dueCards(office.mod.gConn, from, to, withFrequency);
            for (const controls::ListRow& row : due.rows)
                found << row.cells[0] + ' ' + row.cells[3] + ' ' + row.cells[4];
            return found << due.sum.text();
        };
        const QDate last = today.date().addDays(1);
        QCOMPARE(rows({2000, 1, 1}, last, true),
                 QStringList({"Του 2000 01/01/2000 -1,00", "Χωρίς ποσό 04/11/2026 ", "Σήμερα 05/11/2026 234,05",
                              "Αύριο 06/11/2026 1.000,50", "1.233,55"}));
        QCOMPARE(rows(today.date(), last, false), QStringList({"Σήμερα 05/11/2026 234,05", "Μηδέν 05/11/2026 0,40",
                                                               "Αύριο 06/11/2026 1.000,50", "1.234,95"}));
        QCOMPARE(rows(last, today.date(), false), QStringList("0,00"));

        const Driver list = office.window("frmLigounShow");
        QCOMPARE(list.column(0), QStringList({"Σήμερα", "Μηδέν", "Αύριο", "Μεθαύριο"}));
        QCOMPARE(list.shown("lblYpoloipo"), "1.241,95");
        setPeriod(list, "06/11/2026", "06/11/2026");
        list.click("lblClick(0)");
        QCOMPARE(list.rows(), QStringList("Αύριο|Α||06/11/2026|1.000,50"));
        list.click("lblClick(1)");
        const QStringList paper = office.desk.printers.sent.value(0).texts();
        QVERIFY(paper.contains("Αύριο") && !paper.contains("Σήμερα"));
        // Overdue ones, too, up to the end of the period; where it begins counts for nothing.
        const Driver work = office.window("frmTodayShow");
        QCOMPARE(work.column(0, "ListView3"), QStringList({"Του 2000", "Χωρίς ποσό", "Σήμερα"}));
        QCOMPARE(work.shown("lblSumTotalInc"), "233,05");
        setPeriod(work, "07/11/2026", "06/11/2026");
        work.click("cmdShow");
        QCOMPARE(work.shown("lblSumTotalInc"), "1.233,55");
        QVERIFY(work.column(0, "ListView3").contains("Αύριο"));
        office.desk.prompts.answer(true);
        office.window("frmAddress").key(Qt::Key_Delete, Qt::ControlModifier);
        QVERIFY(!work.column(0, "ListView3").contains("Αύριο"));
    }

    // More than are read at a time, many of them due on one day.
    void aLongListOfDueCardsIsWholeAndInOrder() {
        Cards office;
        constexpr int count = 4100, ofTheLastDay = 2500;
        data::Transaction transaction(office.mod.gConn);
        schema::TableWriter cards(office.mod.gConn, *schema::findTable(schema::Database::Main, u"Cards"),
                                  {"επωνυμο", "ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ", "ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ", "ΠΟΣΟ_ΚΙΝΗΣΗΣ"});
        QStringList names;
        for (int i = 0; i < count; ++i) {
            const QDateTime last = today.addDays(i < ofTheLastDay ? -1 : -2);
            cards.write({QString::number(i), last, 1, 1});
            names << QString::number((i + ofTheLastDay) % count);
        }
        transaction.commit();
        const Driver work = office.window("frmTodayShow");
        QTRY_COMPARE(work.shown("lblSumTotalInc"), "4.100,00");
        QCOMPARE(work.column(0, "ListView3"), names);
    }

    // What no sum and no calendar holds, from other programs or by a slip.
    void figuresBeyondAllMeasure() {
        Cards office;
        office.due("Μεγάλο", today, 0, 1e300);
        office.due("Σωστό", today, 0, 5);
        for (const int days : {2'000'000'000, -2'000'000'000, 3'000'000}) {
            const InCase in(QString::number(days));
            try {
                office.due("Μακριά", today, days, 7);
            } catch (const data::Error&) {
                continue;  // refused at once
            }
        }
        const Driver list = office.window("frmLigounShow");
        QVERIFY2(office.desk.prompts.isEmpty(), qPrintable(office.desk.prompts.lastText()));
        QCOMPARE(list.column(4), QStringList({"υπέρβαση", "5,00"}));
        QCOMPARE(list.shown("lblYpoloipo"), "υπέρβαση");
    }

    void theWorkOfToday() {
        Appointments office;
        office.addTask("Τρίτη", "3", {{"User", "Admin"}});
        office.addTask("Πρώτη", "1", {{"notes", "γραμμή"}, {"User", "Ορέστης"}});
        const Driver work = office.window("frmTodayShow");
        QCOMPARE(work.title(), "Τι έχω να κάνω σήμερα;    (Πέμπτη 05 Νοε 2026)");
        QCOMPARE(work.rows(), QStringList("Σκίννερ|Έλεγχος|Γραφείο|05/11/2026|14:30|15:00"));
        QCOMPARE(work.rows("ListView2"), QStringList({"Πρώτη|γραμμή|1", "Τρίτη||3"}));
        QCOMPARE(work.rows("ListView3"), QStringList());
        QCOMPARE(work.shown("lblSumTotalInc"), "0,00");
        setPeriod(work, "04/11/2026", "13/11/2026");
        work.click("cmdShow");
        QCOMPARE(work.column(1), QStringList({"Μετά", "Έλεγχος", "Πριν"}));
    }

    void theDatesOfTodayMoveAtMidnightUnlessTheyWereSet() {
        if (testengine::isPostgres()) return;
        struct Case {
            const char* name;
            QString from, to, movedTo;
            QStringList shown;
        };
        const QString old = "05/11/2026", now = "06/11/2026";
        const Case cases[] = {{"both are yesterday's", old, old, now + now, {"Αύριο"}},
                              {"a later end", old, now, old + now, {"Έλεγχος"}},
                              {"an earlier begin", "04/11/2026", old, "04/11/2026" + old, {"Έλεγχος"}},
                              {"one is being typed", "0_/__/____", old, "0_/__/____" + old, {"Έλεγχος"}}};
        forEach(cases, [&](const Case& c) {
            Appointments office;
            office.addDate(today.addDays(1), "09:00", "Αύριο");
            const Driver work = office.window("frmTodayShow");
            setPeriod(work, c.from, c.to);
            office.desk.clock.set({2026, 11, 6}, QTime(0, 0));
            work.find<QTimer>("tmrMidnight")->setInterval(1);
            QTRY_VERIFY(work.title().contains("Παρασκευή 06"));
            QCOMPARE(typed(work), c.movedTo);
            QCOMPARE(work.column(1), c.shown);
            QCOMPARE(office.desk.sound.beeps, 0);
        });
    }

    void whoCelebrates() {
        struct Case {
            const char* name;
            QDate today;
            QStringList names, cards;
        };
        const Case cases[] = {
            {"leap day", {2028, 2, 29}, {"Αλέξης", "Κασσιανός"}, {"Άλφα|Α|210|", "Βήτα|Α||697"}},
            {"the day before, without a leap day", {2027, 2, 28}, {"Μαριάννα"}, {}},
            {"day and month exchanged", {2026, 11, 1}, {}, {"Γάμμα|Α||"}},
            {"nobody", {2026, 11, 5}, {}, {}},
        };
        forEach(cases, [](const Case& c) {
            DiarySite office;
            office.mod.gConn.execute("delete from NameDay");
            for (const auto& [on, name] : {std::pair(day(1904, 2, 29), "Κασσιανός"),
                                           {day(2024, 2, 29), "Αλέξης"},
                                           {day(2000, 2, 28), "Μαριάννα"},
                                           {day(2000, 1, 11), "Θεοδόσης"}})
                office.mod.gConn.execute(
                    data::Sql(u"insert into NameDay (hmera,onoma) values (?,?)"_s, on, QString(name)));
            office.addCard("Βήτα", "Α", {{"ΗΜ_ΕΟΡΤΗΣ", day(1960, 2, 29)}, {"ΚΙΝΗΤΟ", "697"}});
            office.addCard("Άλφα", "Α", {{"ΗΜ_ΓΕΝΗΣΗΣ", day(1980, 2, 29)}, {"ΤΗΛΕΦΩΝΟ1", "210"}});
            office.addCard("Γάμμα", "Α", {{"ΗΜ_ΓΕΝΗΣΗΣ", day(1980, 11, 1)}, {"ΗΜ_ΕΟΡΤΗΣ", day(1980, 11, 1)}});
            office.addCard("Χωρίς", "Α");
            office.desk.clock.set(c.today);
            const Driver window = office.window("frmNameDay");
            QCOMPARE(window.rows(), c.names);
            QCOMPARE(window.rows("ListView2"), c.cards);
        });
        DiarySite office;
        QCOMPARE(office.window("frmNameDay").title(), "Σήμερα (Πέμπτη 05 Νοε 2026) Γιορτάζουν οι ...");
    }

    void whatOpensByItselfAtTheStart() {
        if (testengine::isPostgres()) return;
        for (const char* name : {"frmTodayShow", "frmNameDay"})
            for (const bool on : {true, false}) {
                const InCase in(name);
                DiarySite office;
                office.window(name).find<QCheckBox>("Check1")->setChecked(on);
                office.main->windows().unload(name);
                office.main.reset();
                office.logOn();
                QCOMPARE(office.isOpen(name), on);
                if (on) QVERIFY(office.opened(name).find<QCheckBox>("Check1")->isChecked());
            }
        DiaryOffice untouched;
        entry::MDIMain main(untouched.mod);
        main.load();
        activate(main);
        QVERIFY(main.windows().find("frmTodayShow") && main.windows().find("frmNameDay"));
    }

    void widthsAreKeptUnderTheirKeys() {
        if (testengine::isPostgres()) return;
        struct Case {
            const char *name, *list, *section, *key;
            int column, width;
            const char* stored;  // "" for nowhere
        };
        const Case cases[] = {{"frmDatesShow", "ListView1", "lvDates", "Location", 2, 1000, "Location"},
                              {"frmTodayShow", "ListView1", "lvDates", "Location", 2, 2000, "Location"},
                              {"frmTodayShow", "ListView2", "lvThinks", "Priority", 2, 1300, "Priotity"},
                              {"frmTodayShow", "ListView3", "lvLigoun", "Όνομα", 1, 2000, "Όνομα"},
                              {"frmLigounShow", "ListView1", "lvLigoun", "Ποσό", 4, 1000, "Ποσό"},
                              {"frmNameDay", "ListView2", "lvNameDay2", "Κινητό", 3, 2000, "Κινητό"},
                              {"frmThinksToDoShow", "ListView1", "lvThinks", "Priority", 2, 1300, "Priotity"},
                              {"frmThinksToDoShow", "ListView1", "lvDates", "Χρήστης", 3, 1000, ""}};
        forEach(cases, [](const Case& c) {
            DiarySite office;
            controls::ListView* list = office.window(c.name).list(c.list);
            QCOMPARE(list->columns()[c.column].width, c.width);
            list->header()->resizeSection(c.column, 150);
            const int dragged = list->columns()[c.column].width;
            office.main->windows().unload(c.name);
            if (*c.stored) QCOMPARE(office.desk.settings.number(c.section, c.stored, 0), dragged);
            QCOMPARE(office.desk.settings.contains(c.section, c.key), c.stored == QString(c.key));
            office.desk.settings.setNumber(c.section, c.key, 4000);
            QCOMPARE(office.window(c.name).list(c.list)->columns()[c.column].width, 4000);
        });
    }

    // A width that nobody dragged is no other list's.
    void listsOfOneSectionLeaveEachOtherTheirWidths() {
        Appointments office;
        office.window("frmTodayShow");
        office.main->windows().unload("frmTodayShow");
        QVERIFY(!office.window("frmDatesShow").list()->columns()[0].kept);
    }

    // He sees his own under his name; what is another's he can only read.
    void theRestrictedGroup() {
        Appointments office;
        office.addTask("Ξένη", "1", {{"User", "Admin"}});
        office.restrict();
        const Driver list = office.window("frmDatesShow");
        QVERIFY(!list.isEnabled("Combo1"));
        QCOMPARE(list.shown("Combo1"), "Μαρία");
        QCOMPARE(list.column(1), QStringList("Έλεγχος"));
        office.activateRow(list, 0);
        QVERIFY(office.opened("frmDate").isEnabled("lblClick(0)") && office.opened("frmDate").isEnabled("lblClick(1)"));
        office.main->windows().unload("frmDate");
        const qint64 other = office.value("select aa from dates where user='O''Neil'").toLongLong();
        office.mod.doors.openAppointment(other, nullptr);
        office.settle();
        const Driver appointment = office.opened("frmDate");
        QVERIFY(!appointment.isEnabled("lblClick(0)") && !appointment.isEnabled("lblClick(1)"));
        appointment.key(Qt::Key_F5);
        QVERIFY(office.isOpen("frmDate"));
        const Driver work = office.window("frmTodayShow");
        office.activateRow(work, 0, "ListView2");
        QVERIFY(!office.opened("frmThink").isEnabled("lblClick(0)"));
    }

    void listsShowWhatWasSaved() {
        Appointments office;
        const Driver list = office.window("frmDatesShow"), work = office.window("frmTodayShow");
        list.list()->selectRow(list.rowOf("Κανενός", 1));
        office.activateRow(work, 0);
        office.opened("frmDate").type("txtSubject", "Άλλο");
        office.opened("frmDate").key(Qt::Key_F5);
        office.settle();
        QVERIFY2(office.desk.prompts.isEmpty(), qPrintable(office.desk.prompts.lastText()));
        QCOMPARE(work.column(1), QStringList("Άλλο"));
        QVERIFY(list.column(1).contains("Άλλο"));
        QCOMPARE(list.list()->row(list.list()->currentRow()).cells[1], "Κανενός");
        office.activateRow(list, list.rowOf("Άλλο", 1));
        office.desk.prompts.answer(true);
        office.opened("frmDate").click("lblClick(1)");
        office.settle();
        QVERIFY(!list.column(1).contains("Άλλο") && work.rows().isEmpty());
        QVERIFY(list.window().isEnabled());
    }
};

QTEST_MAIN(TestDiaryLists)
#include "test_diarylists.moc"
