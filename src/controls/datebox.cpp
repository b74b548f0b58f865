#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QRegularExpression>

#include "controls/boxtext.h"
#include "controls/datepair.h"

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

// Years of two figures: 00 to 29 lie in this century, the others in the last.
int fullYear(const QString& figures) {
    constexpr int firstOfLastCentury = 30;
    const int year = figures.toInt();
    if (figures.size() != 2) return year;
    return year + (year < firstOfLastCentury ? 2000 : 1900);
}

// d/m/yyyy or d/m/yy with blanks and mask signs anywhere around the figures; also with points, dashes or, when day and
// month have two figures, nothing between them.
std::optional<QDate> parsed(QString text) {
    static const QRegularExpression divided(u"^([0-9]{1,2})[/.-]([0-9]{1,2})[/.-]([0-9]{2,4})$"_s);
    static const QRegularExpression figures(u"^([0-9]{2})([0-9]{2})([0-9]{2}|[0-9]{4})$"_s);
    text.remove(u'_').remove(u' ');
    QRegularExpressionMatch match = divided.match(text);
    if (!match.hasMatch()) match = figures.match(text);
    if (!match.hasMatch()) return std::nullopt;
    const QDate date(fullYear(match.captured(3)), match.captured(2).toInt(), match.captured(1).toInt());
    if (!date.isValid() || date.year() < 100 || date.year() > 9999) return std::nullopt;
    return date;
}

QString formatted(QDate date) {
    return u"%1/%2/%3"_s.arg(date.day(), 2, 10, QChar(u'0'))
        .arg(date.month(), 2, 10, QChar(u'0'))
        .arg(date.year(), 4, 10, QChar(u'0'));
}

}  // namespace

DateBox::DateBox(QWidget* parent) : TextBox(parent) {
    setValidator(nullptr);  // the mask lets only digits in
    setInputMask(u"99/99/9999;_"_s);
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (date()) markRefused({});
    });
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
    setFormattedText(date.isValid() && date.year() >= 100 && date.year() <= 9999 ? formatted(date) : QString());
}

QString DateBox::settledText() const {
    const std::optional<QDate> good = date();
    return good ? formatted(*good) : formattedText();
}

void DateBox::setFormattedText(const QString& text) {
    setText(text);
    markRefused({});
}

void DateBox::markRefused(const QString& why) {
    if (toolTip() == why) return;
    setToolTip(why);
    setAccessibleDescription(why);
    detail::setMark(this, "refused", !why.isEmpty());
}

QString DateBox::whyRefused() const {
    const QString how = u"Γράψτε ημέρα/μήνα/έτος, π.χ. 05/11/2026."_s;
    if (isBlank()) return u"Λείπει η ημερομηνία. "_s + how;
    return u"Η ημερομηνία «%1» δεν υπάρχει. %2"_s.arg(formattedText().remove(u'_'), how);
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
    markRefused(whyRefused());
    emit refused();
}

void DateBox::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste)) {
        pasteDate();
        event->accept();
        return;
    }
    const bool divides = event->text() == u"."_s || event->text() == u"-"_s || event->text() == u","_s;
    if (!divides) return TextBox::keyPressEvent(event);
    // On to the next part of the date, as the slash of the mask.
    QKeyEvent slash(QEvent::KeyPress, Qt::Key_Slash, Qt::NoModifier, u"/"_s, event->isAutoRepeat());
    TextBox::keyPressEvent(&slash);
    event->accept();
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
