#include "controls/boxes.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyle>
#include <QValidator>

#include "controls/boxtext.h"

namespace controls {

namespace {

// Sees every text on its way in, whoever brings it: keys, paste, drop, input method or the program.
class ControlFilter : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& input, int& cursor) const override {
        const QString clean = detail::cleaned(input, false);
        if (clean == input) return Acceptable;
        cursor = int(detail::cleaned(input.left(cursor), false).size());
        input = clean;
        return Acceptable;
    }
};

const QWidget* formOf(const QWidget* widget) {
    while (widget && !widget->isWindow() && !qobject_cast<const QMdiSubWindow*>(widget))
        widget = widget->parentWidget();
    return widget;
}

bool isNumberCharacter(QChar c) {
    return (c >= u'0' && c <= u'9') || c == u',';
}

}  // namespace

TextBox::TextBox(QWidget* parent) : QLineEdit(parent) {
    setValidator(new ControlFilter(this));
    // A long text that the program sets shows its beginning.
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!hasFocus()) setCursorPosition(0);
    });
}

void TextBox::setHighlighting(bool on) {
    highlighting_ = on;
    detail::setHighlight(this, on && hasFocus());
}

void TextBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    detail::setHighlight(this, highlighting_);
    // The first field of a form that opens gets its focus by the window's activation.
    if (detail::isPassing(*event) && entered_) return;
    entered_ = true;
    selectAll();
    selectOnRelease_ = event->reason() == Qt::MouseFocusReason;
}

void TextBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    detail::setHighlight(this, false);
    selectOnRelease_ = false;
    if (detail::isPassing(*event)) return;
    entered_ = false;
    setCursorPosition(0);
}

bool TextBox::isLeft(const QFocusEvent& event) const {
    const QWidget* next = QApplication::focusWidget();
    return entered_ && !detail::isPassing(event) && isVisible() && isEnabled() && next && next != this &&
           formOf(next) == formOf(this);
}

void TextBox::mousePressEvent(QMouseEvent* event) {
    // The other buttons have menus and pasting of their own, which want the selection as focus made it.
    if (selectOnRelease_ && event->button() != Qt::LeftButton) selectOnRelease_ = false;
    QLineEdit::mousePressEvent(event);
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (selectOnRelease_ && !hasSelectedText()) selectAll();
    selectOnRelease_ = false;
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();  // or the default button of the dialog would take it
    if (!event->isAutoRepeat()) focusNextPrevChild(true);
}

NumberBox::NumberBox(QWidget* parent) : TextBox(parent) {
    connect(this, &QLineEdit::textEdited, this, &NumberBox::dropForeign);
    // text() and not the argument, which is stale when dropForeign() has just corrected it.
    connect(this, &QLineEdit::textChanged, this, [this] { before_ = text(); });
}

// Looks only at what this edit brought in: a minus or a point that the program had set is not the user's doing.
void NumberBox::dropForeign(const QString& edited) {
    qsizetype head = 0;
    const qsizetype shorter = std::min(edited.size(), before_.size());
    while (head < shorter && edited[head] == before_[head]) ++head;
    qsizetype tail = 0;
    while (tail < shorter - head && edited[edited.size() - 1 - tail] == before_[before_.size() - 1 - tail]) ++tail;

    QString kept;
    for (const QChar c : edited.mid(head, edited.size() - head - tail)) {
        if (isNumberCharacter(c)) kept += c;
    }
    if (head + kept.size() + tail == edited.size()) return;
    setText(edited.left(head) + kept + edited.right(tail));
    setCursorPosition(int(head + kept.size()));
}

void NumberBox::focusOutEvent(QFocusEvent* event) {
    const bool left = isLeft(*event);
    TextBox::focusOutEvent(event);
    if (left && text().isEmpty() && !whenEmpty_.isNull() && !isReadOnly()) setText(whenEmpty_);
}

void NumberBox::keyPressEvent(QKeyEvent* event) {
    // Dropped before the base class replaces the selection with it.
    const QString typed = event->text();
    const bool isShortcut = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (!isShortcut && !typed.isEmpty() && typed[0].isPrint() && !isNumberCharacter(typed[0])) {
        event->accept();
        return;
    }
    TextBox::keyPressEvent(event);
}

MemoBox::MemoBox(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
}

void MemoBox::setHighlighting(bool on) {
    highlighting_ = on;
    detail::setHighlight(this, on && hasFocus());
}

void MemoBox::setText(const QString& text) {
    setPlainText(detail::cleaned(text, true));
}

// With the cursor at the start, so that a long text keeps showing its beginning.
void MemoBox::selectWhole() {
    QTextCursor whole = textCursor();
    whole.movePosition(QTextCursor::End);
    whole.movePosition(QTextCursor::Start, QTextCursor::KeepAnchor);
    setTextCursor(whole);
}

void MemoBox::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    // The style sheet tells a read-only box by its property, and looks at it only when it is polished.
    if (event->type() != QEvent::ReadOnlyChange) return;
    style()->unpolish(this);
    style()->polish(this);
}

void MemoBox::focusInEvent(QFocusEvent* event) {
    QPlainTextEdit::focusInEvent(event);
    detail::setHighlight(this, highlighting_);
    if (detail::isPassing(*event) && entered_) return;
    entered_ = true;
    selectWhole();
    selectOnRelease_ = event->reason() == Qt::MouseFocusReason;
}

void MemoBox::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    detail::setHighlight(this, false);
    selectOnRelease_ = false;
    if (!detail::isPassing(*event)) entered_ = false;
}

void MemoBox::mousePressEvent(QMouseEvent* event) {
    if (selectOnRelease_ && event->button() != Qt::LeftButton) selectOnRelease_ = false;
    // A press inside a selection would start to drag the text instead of a new selection.
    if (selectOnRelease_) setTextCursor(cursorForPosition(event->position().toPoint()));
    QPlainTextEdit::mousePressEvent(event);
}

void MemoBox::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    if (selectOnRelease_ && !textCursor().hasSelection()) selectWhole();
    selectOnRelease_ = false;
}

void MemoBox::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || !source->hasText()) return;
    textCursor().insertText(detail::cleaned(source->text(), true));
    ensureCursorVisible();
}

}  // namespace controls
