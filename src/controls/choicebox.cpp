#include "controls/choicebox.h"

#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

#include "controls/boxtext.h"

namespace controls {

ChoiceBox::ChoiceBox(bool editable, QWidget* parent) : QComboBox(parent) {
    setEditable(editable);
    setInsertPolicy(NoInsert);
    setMaxVisibleItems(18);
    setFocusPolicy(Qt::StrongFocus);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(12);
    if (!editable) return;
    completer()->setFilterMode(Qt::MatchContains);
    lineEdit()->installEventFilter(this);
}

void ChoiceBox::setHighlighting(bool on) {
    highlighting_ = on;
    detail::setHighlight(this, on && hasFocus());
}

void ChoiceBox::showPopup() {
    emit opening();
    QComboBox::showPopup();
}

bool ChoiceBox::movesOn(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return false;
    if (!event->isAutoRepeat()) focusNextPrevChild(true);
    event->accept();
    return true;
}

bool ChoiceBox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && movesOn(static_cast<QKeyEvent*>(event))) return true;
    return QComboBox::eventFilter(watched, event);
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
    if (!movesOn(event)) QComboBox::keyPressEvent(event);
}

void ChoiceBox::wheelEvent(QWheelEvent* event) {
    hasFocus() ? QComboBox::wheelEvent(event) : event->ignore();
}

void ChoiceBox::focusInEvent(QFocusEvent* event) {
    QComboBox::focusInEvent(event);
    detail::setHighlight(this, highlighting_);
    if (lineEdit() && !detail::isPassing(*event)) lineEdit()->selectAll();
}

void ChoiceBox::focusOutEvent(QFocusEvent* event) {
    QComboBox::focusOutEvent(event);
    detail::setHighlight(this, false);
}

}  // namespace controls
