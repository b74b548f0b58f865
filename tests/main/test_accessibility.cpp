// Every control that can take the focus can be named by a screen reader and reached by Tab.
#include <QAccessible>
#include <QMdiArea>
#include <QScrollBar>
#include <QTabWidget>

#include "cards/frmfind.h"
#include "cards/frmhistory.h"
#include "cards/frmlink.h"
#include "core/printpreview.h"
#include "main/mdimain.h"
#include "support/office.h"
#include "users/frmlogon.h"
#include "users/frmowner.h"

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
        office.desk.settings.setValue("Settings", "Name", "Γραφείο");
        office.addCard("Α", "Β");
        QStringList flags;
        for (const char* prefix : {"fc1", "fn1", "fd1", "fy1", "fcb1"}) flags << QString("%1=True").arg(prefix);
        // Fields without a name have one when they are spoken.
        office.mod.gConn.execute("update CustomFields set Memo3='',FIELdchar1='',fy2=True,FieldYes2=''," +
                                 flags.join(',') + " where id=1");
        users::frmLogon logon(office.mod);
        users::frmOwner owner(office.mod);
        entry::MDIMain window(office.mod);
        window.load();
        window.show();
        for (const char* entry :
             {"mnuCards", "MnuΗμερολόγιο", "mnuCategory", "mnuFieldsCard", "mnuFieldsHistory", "mnuPass", "mnuUsers"})
            window.menu(entry)->trigger();
        window.windows().front("frmCombos");
        cards::frmFind find(office.mod, nullptr, [](const cards::FoundCard&) {});
        cards::frmHistory movement(office.mod, nullptr, [](qint64) {});
        movement.load();
        cards::frmLink link(office.mod, nullptr, [] {});
        link.load();
        core::PrintPreview preview(
            office.mod, nullptr,
            {"Σελίδα", [](platform::Printer& printer, const core::PrintStep&) { printer.print("Σελίδα"); }});
        for (QWidget* dialog : {static_cast<QWidget*>(&find), static_cast<QWidget*>(&movement),
                                static_cast<QWidget*>(&link), static_cast<QWidget*>(&preview)})
            QCOMPARE(nameless(*dialog).join(", "), QString());
        for (QWidget* each :
             {static_cast<QWidget*>(&logon), static_cast<QWidget*>(&owner), static_cast<QWidget*>(&window)})
            QCOMPARE(nameless(*each).join(", "), QString());
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
