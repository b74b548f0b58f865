#include <QCalendarWidget>
#include <QClipboard>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include "controls/datepair.h"

#include <QSignalSpy>

#include "support/cases.h"

using namespace controls;

namespace {

struct Form : QWidget {
    TextBox* before = new TextBox(this);
    DateBox* box = new DateBox(this);
    DatePicker* picker = new DatePicker(this);
    DateBox* other = new DateBox(this);
    TextBox* after = new TextBox(this);

    Form() {
        auto* layout = new QVBoxLayout(this);
        for (QWidget* widget : QWidgetList{before, box, picker, other, after}) layout->addWidget(widget);
        pairUp(box, picker);
        show();
        activateWindow();
    }
    QCalendarWidget* calendar() const { return picker->findChild<QCalendarWidget*>(); }
};

}  // namespace

class TestDatePair : public QObject {
    Q_OBJECT

    std::unique_ptr<Form> form_;

    // The popup deletes itself from the event loop.
    static void settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

private slots:
    void init() {
        form_ = std::make_unique<Form>();
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
        form_->before->setFocus();
    }
    void cleanup() { form_.reset(); }

    void blank() {
        for (const char* nothing : {"", "__/__/____", "Α/Β"}) {
            form_->box->setDate(QDate(2026, 11, 5));
            QVERIFY(!form_->box->isBlank());
            form_->box->setFormattedText(nothing);
            QVERIFY2(form_->box->isBlank() && !form_->box->date(), nothing);
            QCOMPARE(form_->box->formattedText(), "__/__/____");
            QCOMPARE(form_->box->text(), "__/__/____");
        }
    }

    void typing() {
        struct Case {
            QString typed, shown;
            QDate date;
        };
        const Case cases[] = {
            {"05112026", "05/11/2026", {2026, 11, 5}},
            {"5/1/2026", "5_/1_/2026", {2026, 1, 5}},
            {"a0b5c11x2026", "05/11/2026", {2026, 11, 5}},
            {"29022024", "29/02/2024", {2024, 2, 29}},
            {"29022026", "29/02/2026", {}},
            {"13012026", "13/01/2026", {2026, 1, 13}},
            {"01132026", "01/13/2026", {}},
            {"051126", "05/11/26__", {2026, 11, 5}},
            {"050680", "05/06/80__", {1980, 6, 5}},
            {"5/6/29", "5_/6_/29__", {2029, 6, 5}},
            {"5/6/30", "5_/6_/30__", {1930, 6, 5}},
            {"5.6.1980", "5_/6_/1980", {1980, 6, 5}},
            {"5-6-1980", "5_/6_/1980", {1980, 6, 5}},
            {"5/6/8", "5_/6_/8___", {}},
            {"05110099", "05/11/0099", {}},
            {"01010100", "01/01/0100", {100, 1, 1}},
            {"00112026", "00/11/2026", {}},
        };
        for (const Case& c : cases) {
            const support::InCase in(c.typed);
            form_->box->setFormattedText("31/12/1999");
            form_->box->setFocus(Qt::TabFocusReason);
            form_->box->selectAll();
            QTest::keyClicks(form_->box, c.typed);
            QCOMPARE(form_->box->text(), c.shown);
            QCOMPARE(form_->box->date().value_or(QDate()), c.date);
        }
    }

    void paste() {
        const std::pair<QString, const char*> cases[] = {
            {" 5/1/2026\n", "05/01/2026"}, {"5-11-2026", "05/11/2026"},
            {"05.11.2026", "05/11/2026"},  {"5/6/80", "05/06/1980"},
            {"050680", "05/06/1980"},      {"05062004", "05/06/2004"},
            {"χθες", "__/__/____"},        {QString(10000, u'x'), "__/__/____"}};
        form_->box->setFocus(Qt::TabFocusReason);
        for (const auto& [pasted, shown] : cases) {
            const support::InCase in(pasted);
            form_->box->setFormattedText("");
            QGuiApplication::clipboard()->setText(pasted);
            QTest::keySequence(form_->box, QKeySequence::Paste);
            QCOMPARE(form_->box->text(), shown);
        }
    }

    void leavingWithNoDateIsRefusedOnce() {
        bool hadFocus = false;
        connect(form_->box, &DateBox::refused, this, [&] { hadFocus = form_->box->hasFocus(); });
        QSignalSpy refused(form_->box, &DateBox::refused), accepted(form_->box, &DateBox::accepted);
        const std::function<void()> ways[] = {[&] { QTest::keyClick(form_->box, Qt::Key_Tab); },
                                              [&] { QTest::keyClick(form_->box, Qt::Key_Return); },
                                              [&] { QTest::keyClick(form_->box, Qt::Key_Backtab); },
                                              [&] { QTest::mouseClick(form_->after, Qt::LeftButton); }};
        int expected = 0;
        for (const char* text : {"", "31/02/2026", "05/11/____"}) {
            const support::InCase in(text);
            form_->box->setFormattedText(text);
            form_->box->setFocus(Qt::TabFocusReason);
            for (const auto& leave : ways) {
                hadFocus = false;
                leave();
                QVERIFY(form_->box->hasFocus() && hadFocus);
                QCOMPARE(refused.count(), ++expected);
            }
        }
        QCOMPARE(accepted.count(), 0);
    }

    void aRefusedTextIsMarkedUntilItIsMended() {
        const auto isMarked = [this] { return form_->box->property("refused").toBool(); };
        form_->other->setDate(QDate(2026, 1, 1));
        form_->box->setFocus();
        QTest::keyClicks(form_->box, "31022026");
        QVERIFY(!isMarked());
        QTest::keyClick(form_->box, Qt::Key_Return);
        QVERIFY(isMarked());
        QVERIFY(form_->box->toolTip().startsWith("Η ημερομηνία «31/02/2026» δεν υπάρχει."));
        QCOMPARE(form_->box->accessibleDescription(), form_->box->toolTip());
        form_->box->selectAll();
        QTest::keyClicks(form_->box, "280226");
        QVERIFY(!isMarked() && form_->box->toolTip().isEmpty());
        QTest::keyClick(form_->box, Qt::Key_Return);
        QCOMPARE(form_->box->text(), "28/02/2026");
        // A card that comes on show takes the mark away, whatever it brings.
        form_->box->setFocus();
        form_->box->setFormattedText("");
        QTest::keyClick(form_->box, Qt::Key_Return);
        QVERIFY(isMarked());
        QVERIFY(form_->box->toolTip().startsWith("Λείπει"));
        form_->box->setDate({});
        QVERIFY(!isMarked());
    }

    void twoBadBoxesDoNotFight() {
        form_->box->setFocus();
        QSignalSpy first(form_->box, &DateBox::refused), second(form_->other, &DateBox::refused);
        form_->other->setFocus();
        QVERIFY(form_->box->hasFocus());
        QCOMPARE(first.count(), 1);
        QCOMPARE(second.count(), 0);
        form_->box->setDate(QDate(2026, 1, 1));
        form_->other->setFocus();
        QVERIFY(form_->other->hasFocus());
        form_->box->setFocus();
        QVERIFY(form_->other->hasFocus());
        QCOMPARE(second.count(), 1);
    }

    void notRefusedWhenTheUserIsNotLeaving() {
        QSignalSpy refused(form_->box, &DateBox::refused);
        form_->box->setFocus();
        QWidget window;
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        form_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
        QVERIFY(form_->box->hasFocus());

        auto* bar = new QMenuBar(form_.get());
        bar->show();
        bar->setFocus(Qt::MenuBarFocusReason);
        QVERIFY(bar->hasFocus());
        form_->box->setFocus(Qt::MenuBarFocusReason);
        QMenu menu;
        menu.addAction("x");
        menu.popup(QPoint(0, 0));
        menu.close();

        form_->box->setEnabled(false);
        QVERIFY(!form_->box->hasFocus());
        form_->box->setEnabled(true);
        form_->box->setFocus();
        form_->box->setReadOnly(true);
        QTest::keyClick(form_->box, Qt::Key_Backtab);
        QVERIFY(form_->before->hasFocus());
        form_->box->setReadOnly(false);
        form_->box->setFocus();
        form_->box->hide();
        form_->box->show();
        form_->box->setFocus();
        form_->hide();
        QCOMPARE(refused.count(), 0);
    }

    void windowsInsideTheMainWindowMayBeSwitched() {
        QMdiArea area;
        auto* inside = new QWidget;
        auto* box = new DateBox(inside);
        auto* neighbour = new TextBox;
        QMdiSubWindow* first = area.addSubWindow(inside);
        QMdiSubWindow* second = area.addSubWindow(neighbour);
        area.resize(400, 300);
        area.show();
        area.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&area));
        QSignalSpy refused(box, &DateBox::refused);
        area.setActiveSubWindow(first);
        box->setFocus();
        QVERIFY(box->hasFocus());
        area.setActiveSubWindow(second);
        neighbour->setFocus(Qt::MouseFocusReason);
        QVERIFY(neighbour->hasFocus());
        QCOMPARE(refused.count(), 0);
    }

    void leavingWithADateMovesThePicker() {
        QSignalSpy accepted(form_->box, &DateBox::accepted);
        form_->box->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(form_->box, "5/1/2026");
        QTest::keyClick(form_->box, Qt::Key_Return);
        QVERIFY(form_->other->hasFocus());
        QCOMPARE(form_->picker->value(), QDate(2026, 1, 5));
        QCOMPARE(form_->box->text(), "05/01/2026");
        QCOMPARE(accepted.count(), 1);
        QCOMPARE(accepted[0][0].toDate(), QDate(2026, 1, 5));
    }

    void pickingWritesTheBoxAndFocusesIt() {
        QSignalSpy picked(form_->picker, &DatePicker::picked);
        form_->box->setDate(QDate(2026, 11, 5));
        form_->picker->setFocus(Qt::TabFocusReason);
        QTest::keyClick(form_->picker, Qt::Key_Down, Qt::AltModifier);
        QCalendarWidget* calendar = form_->calendar();
        QVERIFY(calendar);
        QCOMPARE(calendar->selectedDate(), QDate(2026, 11, 5));
        QCOMPARE(calendar->firstDayOfWeek(), Qt::Monday);
        auto* days = calendar->findChild<QAbstractItemView*>();
        QTest::keyClick(days, Qt::Key_Down);
        QTest::keyClick(days, Qt::Key_Return);
        settle();
        QVERIFY(!form_->calendar());
        QCOMPARE(form_->box->text(), "12/11/2026");
        QCOMPARE(form_->picker->value(), QDate(2026, 11, 12));
        QCOMPARE(picked.count(), 1);
        QVERIFY(form_->box->hasFocus());
    }

    void clickOnADayPicksOnce() {
        QSignalSpy picked(form_->picker, &DatePicker::picked);
        form_->box->setDate(QDate(2026, 11, 5));
        QTest::mouseClick(form_->picker, Qt::LeftButton);
        auto* days = form_->calendar()->findChild<QAbstractItemView*>();
        // The third row below the day names; 16 November 2026 is a Monday.
        const QModelIndex cell = days->model()->index(4, 0);
        QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, days->visualRect(cell).center());
        settle();
        QCOMPARE(picked.count(), 1);
        QCOMPARE(picked[0][0].toDate().dayOfWeek(), 1);
        QCOMPARE(form_->box->date(), std::optional(picked[0][0].toDate()));
    }

    void escapeClosesWithoutPicking() {
        form_->box->setDate(QDate(2026, 11, 5));
        form_->box->setFocus();
        QTest::keyClick(form_->box, Qt::Key_F4);
        QVERIFY(form_->calendar());
        QShortcut shortcut(Qt::Key_Escape, form_.get(), nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        QSignalSpy asked(&shortcut, &QShortcut::activated);
        QTest::keyClick(form_->calendar()->findChild<QAbstractItemView*>(), Qt::Key_Escape);
        settle();
        QCOMPARE(asked.count(), 0);
        QVERIFY(!form_->calendar());
        QCOMPARE(form_->box->text(), "05/11/2026");
    }

    void todayIsOneClickAway() {
        form_->box->setFocus();
        QTest::keyClick(form_->box, Qt::Key_F4);
        form_->picker->findChild<QPushButton*>("calendarToday")->click();
        settle();
        QVERIFY(!form_->calendar());
        QCOMPARE(form_->box->date(), std::optional(QDate::currentDate()));
        QVERIFY(form_->box->hasFocus());
    }

    void blankBoxReachesItsCalendar() {
        QSignalSpy refused(form_->box, &DateBox::refused);
        form_->picker->setValue(QDate(2026, 3, 1));
        form_->box->setFocus();
        QTest::mouseClick(form_->picker, Qt::LeftButton);
        QVERIFY(form_->calendar());
        QCOMPARE(form_->calendar()->selectedDate(), QDate(2026, 3, 1));
        QCOMPARE(refused.count(), 0);
    }

    void pickerDestroyedWhileOpen() {
        form_->picker->dropDown();
        form_->picker->dropDown();
        QCOMPARE(form_->picker->findChildren<QCalendarWidget*>().size(), 1);
        delete std::exchange(form_->box, nullptr);
        form_->picker->setFocus(Qt::TabFocusReason);
        delete std::exchange(form_->picker, nullptr);
    }
};

QTEST_MAIN(TestDatePair)
#include "test_datepair.moc"
