// Every control that can take the focus can be named by a screen reader and reached by Tab.
#include <QAccessible>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QTabWidget>

#include "support/cases.h"
#include "support/driver.h"
#include "support/windowwalk.h"

namespace {

bool isInner(const QWidget* widget) {
    // Parts of a control that the control itself speaks for.
    return widget->objectName().startsWith("qt_") || qobject_cast<const QScrollBar*>(widget) ||
           qobject_cast<const QComboBox*>(widget->parentWidget()) || qobject_cast<const QMdiArea*>(widget) ||
           qobject_cast<const QMdiSubWindow*>(widget) || widget->inherits("QTabBar") ||
           widget->inherits("QComboBoxListView") || widget->inherits("QMenuBar");
}

QStringList nameless(QWidget& window) {
    QStringList found;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || isInner(widget) || widget->inherits("core::Form")) continue;
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
        const QString name = spoken ? spoken->text(QAccessible::Name) : QString();
        if (name.trimmed().isEmpty()) found << widget->metaObject()->className() + (" " + widget->objectName());
    }
    return found;
}

// An office with a card, in a main window that has the focus.
struct Site : support::Office {
    Site() {
        desk.settings.setValue("Settings", "Name", "Γραφείο");
        addCard("Α", "Β");
        // Fields without a name have one when they are spoken.
        mod.gConn.execute(
            "update CustomFields set Memo3='',FIELdchar1='',fy2=True,FieldYes2='',fc1=True,fn1=True,fd1=True,fy1=True,"
            "fcb1=True where id=1");
        window.load();
        support::activate(window);
    }
    entry::MDIMain window{mod};
};

}  // namespace

class TestAccessibility : public QObject {
    Q_OBJECT
private slots:
    void everyControlHasAName() {
        support::Office office;
        support::furnish(office);
        support::WindowWalk walk(office.mod);
        walk.each([](const QString& name, QWidget& window) {
            const support::InCase in(name);
            QCOMPARE(nameless(window).join(", "), QString());
        });
    }

    // What a label beside or before a box says, the box says of itself.
    void boxesKnowTheirCaptions() {
        Site site;
        for (const char* entry : {"mnuCards", "MnuΗμερολόγιο"}) {
            site.window.menu(entry)->trigger();
            const QString form = QString(entry) == "mnuCards" ? "frmAddress" : "frmHmerologio";
            for (QWidget* box : site.window.windows().find(form)->findChildren<QWidget*>()) {
                const bool isBox = box->inherits("controls::DateBox") || box->objectName() == "Combo1";
                if (!isBox || box->accessibleName().startsWith("Πεδίο")) continue;
                const auto relations = QAccessible::queryAccessibleInterface(box)->relations(QAccessible::Label);
                QVERIFY2(!relations.isEmpty(), qPrintable(form + ' ' + box->objectName()));
                QString caption = relations[0].first->text(QAccessible::Name).remove(':').trimmed();
                QCOMPARE(caption, box->accessibleName());
            }
        }
    }

    void theOpenCalendarIsInTheTree() {
        Site site;
        site.window.menu("MnuΗμερολόγιο")->trigger();
        auto* picker = site.window.findChild<controls::DatePicker*>("DTPcustDate(0)");
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(picker);
        QCOMPARE(spoken->childCount(), 0);
        spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(spoken->childCount(), 1);
        QVERIFY(spoken->state().expanded);
        QAccessibleInterface* calendar = spoken->child(0);
        QCOMPARE(calendar->object()->objectName(), "calendarPopup");
        QVERIFY(calendar->childCount() > 0);
        QCOMPARE(calendar->parent()->object(), picker);
    }

    void theSelectedTabIsTold() {
        Site site;
        site.window.menu("mnuCards")->trigger();
        auto* tabs = site.window.findChild<QTabWidget*>("TabStrip1");
        QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(tabs->findChild<QTabBar*>());
        for (const int front : {2, 0, 4}) {
            tabs->setCurrentIndex(front);
            for (int i = 0; i < tabs->count(); ++i)
                QCOMPARE(bar->child(i)->text(QAccessible::Name).endsWith("επιλεγμένη καρτέλα"), i == front);
        }
    }

    void windowsOpenWithTheFocusOnTheirFirstControl() {
        Site site;
        for (const auto& [entry, form, control] :
             {std::tuple("mnuPass", "frmAdmin", "Text1"), {"mnuUsers", "frmUsers", "ListView1"}}) {
            site.window.menu(entry)->trigger();
            QVERIFY2(QApplication::focusWidget(), entry);
            QCOMPARE(QApplication::focusWidget()->objectName(), control);
            QVERIFY(site.window.windows().find(form)->isAncestorOf(QApplication::focusWidget()));
        }
    }

    void tabReachesEveryBoxOfTheCard() {
        Site site;
        site.window.menu("mnuCards")->trigger();
        support::Driver(site.window).click("lblClick(6)");
        QStringList order;
        for (int i = 0; i < 60; ++i) {
            QWidget* now = QApplication::focusWidget();
            QVERIFY(now);
            if (order.contains(now->objectName())) break;
            order << now->objectName();
            QTest::keyClick(now, Qt::Key_Tab);
        }
        QStringList expected{"Combo1", "Combo2", "Combo3", "txtDate", "DTPicker1", "lblClick(9)", "lblClick(10)"};
        for (int i = 0; i < 22; ++i)
            if (i != 17) expected << QString("Text7(%1)").arg(i);
        for (const QString& name : expected) QVERIFY2(order.contains(name), qPrintable(name));
        QCOMPARE(order.mid(0, 4), QStringList({"Text7(0)", "Text7(1)", "Text7(2)", "Combo1"}));
    }
};

QTEST_MAIN(TestAccessibility)
#include "test_accessibility.moc"
