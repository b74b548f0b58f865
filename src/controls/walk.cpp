#include "controls/walk.h"

#include <QApplication>
#include <QKeyEvent>
#include <QToolButton>

namespace controls {

namespace {

constexpr char besideField[] = "besideField";

}  // namespace

void standBeside(QWidget* button, bool beside) {
    button->setProperty(besideField, beside);
}

bool standsBeside(const QWidget* widget) {
    if (!widget) return false;
    const QVariant told = widget->property(besideField);
    return told.isValid() ? told.toBool() : qobject_cast<const QToolButton*>(widget) != nullptr;
}

void moveOn(QWidget* field) {
    // A form of nothing but such buttons would be walked round and round.
    constexpr int longestRow = 50;
    QWidget* from = field;
    for (int step = 0; step < longestRow; ++step) {
        // The toolkit's focusNextChild() isn't public.
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QCoreApplication::sendEvent(from, &tab);
        QWidget* const reached = QApplication::focusWidget();
        if (reached == from || !standsBeside(reached)) return;
        from = reached;
    }
}

}  // namespace controls
