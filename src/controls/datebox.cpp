#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QRegularExpression>

#include "controls/datepair.h"

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

// d/m/yyyy with blanks and mask signs anywhere around the figures; also with points or dashes between them.
std::optional<QDate> parsed(QString text) {
    static const QRegularExpression form(u"^([0-9]{1,2})[/.-]([0-9]{1,2})[/.-]([0-9]{3,4})$"_s);
    text.remove(u'_').remove(u' ');
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) return std::nullopt;
    const QDate date(match.captured(3).toInt(), match.captured(2).toInt(), match.captured(1).toInt());
    if (!date.isValid() || date.year() < 100 || date.year() > 9999) return std::nullopt;
    return date;
}

}  // namespace

DateBox::DateBox(QWidget* parent) : TextBox(parent) {
    setValidator(nullptr);  // the mask lets only digits in
    setInputMask(u"99/99/9999;_"_s);
}

QString DateBox::formattedText() const {
    return displayText();
}

bool DateBox::isBlank() const {
    const QString shown = displayText();
    return std::none_of(shown.begin(), shown.end(), [](QChar c) { return c.isDigit(); });
}

std::optional<QDate> DateBox::date() const {
    return parsed(displayText());
}

void DateBox::setDate(QDate date) {
    setFormattedText(date.isValid() && date.year() >= 100 && date.year() <= 9999
                         ? u"%1/%2/%3"_s.arg(date.day(), 2, 10, QChar(u'0'))
                               .arg(date.month(), 2, 10, QChar(u'0'))
                               .arg(date.year(), 4, 10, QChar(u'0'))
                         : QString());
}

void DateBox::setFormattedText(const QString& text) {
    setText(text);
}

void DateBox::focusOutEvent(QFocusEvent* event) {
    const bool left = isLeft(*event) && !isReadOnly();
    TextBox::focusOutEvent(event);
    if (!left) return;
    if (const std::optional<QDate> good = date()) {
        setDate(*good);
        emit accepted(*good);
        return;
    }
    // At once, not queued: the field that was to get the focus never gets it, so that two bad boxes can't send each
    // other back and forth.
    setFocus(Qt::OtherFocusReason);
    emit refused();
}

void DateBox::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste)) {
        pasteDate();
        event->accept();
        return;
    }
    TextBox::keyPressEvent(event);
}

void DateBox::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (auto* paste = menu->findChild<QAction*>(u"edit-paste"_s)) {
        paste->disconnect(SIGNAL(triggered(bool)));
        connect(paste, &QAction::triggered, this, &DateBox::pasteDate);
    }
    menu->popup(event->globalPos());
}

// A whole date replaces the content whatever its form; anything else goes through the mask.
void DateBox::pasteDate() {
    if (isReadOnly()) return;
    if (const std::optional<QDate> whole = parsed(QGuiApplication::clipboard()->text().left(64).trimmed())) {
        setDate(*whole);
    } else {
        paste();
    }
}

}  // namespace controls
