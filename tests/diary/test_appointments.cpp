// The calendar, the appointment's editor and the reminder, in the whole program.
#include <QMdiArea>
#include <QMdiSubWindow>

#include "cards/frmaddress.h"
#include "controls/cellgrid.h"
#include "controls/theme.h"
#include "core/draftoffer.h"
#include "diary/frmcalend.h"
#include "diary/frmdate.h"
#include "diaryoffice.h"
#include "support/cases.h"

using controls::CellGrid;
using controls::CellRole;
using support::Driver;

namespace {

const QDate today(2026, 11, 5);

struct Site : support::DiarySite {
    explicit Site(int group = core::groupAdministrators, const QString& user = "Admin") {
        mod.gUserGroup = group;
        mod.gUserName = user;
        logOn();
    }
    bool isOpen(const QString& name) {
        settle();
        return DiarySite::isOpen(name);
    }
    QString inFront() const {
        const QMdiSubWindow* frame = main->findChild<QMdiArea*>()->activeSubWindow();
        return frame ? frame->widget()->objectName() : QString();
    }
    qint64 add(const QVariantMap& values, QDate day = today) {
        return DiarySite::add("Dates",
                              {{"Day", data::wallClock(day)},
                               {"contact", "Παπαδοπούλου"},
                               {"Subject", "Έλεγχος"},
                               {"Start", "09:00"},
                               {"End", "10:00"},
                               {"Remind", "08:30"},
                               {"User", "Admin"}},
                              values);
    }
    // The half hour's row, activated as a double click does.
    void startAt(int slot) {
        auto* planner = window("frmCalend").find<CellGrid>("MSFlexGrid2");
        planner->setCurrentCell(slot, 0);
        QTest::keyClick(planner, Qt::Key_Return);
    }
    QString stored(qint64 aa, const QString& column) {
        return text(QString("select [%1] from dates where aa=%2").arg(column).arg(aa));
    }
};

CellRole roleOf(const Driver& calendar, const QString& day) {
    auto* grid = calendar.find<CellGrid>("MSFlexGrid1");
    for (int row = 0; row < grid->rowCount(); ++row)
        for (int column = 0; column < 7; ++column)
            if (grid->cell(row, column).text == day) return grid->cell(row, column).role;
    qFatal("no such day");
}

void clickDay(const Driver& calendar, const QString& day) {
    auto* grid = calendar.find<CellGrid>("MSFlexGrid1");
    for (int row = 0; row < grid->rowCount(); ++row)
        for (int column = 0; column < 7; ++column)
            if (grid->cell(row, column).text == day) emit grid->cellActivated(row, column);
}

}  // namespace

class TestAppointments : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { controls::applyTheme(*qApp, controls::ThemeKind::Light); }

    void theCalendarShowsADay() {
        Site site;
        site.add({{"Start", "09:10"}, {"End", "10:10"}});
        site.add({{"Start", "08:00"}, {"User", "Μαρία"}});
        site.add({{"User", QVariant()}}, today.addDays(1));
        const Driver calendar = site.window("frmCalend");
        QCOMPARE(calendar.shown("lblDate"), "Πέμπτη, 5 Νοε 2026");
        QCOMPARE(calendar.shown("MonthYear"), "Νοέμβριος 2026");
        QCOMPARE(calendar.focused(), "MSFlexGrid1");
        QCOMPARE(calendar.rows(), QStringList("09:10|10:10|Παπαδοπούλου|Έλεγχος|Admin"));
        auto* planner = calendar.find<CellGrid>("MSFlexGrid2");
        QCOMPARE(planner->cell(18, 0).role, CellRole::Free);
        QCOMPARE(planner->cell(19, 0).role, CellRole::BusyTime);
        QCOMPARE(planner->cell(20, 1).role, CellRole::BusyText);
        QCOMPARE(planner->cell(19, 0).spoken, "09:30, κλεισμένο: Παπαδοπούλου, Έλεγχος");
        QCOMPARE(planner->cell(19, 1).toolTip, "Παπαδοπούλου, Έλεγχος");

        // Nobody chosen: everybody's, and back to today from another day.
        clickDay(calendar, "6");
        QVERIFY(calendar.rows().isEmpty());
        calendar.type("Combo1", "");
        emit calendar.find<QComboBox>("Combo1")->activated(0);
        QCOMPARE(calendar.column(0), (QStringList{"08:00", "09:10"}));
        clickDay(calendar, "6");
        QCOMPARE(calendar.rows(), QStringList("09:00|10:00|Παπαδοπούλου|Έλεγχος|"));
    }

    void theMonthIsTurnedAndADayChosen() {
        Site site;
        site.add({}, {2026, 12, 24});
        const Driver calendar = site.window("frmCalend");
        QCOMPARE(roleOf(calendar, "5"), CellRole::Today);
        clickDay(calendar, "5");
        clickDay(calendar, "6");
        QCOMPARE(roleOf(calendar, "6"), CellRole::Selected);
        QCOMPARE(roleOf(calendar, "5"), CellRole::Plain);
        calendar.click("cmdNext");
        QCOMPARE(calendar.shown("MonthYear"), "Δεκέμβριος 2026");
        QCOMPARE(calendar.shown("lblDate"), "Παρασκευή, 6 Νοε 2026");
        auto* grid = calendar.find<CellGrid>("MSFlexGrid1");
        QCOMPARE(grid->cell(3, 3).text, "24");
        QVERIFY(grid->cell(3, 3).dot && !grid->cell(3, 4).dot);
        QCOMPARE(grid->cell(3, 3).spoken, "Πέμπτη 24 Δεκεμβρίου 2026, με συναντήσεις");
        QTest::keyClick(grid, Qt::Key_PageDown);
        QCOMPARE(calendar.shown("MonthYear"), "Ιανουάριος 2027");
        calendar.click("Label2");
        QCOMPARE(calendar.shown("lblDate"), "Πέμπτη, 5 Νοε 2026");
        QCOMPARE(roleOf(calendar, "5"), CellRole::Today);
    }

    void aNewAppointmentFromTheCardToTheCard() {
        Site site;
        const qint64 code = site.addCard("Παπάς", "Νίκος");
        const Driver card = site.window("frmAddress");
        card.click("cmdNewAppoiment");
        QVERIFY(site.isOpen("frmCalend"));
        site.startAt(18);
        site.window("frmDate").click("lblClick(1)");  // another half hour is chosen
        QVERIFY(!site.isOpen("frmDate") && site.isOpen("frmCalend"));
        site.startAt(19);
        const Driver editor = site.window("frmDate");
        QVERIFY(!site.main->windows().find("frmCalend")->isEnabled());
        QCOMPARE(editor.shown("txtContact"), "Παπάς Νίκος");
        QCOMPARE(editor.shown("lblDate"), "05/11/2026");
        QCOMPARE(editor.shown("txtStart") + editor.shown("txtEnd") + editor.shown("txtRemind"), "09:3010:0009:00");
        QCOMPARE(editor.shown("Combo1"), "Admin");
        editor.type("txtSubject", "O'Neil");
        editor.click("lblClick(0)");
        QVERIFY(!site.isOpen("frmDate") && !site.isOpen("frmCalend"));
        QCOMPARE(card.rows("ListView3"), QStringList("O'Neil||05/11/2026|09:30|10:00|"));
        QCOMPARE(site.stored(1, "codecard"), QString::number(code));
        QCOMPARE(site.stored(1, "Start") + site.stored(1, "Remind") + site.stored(1, "Entoleas"),
                 "09:30:0009:00:00Admin");
        QCOMPARE(site.text("select day from dates"), "05/11/2026");
    }

    void whatCanNotBeSavedIsToldAtItsField() {
        Site site;
        site.window("frmCalend");
        site.startAt(18);
        const Driver editor = site.window("frmDate");
        support::activate(*site.main);
        const struct {
            const char *name, *value, *text, *focus;
        } cases[] = {{"txtContact", "", "Δεν έχετε συμπληρώσει την επαφή της συνάντησης!", "txtContact"},
                     {"txtContact", "Α", "Δεν έχετε συμπληρώσει το θέμα της συνάντησης!", "txtSubject"},
                     {"txtSubject", "Θ", nullptr, nullptr},
                     {"txtStart", "9 και", "Δεν έχετε συμπληρώσει σωστά την ώρα έναρξης συνάντησης!", "txtStart"},
                     {"txtStart", "5/11/2026", "Δεν έχετε συμπληρώσει σωστά την ώρα έναρξης συνάντησης!", "txtStart"},
                     {"txtStart", "9:00",
                      "Η ώρα τέλους συνάντησης δεν πρέπει να είναι πριν την ώρα έναρξης συνάντησης!", "txtRemind"},
                     {"txtStart", "09:00", nullptr, nullptr},
                     {"txtEnd", "", "Δεν έχετε συμπληρώσει σωστά την ώρα τέλους συνάντησης!", "txtEnd"},
                     {"txtEnd", "09:00", nullptr, nullptr},
                     {"txtRemind", "", "Δεν έχετε συμπληρώσει σωστά την ώρα υπενθύμησης συνάντησης!", "txtRemind"}};
        support::forEach(cases, [&](const auto& one) {
            editor.type(one.name, one.value);
            if (!one.text) return;
            editor.click("lblClick(0)");
            QCOMPARE(site.desk.prompts.lastText(), one.text);
            QCOMPARE(editor.focused(), one.focus);
        });
        QCOMPARE(site.count("dates"), 0);
    }

    void aClashGoesBackOrOn() {
        Site site;
        site.add({{"User", "Μαρία"}});
        site.window("frmCalend");
        site.startAt(20);
        const Driver editor = site.window("frmDate");
        editor.type("txtContact", "Α");
        editor.type("txtSubject", "Θ");
        site.desk.prompts.answer(false);
        editor.click("lblClick(0)");
        QCOMPARE(site.desk.prompts.lastText(),
                 "Υπάρχει και άλλη συνάντηση στο συγκεκριμένο διάστημα, να συνεχίση η καταχώρηση;");
        QVERIFY(site.isOpen("frmDate"));
        QCOMPARE(editor.shown("txtSubject"), "Θ");
        QCOMPARE(site.count("dates"), 1);
        site.desk.prompts.answer(true);
        editor.click("lblClick(0)");
        QVERIFY(!site.isOpen("frmDate"));
        QCOMPARE(site.count("dates"), 2);
        const Driver calendar = site.window("frmCalend");
        QVERIFY(calendar.window().isEnabled());
        QCOMPARE(calendar.column(3), QStringList("Θ"));
    }

    // Other windows stand there, too, and are older.
    void fromTheEditorBackToWhereTheKeysWere() {
        Site site;
        site.window("frmDatesShow");
        const Driver calendar = site.window("frmCalend");
        support::activate(*site.main);
        auto* planner = calendar.find<CellGrid>("MSFlexGrid2");
        QCOMPARE(planner->currentRow(), 16);
        auto* month = calendar.find<CellGrid>("MSFlexGrid1");
        QCOMPARE(month->cell(month->currentRow(), month->currentColumn()).text, "5");
        planner->setFocus();
        QTest::keyClick(planner, Qt::Key_Return);
        QVERIFY(site.isOpen("frmDate"));
        site.window("frmCalend");  // takes no input, and gives way
        QTRY_COMPARE(site.inFront(), "frmDate");
        site.window("frmDate").key(Qt::Key_Escape);
        QVERIFY(!site.isOpen("frmDate"));
        QCOMPARE(site.inFront(), "frmCalend");
        QTRY_VERIFY(planner->hasFocus());
    }

    void aPassedDayAsks() {
        Site site;
        const Driver calendar = site.window("frmCalend");
        clickDay(calendar, "4");
        site.desk.prompts.answer(false);
        site.startAt(18);
        QCOMPARE(site.desk.prompts.lastText(),
                 "Η ημερομηνία που πάτε να κλείσετε συνάντηση έχει περάσει! Να συνεχίσω;");
        QVERIFY(!site.isOpen("frmDate"));
        clickDay(calendar, "5");
        site.startAt(47);
        QCOMPARE(site.window("frmDate").shown("txtEnd"), "23:59");
    }

    // Only what was typed is written; an emptied note stays, and so does what no box shows.
    void aChangeOfARowFullOfNothing() {
        Site site;
        QString said;
        const qint64 aa = site.add({{"notes", "παλιά"},
                                    {"Location", QVariant()},
                                    {"codecard", QVariant()},
                                    {"Remind", QVariant()},
                                    {"Entoleas", "Μαρία"}});
        const Driver calendar = site.window("frmCalend");
        emit calendar.list()->rowActivated(0);
        const Driver editor = site.window("frmDate");
        site.mod.doors.say = [&](const QString& text) { said = text; };
        calendar.list()->selectTag(aa);
        QCOMPARE(editor.shown("txtRemind"), "");
        editor.type("txtRemind", "08:00");
        editor.type("txtNotes", "");
        editor.click("lblClick(0)");
        QVERIFY(!site.isOpen("frmDate"));
        QCOMPARE(calendar.list()->currentTag(), QVariant(aa));
        QCOMPARE(site.stored(aa, "notes"), "παλιά");
        QVERIFY(said.contains("σημειώσεις"));
        QVERIFY(site.value("select Location from dates").isNull() && site.value("select codecard from dates").isNull());
        QCOMPARE(site.stored(aa, "Entoleas"), "Admin");
    }

    void twoSeatsAtOneAppointment() {
        Site site;
        const qint64 aa = site.add({});
        site.mod.doors.openAppointment(aa, nullptr);
        const Driver editor = site.window("frmDate");
        editor.type("txtSubject", "δικό μου");
        site.mod.gConn.execute("update dates set Subject='δικό τους', Location='εκεί'");
        support::inNextDialog("ConflictDialog", [](Driver& dialog) { dialog.window().close(); });
        editor.click("lblClick(0)");
        QCOMPARE(site.stored(aa, "Subject"), "δικό τους");
        QCOMPARE(editor.shown("txtSubject"), "δικό μου");
        site.mod.gConn.execute("delete from dates");
        site.desk.prompts.answer(true);
        editor.click("lblClick(0)");
        QVERIFY(site.desk.prompts.lastText().startsWith("Η συγκεκριμένη συνάντηση έχει ακυρωθεί !"));
        QCOMPARE(site.text("select Subject from dates") + site.text("select day from dates"), "δικό μου05/11/2026");

        site.mod.doors.openAppointment(999, nullptr);
        QCOMPARE(site.desk.prompts.lastText(), "Η συγκεκριμένη συνάντηση έχει ακυρωθεί !");
        QVERIFY(!site.isOpen("frmDate"));
    }

    void theSheetOnPaper() {
        Site site;
        const qint64 card = site.addCard("Παπαδοπούλου", "Άννα", {{"τηλεφωνο1", "2310 123456"}});
        QString notes;
        for (int i = 0; i < 120; ++i) notes += QString("γραμμή %1\n").arg(i);
        const qint64 aa = site.add({{"codecard", card}, {"Location", "Γραφείο"}, {"notes", notes}});
        site.mod.doors.openAppointment(aa, nullptr);
        site.window("frmDate").click("cmdPrint");
        const QStringList texts = site.desk.printers.sent.last().texts();
        QCOMPARE(texts.mid(0, site.desk.owner.size()), site.desk.owner);
        for (const char* text : {"Πελάτης: Παπαδοπούλου", "Τηλέφωνο: 2310 123456", "Ημερομηνία:", "05/11/2026",
                                 "Έλεγχος", "Γραφείο", "09:00", "10:00", "γραμμή 0", "γραμμή 119"})
            QVERIFY2(texts.contains(text), text);
    }

    // The contact and its card belong together, whoever's stays.
    void aConflictAboutTheContact() {
        for (const bool mine : {true, false}) {
            const support::InCase in(mine ? "mine" : "theirs");
            Site site;
            const qint64 old = site.addCard("Παλιός", ""), theirs = site.addCard("Δικός τους", ""),
                         my = site.addCard("Δικός μου", "");
            const qint64 aa = site.add({{"codecard", old}});
            site.mod.doors.openAppointment(aa, nullptr);
            site.mod.doors.findCard = [my](QWidget*, const core::Doors::Chosen& chosen) { chosen(my, "Δικός μου"); };
            const Driver editor = site.window("frmDate");
            editor.click("CmdSearch");
            site.mod.gConn.execute(QString("update dates set contact='Δικός τους', codecard=%1").arg(theirs));
            support::inNextDialog("ConflictDialog", [mine](Driver& dialog) {
                dialog.find<QAbstractButton>(mine ? "optMine(0)" : "optTheirs(0)")->setChecked(true);
                dialog.click("cmdSave");
            });
            editor.click("lblClick(0)");
            QCOMPARE(site.stored(aa, "contact"), mine ? "Δικός μου" : "Δικός τους");
            QCOMPARE(site.stored(aa, "codecard").toLongLong(), mine ? my : theirs);
        }
    }

    void deletingAsksOnlyForARow() {
        Site site;
        const qint64 aa = site.add({});
        site.mod.doors.openAppointment(aa, nullptr);
        site.desk.prompts.answer(false);
        site.window("frmDate").click("lblClick(1)");
        QCOMPARE(site.count("dates"), 1);
        site.desk.prompts.answer(true);
        site.window("frmDate").click("lblClick(1)");
        QCOMPARE(site.count("dates"), 0);
        QVERIFY(!site.isOpen("frmDate"));
        site.window("frmCalend");
        site.startAt(18);
        site.window("frmDate").type("txtContact", "Α");
        site.window("frmDate").click("lblClick(1)");  // gives it up
        QVERIFY(!site.isOpen("frmDate"));
    }

    void anAppointmentIsMovedToAnotherDay() {
        Site site;
        const qint64 aa = site.add({});
        const Driver calendar = site.window("frmCalend");
        const struct {
            const char *name, *day;
        } cases[] = {{"6/11/2026", "06/11/2026"},
                     {"7.11.26", "07/11/2026"},
                     {"8-11-2026 14:30", "08/11/2026"},
                     {"31/02/2026", ""},
                     {"14:30", ""},
                     {"", ""}};
        support::forEach(cases, [&](const auto& one) {
            site.mod.gConn.execute("update dates set day=#2026/11/05#");
            site.mod.doors.appointmentsChanged();
            calendar.list()->selectRow(0);
            emit calendar.list()->menuRequested(0, QPoint());
            site.desk.prompts.answerInput(QString(one.name));
            calendar.trigger("mnuChangeDate");
            QCOMPARE(site.stored(aa, "day"), *one.day ? one.day : "05/11/2026");
            if (*one.day)
                QVERIFY(calendar.rows().isEmpty());
            else
                QCOMPARE(site.desk.prompts.lastText(), "Λάθος Ημερομηνία !!!");
        });
    }

    void theRestrictedGroupWritesUnderItsOwnName() {
        Site site(core::groupRestricted, "Νίκος");
        const qint64 other = site.add({}), own = site.add({{"User", "ΝΙΚΟΣ"}, {"Start", "12:00"}, {"End", "13:00"}});
        const Driver calendar = site.window("frmCalend");
        QVERIFY(!calendar.isEnabled("Combo1"));
        QCOMPARE(calendar.column(0), QStringList("12:00"));
        site.mod.doors.openAppointment(other, nullptr);
        const Driver foreign = site.window("frmDate");
        QVERIFY(!foreign.isEnabled("lblClick(0)") && !foreign.isEnabled("lblClick(1)"));
        QVERIFY(foreign.find<QLineEdit>("txtSubject")->isReadOnly());
        site.mod.doors.openAppointment(own, nullptr);
        const Driver editor = site.window("frmDate");
        QVERIFY(!editor.isEnabled("Combo1"));
        editor.type("txtSubject", "άλλο");
        editor.click("lblClick(0)");
        QCOMPARE(site.stored(own, "Subject") + site.stored(own, "User"), "άλλοΝΙΚΟΣ");
    }

    void aDraftOfAnAppointmentIsGoneOnWith() {
        Site site;
        const qint64 aa = site.add({});
        site.mod.doors.openAppointment(aa, nullptr);
        site.window("frmDate").type("txtSubject", "μισό");
        site.mod.drafts.writeAll();
        site.desk.prompts.answerChoice("Ναι");
        site.logOn();  // as after a crash: no window has closed by itself
        core::offerDrafts(site.mod, site.main->windows(), site.main.get());
        const Driver editor = site.window("frmDate");
        QCOMPARE(editor.shown("txtSubject") + editor.shown("txtContact"), "μισόΠαπαδοπούλου");
        editor.click("lblClick(0)");
        QCOMPARE(site.stored(aa, "Subject"), "μισό");
    }

    void aDraftOfANewAppointmentKeepsWhatItBeganWith() {
        Site site;
        const qint64 code = site.addCard("Παπάς", "Νίκος");
        site.window("frmAddress").click("cmdNewAppoiment");
        site.startAt(19);
        site.window("frmDate").type("txtSubject", "μισό");
        site.mod.drafts.writeAll();
        site.desk.prompts.answerChoice("Ναι");
        site.logOn();
        core::offerDrafts(site.mod, site.main->windows(), site.main.get());
        const Driver editor = site.window("frmDate");
        QCOMPARE(editor.shown("txtContact") + editor.shown("txtStart") + editor.shown("txtEnd"),
                 "Παπάς Νίκος09:3010:00");
        editor.click("lblClick(0)");
        QCOMPARE(site.stored(1, "Subject") + site.stored(1, "codecard"), "μισό" + QString::number(code));
    }

    void aReminderComesAndIsDismissed() {
        Site site;
        site.add({{"Remind", "10:31"}, {"Subject", "Έλεγχος μεγάλος"}});
        site.add({{"Remind", "10:32"}});
        site.add({{"Remind", "10:40"}, {"Subject", "χαμένη"}});
        const Driver alarm(*site.main->alarm());
        QVERIFY(!alarm.isOpen());
        const auto checkAfter = [&](int seconds) {
            site.desk.clock.advance(seconds);
            site.main->alarm()->check();
        };
        checkAfter(60);
        QVERIFY(alarm.isOpen());
        QCOMPARE(alarm.rows(), QStringList("09:00|10:00|Έλεγχος μεγάλος"));
        QCOMPARE(alarm.shown("lblAlarm"), "Έλεγχος μεγά");
        QVERIFY(site.desk.sound.played.last().endsWith("alarm001.wav"));
        checkAfter(60);
        QCOMPARE(alarm.list()->count(), 2);
        QCOMPARE(alarm.shown("lblAlarm"), "Έλεγχος μεγά");
        alarm.click("lblClick(2)");
        QVERIFY(!alarm.isOpen() && alarm.rows().isEmpty());
        QCOMPARE(alarm.shown("lblAlarm"), "Υπενθύμιση");
        checkAfter(10 * 60);
        QVERIFY(!alarm.isOpen());
        QVERIFY(site.main->findChild<QStatusBar*>()->currentMessage().contains("10:40 χαμένη"));

        site.lose();
        checkAfter(60);
        QVERIFY(site.desk.prompts.isEmpty());
        site.bringBack();
        site.add({{"Remind", "10:44"}});
        checkAfter(60);
        alarm.click("lblClick(0)");
        QVERIFY(!alarm.isOpen() && site.isOpen("frmCalend"));
    }

    // A window that is shown before the main one lies behind it.
    void aReminderAtTheStartComesAfterTheMainWindow() {
        Site site;
        site.add({{"Remind", "10:30"}});
        site.main = std::make_unique<entry::MDIMain>(site.mod);
        site.main->load();
        QVERIFY(!site.main->alarm()->isVisible());
        site.main->show();
        QTRY_VERIFY(site.main->alarm()->isVisible());
    }

    void theReminderKeepsItsPlaceFromRunToRun() {
        Site site;
        const auto place = [&] { return site.desk.settings.number("Settings", "AlarmLeft", -1); };
        QList<int> places;
        for (int run = 0; run < 3; ++run) {
            site.main->move(90, 40);
            site.main->alarm()->showFront();
            site.logOn();
            places << place();
        }
        QCOMPARE(places, QList<int>(3, places.first()));
    }
};

QTEST_MAIN(TestAppointments)
#include "test_appointments.moc"
