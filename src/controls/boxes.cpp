#include "controls/boxes.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QValidator>

#include "controls/boxtext.h"
#include "controls/numbertext.h"
#include "controls/walk.h"

using namespace Qt::Literals::StringLiterals;

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

QSize TextBox::minimumSizeHint() const {
    constexpr int frame = 16;  // with the padding
    const int readable = fontMetrics().horizontalAdvance(u"00/00/0000"_s) + frame;
    return QLineEdit::minimumSizeHint().expandedTo({readable, 0});
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
    if (!event->isAutoRepeat()) moveOn(this);
}

NumberBox::NumberBox(QWidget* parent) : TextBox(parent) {
    connect(this, &QLineEdit::textEdited, this, &NumberBox::checkBroughtIn);
    // text() and not the argument, which is stale when checkBroughtIn() has just corrected it.
    connect(this, &QLineEdit::textChanged, this, [this] { before_ = text(); });
}

// Keys are looked at one by one; what comes in as a whole, by paste or drop, must be a number where it stands.
void NumberBox::checkBroughtIn(const QString& edited) {
    if (typing_) return;
    const auto fitted = detail::withNumberBroughtIn(before_, edited, cursorPosition());
    if (fitted && fitted->text == edited) return;
    const QString shown = fitted ? fitted->text : before_;
    setText(shown);
    setCursorPosition(fitted ? fitted->cursor : int(shown.size()));
    if (!fitted) emit refused();
}

void NumberBox::focusOutEvent(QFocusEvent* event) {
    const bool left = isLeft(*event);
    TextBox::focusOutEvent(event);
    if (left && text().isEmpty() && !whenEmpty_.isNull() && !isReadOnly()) setText(whenEmpty_);
}

void NumberBox::keyPressEvent(QKeyEvent* event) {
    const bool isShortcut = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool isPrintable = !isShortcut && !event->text().isEmpty() && event->text()[0].isPrint();
    const bool isPaste = event->matches(QKeySequence::Paste);
    const QScopedValueRollback typing(typing_, !isPaste);
    if (!isPrintable) return TextBox::keyPressEvent(event);
    // The keypad's key brings a point on some layouts.
    const QChar typed = event->text()[0] == u'.' ? QChar(u',') : event->text()[0];
    event->accept();
    // A foreign one is dropped before the base class replaces the selection with it.
    if (!isNumberCharacter(typed)) return;
    QKeyEvent brought(QEvent::KeyPress, event->key(), event->modifiers(), QString(typed), event->isAutoRepeat());
    TextBox::keyPressEvent(&brought);
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
