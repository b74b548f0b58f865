#include "controls/choicebox.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

#include "controls/boxtext.h"
#include "controls/popup.h"
#include "controls/walk.h"

namespace controls {

ChoiceBox::ChoiceBox(bool editable, QWidget* parent)
    : QComboBox(parent), fold_([](QStringView text) { return text.toString().toCaseFolded(); }) {
    setEditable(editable);
    setInsertPolicy(NoInsert);
    setMaxVisibleItems(18);
    setFocusPolicy(Qt::StrongFocus);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(12);
    if (!editable) return;
    // The toolkit's completer knows no fold.
    setCompleter(nullptr);
    lineEdit()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::textEdited, this, &ChoiceBox::propose);
}

void ChoiceBox::setHighlighting(bool on) {
    highlighting_ = on;
    detail::setHighlight(this, on && hasFocus());
}

void ChoiceBox::setReadOnly(bool on) {
    readOnly_ = on;
    if (lineEdit()) lineEdit()->setReadOnly(on);
    detail::setMark(this, "readOnly", on);
}

bool ChoiceBox::movesOn(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return false;
    if (!event->isAutoRepeat()) moveOn(this);
    event->accept();
    return true;
}

void ChoiceBox::noteInput(const QEvent& event) {
    if (event.type() == QEvent::InputMethod) {
        growing_ = !static_cast<const QInputMethodEvent&>(event).commitString().isEmpty();
    } else if (event.type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(event);
        const bool isShortcut = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
        growing_ = !isShortcut && !key.text().isEmpty() && key.text()[0].isPrint();
    }
}

void ChoiceBox::propose(const QString& typed) {
    typed_ = typed;
    if (!std::exchange(growing_, false) || lineEdit()->cursorPosition() != typed.size()) return;
    const QString wanted = fold_(typed);
    for (int row = 0; row < count(); ++row) {
        const QString item = itemText(row);
        if (wanted.isEmpty() || !fold_(item).startsWith(wanted)) continue;
        // An accent of its own makes a text longer than its fold.
        qsizetype head = wanted.size();
        while (head < item.size() && fold_(QStringView(item).left(head)) != wanted) ++head;
        // From here the arrow keys go on.
        setCurrentIndex(row);
        typed_ = typed + item.mid(head);
        lineEdit()->setText(typed_);
        lineEdit()->setSelection(int(typed_.size()), int(typed.size() - typed_.size()));
        return;
    }
}

int ChoiceBox::meantItem() const {
    if (!isEditable() || typed_.isEmpty() || currentText() != typed_) return -1;
    // An item that stands so, before one that only folds so.
    if (const int same = findText(typed_, Qt::MatchExactly | Qt::MatchCaseSensitive); same >= 0) return same;
    const QString wanted = fold_(typed_);
    const auto means = [&](int row) { return row >= 0 && fold_(itemText(row)) == wanted; };
    if (means(currentIndex())) return currentIndex();
    for (int row = 0; row < count(); ++row)
        if (means(row)) return row;
    return -1;
}

QString ChoiceBox::chosenText() const {
    const int item = meantItem();
    return item < 0 ? currentText() : itemText(item);
}

void ChoiceBox::showPopup() {
    if (readOnly_) return;
    emit opening();
    QComboBox::showPopup();
    detail::keepEscape(view()->window());
}

bool ChoiceBox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && movesOn(static_cast<QKeyEvent*>(event))) return true;
    noteInput(*event);
    return QComboBox::eventFilter(watched, event);
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
    if (movesOn(event)) return;
    if (readOnly_) return readOnlyKey(event);
    noteInput(*event);
    QComboBox::keyPressEvent(event);
}

// The arrow keys of the base class would choose.
void ChoiceBox::readOnlyKey(QKeyEvent* event) {
    event->ignore();
    if (lineEdit()) {
        lineEdit()->event(event);
    } else if (event->matches(QKeySequence::Copy)) {
        event->accept();
        QGuiApplication::clipboard()->setText(currentText());
    }
}

void ChoiceBox::inputMethodEvent(QInputMethodEvent* event) {
    noteInput(*event);
    QComboBox::inputMethodEvent(event);
}

void ChoiceBox::wheelEvent(QWheelEvent* event) {
    hasFocus() && !readOnly_ ? QComboBox::wheelEvent(event) : event->ignore();
}

void ChoiceBox::focusInEvent(QFocusEvent* event) {
    QComboBox::focusInEvent(event);
    detail::setHighlight(this, highlighting_);
    if (!lineEdit() || detail::isPassing(*event)) return;
    typed_.clear();
    lineEdit()->selectAll();
}

void ChoiceBox::focusOutEvent(QFocusEvent* event) {
    if (const int item = meantItem(); item >= 0 && !detail::isPassing(*event)) {
        setCurrentIndex(item);
        setEditText(itemText(item));
        typed_.clear();
    }
    QComboBox::focusOutEvent(event);
    detail::setHighlight(this, false);
}

}  // namespace controls
