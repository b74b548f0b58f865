// Every control that can take the focus can be named by a screen reader and reached by Tab.
#include <QAccessible>
#include <QMdiArea>
#include <QScrollBar>
#include <QTabWidget>

#include "support/incase.h"
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

    void windowsOpenWithTheFocusOnTheirFirstControl() {
        support::Office office;
        office.desk.settings.setValue("Settings", "Name", "Γραφείο");
        entry::MDIMain window(office.mod);
        window.load();
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        for (const auto& [entry, form, control] :
             {std::tuple("mnuPass", "frmAdmin", "Text1"), std::tuple("mnuUsers", "frmUsers", "ListView1")}) {
            window.menu(entry)->trigger();
            QVERIFY2(QApplication::focusWidget(), entry);
            QCOMPARE(QApplication::focusWidget()->objectName(), QString(control));
            QVERIFY(window.windows().find(form)->isAncestorOf(QApplication::focusWidget()));
        }
    }

    void tabReachesEveryBoxOfTheCard() {
        support::Office office;
        office.desk.settings.setValue("Settings", "Name", "Γραφείο");
        office.addCard("Α", "Β");
        entry::MDIMain window(office.mod);
        window.load();
        window.show();
        window.menu("mnuCards")->trigger();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        window.findChild<QAbstractButton*>("lblClick(6)")->click();
        QSet<QString> reached;
        QStringList order;
        for (int i = 0; i < 60; ++i) {
            const QWidget* now = QApplication::focusWidget();
            QVERIFY(now);
            if (reached.contains(now->objectName())) break;
            reached.insert(now->objectName());
            order << now->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        for (int i = 0; i < 22; ++i)
            if (i != 17) QVERIFY2(reached.contains(QString("Text7(%1)").arg(i)), qPrintable(QString::number(i)));
        for (const char* name : {"Combo1", "Combo2", "Combo3", "txtDate", "DTPicker1", "lblClick(9)", "lblClick(10)"})
            QVERIFY2(reached.contains(name), name);
        QCOMPARE(order.mid(0, 4), QStringList({"Text7(0)", "Text7(1)", "Text7(2)", "Combo1"}));
    }
};

QTEST_MAIN(TestAccessibility)
#include "test_accessibility.moc"
