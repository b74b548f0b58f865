// Tasks: their editor, their list, two seats at one task, and what was being typed when the program went away.
#include <QStatusBar>

#include "core/draftoffer.h"
#include "diaryoffice.h"
#include "support/cases.h"

using namespace support;

namespace {

const QString save = "lblClick(0)", cancel = "lblClick(1)", leave = "lblClick(2)";
const QString gone = "Η συγκεκριμένη συνάντηση έχει ακυρωθεί !", deleting = "Να συνεχίσω με διαγραφή της Εργασίας;",
              unsaved = "Η εργασία έχει αλλαγές που δεν αποθηκεύτηκαν.";

// The task stands between two others in the list.
struct Tasks : DiarySite {
    Tasks() {
        addUser("Μαρία");
        addUser("Ορέστης");
        again();
    }
    // As it was at first, for the next case: to make an office on a server takes long.
    void again() {
        main.reset();
        desk.prompts.clear();
        mod.gConn.execute("delete from ThinksToDo");
        addTask("Πριν", "1");
        task = addTask("Τηλέφωνο", "2", {{"notes", "παλιές"}, {"Entoleas", "Admin"}});
        addTask("Μετά", "3");
    }
    Driver list() { return window("frmThinksToDoShow"); }
    Driver edit() {
        const Driver window = list();
        activateRow(window, window.rowOf("Τηλέφωνο"));
        return opened("frmThink");
    }
    Driver startNew() {
        list().trigger("mnuNewThink");
        return opened("frmThink");
    }
    // Clicks in the editor, and what follows from it.
    void press(const QString& button) {
        Driver(*main->windows().find("frmThink")).click(button);
        settle();
    }
    // Subject, priority, notes, owner, giver; "-" for Null.
    QString stored(qint64 aa) {
        data::Recordset row(mod.gConn, data::Sql(u"select * from ThinksToDo where aa=?"_s, aa));
        if (row.isEmpty()) return "none";
        QStringList values;
        for (const char16_t* column : {u"Subject", u"Priority", u"notes", u"User", u"Entoleas"})
            values << (row[column].value().isNull() ? u"-"_s : row[column].text());
        return values.join('|');
    }
    QString stored() { return stored(task); }
    QString newest() { return stored(value("select max(aa) from ThinksToDo").toLongLong()); }
    void elsewhere(const QString& sql) { OtherSeat(*this).mod.gConn.execute(sql.arg(task)); }

    qint64 task;
};

}  // namespace

class TestTasks : public QObject {
    Q_OBJECT
private slots:
    void aNewTask() {
        Tasks office;
        const Driver task = office.startNew();
        QCOMPARE(task.shown("Label5"), " Καταχώρηση Νέας εργασίας !");
        QCOMPARE(task.shown("Combo1") + task.shown("Combo2"), "5Μαρία");
        QVERIFY(office.list().window().isEnabled());
        struct Case {
            QString name, subject, priority, complaint, field;
        };
        const Case cases[] = {{"nothing", "", "", "Δεν έχετε συμπληρώσει το θέμα της εργασίας!", "txtSubject"},
                              {"no subject", "", "5", "Δεν έχετε συμπληρώσει το θέμα της εργασίας!", "txtSubject"},
                              {"no priority", "Θέμα", "", "Δεν έχετε επιλέξει την προτεραιότητα!", "Combo1"}};
        forEach(cases, [&](const Case& c) {
            task.type("txtSubject", c.subject);
            task.type("Combo1", c.priority);
            task.find("txtNotes")->setFocus();
            office.press(save);
            QCOMPARE(office.desk.prompts.lastText(), c.complaint);
            QCOMPARE(task.focused(), c.field);
            QCOMPARE(office.count("ThinksToDo"), 3);
        });
        task.type("txtSubject", "Θέμα 'α' %");
        task.type("Combo1", "7");
        task.type("txtNotes", "α\nβ");
        task.type("Combo2", "Ορέστης");
        office.press(save);
        QCOMPARE(office.newest(), "Θέμα 'α' %|7|α\nβ|Ορέστης|Μαρία");
        QVERIFY(!office.isOpen("frmThink"));
        // Its list shows the user at work; he goes on there.
        QCOMPARE(office.list().column(0), QStringList({"Πριν", "Τηλέφωνο", "Μετά"}));
        QCOMPARE(QApplication::focusWidget() ? QApplication::focusWidget()->window() : nullptr, office.main.get());
        QVERIFY(office.list().window().isAncestorOf(QApplication::focusWidget()));
        office.startNew().type("txtSubject", "Χωρίς σημειώσεις");
        office.press(save);
        QCOMPARE(office.newest(), "Χωρίς σημειώσεις|5|-|Μαρία|Μαρία");
    }

    // An edit writes what was changed, and who changed it.
    void aTaskIsChanged() {
        struct Case {
            const char *name, *column, *value, *field, *typed, *stored;
            bool keepsNotes = false;
        };
        const Case cases[] = {
            {"nothing typed", "Subject", "Τηλέφωνο", "txtSubject", "Τηλέφωνο", "Τηλέφωνο|2|παλιές|Μαρία|Μαρία"},
            {"the subject", "Subject", "Τηλέφωνο", "txtSubject", "Άλλο", "Άλλο|2|παλιές|Μαρία|Μαρία"},
            {"Null notes", "notes", nullptr, "Combo1", "4", "Τηλέφωνο|4|-|Μαρία|Μαρία"},
            {"emptied notes", "Subject", "Τηλέφωνο", "txtNotes", "", "Τηλέφωνο|2|παλιές|Μαρία|Μαρία", true},
            {"Null owner", "User", nullptr, "Combo1", "1", "Τηλέφωνο|1|παλιές|-|Μαρία"},
            {"an owner that is no user any more", "User", "Παλιός", "Combo1", "1", "Τηλέφωνο|1|παλιές|Παλιός|Μαρία"},
            {"another owner", "User", "Μαρία", "Combo2", "Admin", "Τηλέφωνο|2|παλιές|Admin|Μαρία"}};
        Tasks office;
        forEach(cases, [&](const Case& c) {
            office.again();
            office.mod.gConn.execute(data::Sql(u"update ThinksToDo set ?=? where aa=?"_s, data::Sql::name(c.column),
                                               c.value ? QVariant(QString(c.value)) : QVariant(), office.task));
            const Driver list = office.list();
            list.type("Combo1", "");
            emit list.find<QComboBox>("Combo1")->activated(0);
            list.list()->setFocus();
            const Driver task = office.edit();
            QCOMPARE(task.shown("Label5"), " Διόρθωση Συνάντησης !");
            QVERIFY(!list.window().isEnabled());
            task.type(c.field, c.typed);
            office.press(save);
            QVERIFY2(office.desk.prompts.isEmpty(), qPrintable(office.desk.prompts.lastText()));
            QCOMPARE(office.stored(), c.stored);
            QVERIFY(!office.isOpen("frmThink") && list.window().isEnabled());
            QCOMPARE(QApplication::focusWidget(), list.list());
            QCOMPARE(office.main->statusBar()->currentMessage(),
                     c.keepsNotes ? "Οι παλιές σημειώσεις της εργασίας έμειναν όπως ήταν." : "");
            QCOMPARE(list.list()->row(list.list()->currentRow()).tag.toLongLong(), office.task);
        });
    }

    void aTaskIsDeleted() {
        Tasks office;
        for (const bool inEditor : {true, false})
            for (const bool yes : {false, true}) {
                const InCase in(QString("in the editor %1, yes %2").arg(inEditor).arg(yes));
                office.again();
                const Driver list = office.list();
                if (inEditor) office.edit();
                list.list()->selectRow(1);
                office.desk.prompts.answer(yes);
                if (inEditor)
                    office.press(cancel);
                else
                    list.trigger("mnuDelThink");
                QCOMPARE(office.desk.prompts.lastText(), deleting);
                QCOMPARE(office.stored() == "none", yes);
                QCOMPARE(list.rows().size(), yes ? 2 : 3);
                QCOMPARE(office.isOpen("frmThink"), inEditor && !yes);
                QCOMPARE(list.window().isEnabled(), !inEditor || yes);
            }
        office.again();
        office.startNew().type("txtSubject", "Όχι");
        office.press(cancel);  // of a new one there is nothing to delete
        QVERIFY(office.desk.prompts.isEmpty() && !office.isOpen("frmThink"));
        QCOMPARE(office.count("ThinksToDo"), 3);
    }

    void leavingAsksForWhatWasTyped() {
        Tasks office;
        office.edit().type("txtSubject", "Άλλο");
        office.desk.prompts.answer(false);
        office.press(leave);
        QCOMPARE(office.desk.prompts.lastText().section('\n', 0, 0), unsaved);
        QCOMPARE(office.opened("frmThink").shown("txtSubject"), "Άλλο");
        // Another one from elsewhere asks, too, and a no keeps the first.
        office.desk.prompts.answer(false);
        office.mod.doors.openTask(0, nullptr);
        QCOMPARE(office.opened("frmThink").shown("txtSubject"), "Άλλο");
        office.desk.prompts.answerSave();
        office.mod.doors.openTask(0, nullptr);
        QCOMPARE(office.stored(), "Άλλο|2|παλιές|Μαρία|Μαρία");
        QCOMPARE(office.opened("frmThink").shown("txtSubject"), "");
        QVERIFY(office.list().window().isEnabled());
        office.press(leave);
        QVERIFY(!office.isOpen("frmThink"));
    }

    void theList() {
        Tasks office;
        office.addTask("Κανενός", "9", {{"User", QVariant()}, {"notes", "α"}});
        const Driver list = office.list();
        const auto choose = [&](const QString& user) {
            list.type("Combo1", user);
            emit list.find<QComboBox>("Combo1")->activated(list.find<QComboBox>("Combo1")->currentIndex());
        };
        struct Case {
            const char* name;
            QStringList rows;
        };
        const Case cases[] = {
            {"Μαρία", {"Πριν||1|Μαρία|", "Τηλέφωνο|παλιές|2|Μαρία|Admin", "Μετά||3|Μαρία|"}},
            {"", {"Πριν||1|Μαρία|", "Τηλέφωνο|παλιές|2|Μαρία|Admin", "Μετά||3|Μαρία|", "Κανενός|α|9||"}},
            {"Ορέστης", {}}};
        QCOMPARE(list.shown("Combo1"), "Μαρία");
        QCOMPARE(list.rows(), cases[0].rows);
        forEach(cases, [&](const Case& c) {
            choose(c.name);
            QCOMPARE(list.rows(), c.rows);
            QVERIFY(list.isEnabled("mnuNewThink"));
            QCOMPARE(list.isEnabled("mnuEditThink"), !c.rows.isEmpty());
            QCOMPARE(list.isEnabled("mnuDelThink"), !c.rows.isEmpty());
        });
        list.click("lblClick(0)");  // on paper the user at work, whoever is chosen
        const QStringList paper = office.desk.printers.sent.value(0).texts();
        QVERIFY(paper.contains("Τηλέφωνο") && !paper.contains("Κανενός"));
        const Driver work = office.window("frmTodayShow");
        choose("");
        list.list()->selectRow(3);
        office.desk.prompts.answer(true);
        list.trigger("mnuDelThink");
        QCOMPARE(work.column(0, "ListView2"), QStringList({"Πριν", "Τηλέφωνο", "Μετά"}));
    }

    void aTaskThatIsGoneIsTold() {
        Tasks office;
        const Driver list = office.list();
        office.elsewhere("delete from ThinksToDo where aa=%1");
        office.activateRow(list, 1);
        QCOMPARE(office.desk.prompts.lastText(), gone);
        QVERIFY(!office.isOpen("frmThink") && list.window().isEnabled());
        QCOMPARE(list.column(0), QStringList({"Πριν", "Μετά"}));
    }

    void twoSeats() {
        struct Case {
            const char *name, *elsewhere;
            QString choose;  // in the dialog of the conflict; "" when none is shown
            const char* stored;
            bool again = false;  // of a deleted task: saved as a new one
        };
        const QString mine = "optMine(0)", theirs = "optTheirs(0)";
        const Case cases[] = {
            {"another field",
             "update ThinksToDo set Priority='1',Entoleas='Ορέστης' where aa=%1",
             {},
             "Άλλο|1|παλιές|Μαρία|Μαρία"},
            {"the same field, mine", "update ThinksToDo set Subject='Ξένο' where aa=%1", mine,
             "Άλλο|2|παλιές|Μαρία|Μαρία"},
            {"the same field, theirs", "update ThinksToDo set Subject='Ξένο' where aa=%1", theirs,
             "Ξένο|2|παλιές|Μαρία|Μαρία"},
            {"deleted, and saved anew", "delete from ThinksToDo where aa=%1", {}, "Άλλο|2|παλιές|Μαρία|Μαρία", true},
            {"deleted, and left so", "delete from ThinksToDo where aa=%1", {}, "none"}};
        Tasks office;
        forEach(cases, [&](const Case& c) {
            office.again();
            office.edit().type("txtSubject", "Άλλο");
            office.elsewhere(c.elsewhere);
            const bool isGone = QString(c.elsewhere).startsWith("delete");
            if (isGone) office.desk.prompts.answer(c.again);
            if (!c.choose.isEmpty())
                inNextDialog("ConflictDialog", [&](Driver& dialog) {
                    dialog.find<QAbstractButton>(c.choose)->setChecked(true);
                    dialog.click("cmdSave");
                });
            office.press(save);
            QCOMPARE(c.again ? office.newest() : office.stored(), c.stored);
            const bool staysOpen = isGone && !c.again;
            QCOMPARE(office.isOpen("frmThink"), staysOpen);
            if (!staysOpen) return;
            QCOMPARE(office.desk.prompts.lastText(), gone + "\nΝα αποθηκευτεί ως νέα;");
            QCOMPARE(office.opened("frmThink").shown("txtSubject"), "Άλλο");
            office.desk.prompts.answer(true);  // without saving
            office.press(leave);
            QVERIFY(!office.isOpen("frmThink"));
        });
    }

    // An editor that couldn't be filled would pass for one of a new task.
    void whatCannotBeReadOpensNoEditor() {
        Tasks office;
        const qint64 date = office.addDate(day(2026, 11, 5), "09:00", "Συνάντηση");
        const Driver list = office.list(), dates = office.window("frmDatesShow");
        office.lose();
        office.activateRow(list, 1);
        QVERIFY(!office.isOpen("frmThink") && list.window().isEnabled());
        office.activateRow(dates, 0);
        QVERIFY(!office.isOpen("frmDate") && dates.window().isEnabled());
        QCOMPARE(office.desk.prompts.count(), 2);
        office.bringBack();
        QCOMPARE(office.edit().shown("txtSubject"), "Τηλέφωνο");
        office.mod.doors.openAppointment(date, nullptr);
        QCOMPARE(office.opened("frmDate").shown("txtSubject"), "Συνάντηση");
    }

    void aSaveThatFailsKeepsWhatWasTyped() {
        Tasks office;
        office.edit().type("txtSubject", "Άλλο");
        office.lose();
        office.press(save);
        QVERIFY(!office.desk.prompts.isEmpty());
        QCOMPARE(office.opened("frmThink").shown("txtSubject"), "Άλλο");
        office.bringBack();
        office.press(save);
        QCOMPARE(office.stored(), "Άλλο|2|παλιές|Μαρία|Μαρία");
        QVERIFY(!office.isOpen("frmThink"));
    }

    // The restricted group writes under its own name alone.
    void theRestrictedGroup() {
        struct Case {
            const char* name;
            QVariant owner;
            bool writable;
        };
        const Case cases[] = {{"his own", "ΜΑΡΙΑ", true}, {"another's", "Admin", false}, {"nobody's", {}, false}};
        forEach(cases, [](const Case& c) {
            Tasks office;
            office.mod.gConn.execute(data::Sql(u"update ThinksToDo set [User]=? where aa=?"_s, c.owner, office.task));
            office.restrict();
            const Driver list = office.list();
            QVERIFY(!list.isEnabled("Combo1"));
            QCOMPARE(list.rowOf("Τηλέφωνο") >= 0, c.writable);
            office.mod.doors.openTask(office.task, nullptr);
            const Driver task = office.opened("frmThink");
            QVERIFY(!task.isEnabled("Combo2") && task.isEnabled(leave));
            QCOMPARE(task.isEnabled(save), c.writable);
            QCOMPARE(task.isEnabled(cancel), c.writable);
            task.find("txtSubject")->setFocus();
            typeKeys(task.find("txtSubject"), "Χ");
            typeKeys(task.find("Combo1"), "9");
            task.key(Qt::Key_F5);
            office.settle();
            QCOMPARE(office.stored().startsWith("Τηλέφωνο|2"), !c.writable);
            QCOMPARE(office.isOpen("frmThink"), !c.writable);
        });
        Tasks office;
        office.restrict();
        const Driver task = office.startNew();
        QCOMPARE(task.shown("Combo2"), "Μαρία");
        task.type("txtSubject", "Δική του");
        office.press(save);
        QCOMPARE(office.newest(), "Δική του|5|-|Μαρία|Μαρία");
        office.list().list()->selectRow(0);
        office.desk.prompts.answer(true);
        office.list().trigger("mnuDelThink");
        QCOMPARE(office.count("ThinksToDo"), 3);
    }

    void theNextLogonGoesOn() {
        struct Case {
            const char* name;
            bool isNew;
            const char* elsewhere;
            const char* stored;
            int count;
            bool conflict = false;
        };
        const Case cases[] = {{"a new task", true, "", "Άλλο|5|-|Ορέστης|Μαρία", 4},
                              {"a changed task", false, "", "Άλλο|2|παλιές|Ορέστης|Μαρία", 3},
                              {"changed elsewhere", false, "update ThinksToDo set Priority='1' where aa=%1",
                               "Άλλο|1|παλιές|Ορέστης|Μαρία", 3},
                              {"the same field elsewhere", false, "update ThinksToDo set Subject='Ξένο' where aa=%1",
                               "Άλλο|2|παλιές|Ορέστης|Μαρία", 3, true},
                              {"gone", false, "delete from ThinksToDo where aa=%1", "Άλλο|2|παλιές|Ορέστης|Μαρία", 3}};
        Tasks office;
        forEach(cases, [&](const Case& c) {
            office.again();
            const Driver task = c.isNew ? office.startNew() : office.edit();
            task.type("txtSubject", "Άλλο");
            task.type("Combo2", "Ορέστης");
            office.mod.drafts.writeAll();
            office.main.reset();
            if (*c.elsewhere) office.elsewhere(c.elsewhere);
            office.logOn();
            office.desk.prompts.answerChoice("Ναι");
            core::offerDrafts(office.mod, office.main->windows(), office.main.get());
            QVERIFY(office.desk.prompts.lastText().startsWith("Υπάρχει εργασία που δεν αποθηκεύτηκε (Άλλο, "));
            QCOMPARE(office.opened("frmThink").shown("Combo2"), "Ορέστης");
            if (c.conflict) inNextDialog("ConflictDialog", [](Driver& dialog) { dialog.click("cmdSave"); });
            office.press(save);
            QVERIFY2(office.desk.prompts.count() == 1, qPrintable(office.desk.prompts.lastText()));
            QCOMPARE(c.isNew || office.stored() == "none" ? office.newest() : office.stored(), c.stored);
            QCOMPARE(office.count("ThinksToDo"), c.count);
            QVERIFY(QDir(office.mod.drafts.folder).isEmpty());
        });
    }
};

QTEST_MAIN(TestTasks)
#include "test_tasks.moc"
