#include "controls/pickeraccess.h"

#include <QAccessibleWidget>
#include <QFrame>

#include "controls/datepair.h"

using namespace Qt::Literals::StringLiterals;

namespace controls::detail {

namespace {

class PickerAccess : public QAccessibleWidget {
public:
    explicit PickerAccess(QWidget* picker) : QAccessibleWidget(picker, QAccessible::ButtonDropDown) {}

    int childCount() const override { return popup() ? 1 : 0; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 && popup() ? QAccessible::queryAccessibleInterface(popup()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child && popup() && child->object() == popup() ? 0 : -1;
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = popup() != nullptr;
        state.collapsed = !popup();
        return state;
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        if (action == pressAction())
            static_cast<DatePicker*>(widget())->click();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    QWidget* popup() const { return widget()->findChild<QWidget*>(u"calendarPopup"_s, Qt::FindDirectChildrenOnly); }
};

class PopupAccess : public QAccessibleWidget {
public:
    explicit PopupAccess(QWidget* popup) : QAccessibleWidget(popup, QAccessible::Pane) {}
    // Not the program, as of other windows.
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(widget()->parentWidget());
    }
};

QAccessibleInterface* make(const QString&, QObject* object) {
    if (auto* picker = qobject_cast<DatePicker*>(object)) return new PickerAccess(picker);
    auto* frame = qobject_cast<QFrame*>(object);
    return frame && qobject_cast<DatePicker*>(frame->parentWidget()) ? new PopupAccess(frame) : nullptr;
}

}  // namespace

void tellCalendars() {
    static const bool once = [] {
        QAccessible::installFactory(make);
        return true;
    }();
    Q_UNUSED(once);
}

}  // namespace controls::detail
