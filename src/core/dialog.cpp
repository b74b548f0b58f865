#include "core/dialog.h"

#include <QPushButton>
#include <QLayout>
#include <QScreen>

#include "controls/pagearea.h"
#include "controls/theme.h"
#include "core/form.h"

namespace core {

void placeOver(QWidget& window, const QWidget* part, QPoint offset) {
    const QWidget* below = part;
    while (!below->isWindow() && !qobject_cast<const Form*>(below)) below = below->parentWidget();
    const QPoint corner =
        below->mapToGlobal(QPoint()) + QPoint(controls::toPixels(offset.x()), controls::toPixels(offset.y()));
    window.move(fitInto({corner, window.size()}, below->screen()->availableGeometry()).topLeft());
}

Dialog::Dialog(MainMod& mod, QWidget* parent, const QString& name, const QString& caption, const QString& symbol)
    : QDialog(parent), Editing(mod, this) {
    setObjectName(name);
    setWindowTitle(caption);
    setWindowIcon(controls::icon(symbol));
}

void Dialog::accept() {
    fields_.forget();
    QDialog::accept();
}

void Dialog::reject() {
    attempt(mod_, this, [this] {
        // A save on the way has closed the dialog already.
        if (!mayLose() || result() == QDialog::Accepted) return;
        dropDraft();
        QDialog::reject();
    });
}

void Dialog::keyPressEvent(QKeyEvent* event) {
    if (!takesEnter(*event)) QDialog::keyPressEvent(event);
}

void Dialog::setVisible(bool visible) {
    if (visible && !shown_) fitScreen();
    QDialog::setVisible(visible);
}

void Dialog::fitScreen() {
    if (!layout()) return;
    constexpr QSize frame(8, 36);  // about what the desktop draws round a window
    const QSize room = screen()->availableGeometry().size() - frame;
    QSize least = layout()->totalMinimumSize().expandedTo(minimumSize());
    if (layout()->hasHeightForWidth())
        least.setHeight(std::max(least.height(), layout()->totalHeightForWidth(room.width())));
    const bool fits = least.width() <= room.width() && least.height() <= room.height();
    if (!fits) controls::scrollContents(this);
    if (!fits && !testAttribute(Qt::WA_Resized)) resize(sizeHint());
    if (testAttribute(Qt::WA_Resized)) resize(size().boundedTo(room));
}

void Dialog::showEvent(QShowEvent* event) {
    if (!std::exchange(shown_, true)) {
        beepForRefused();
        // The toolkit would make the first button the one that Enter presses from anywhere.
        for (QPushButton* button : findChildren<QPushButton*>())
            if (!button->isDefault()) button->setAutoDefault(false);
    }
    QDialog::showEvent(event);
}

}  // namespace core
