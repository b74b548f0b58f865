// The date pair: a masked box "dd/mm/yyyy" with a calendar picker beside it, kept in step.
#pragma once

#include <QDate>
#include <QToolButton>
#include <optional>

#include "controls/boxes.h"

namespace controls {

// The box. The mask shows "__/__/____" when empty; text() is then exactly that, as formattedText(). Digits are typed
// over the mask and the slashes skip by themselves; points and dashes are slashes. A date is d/m/yyyy of the years 100
// to 9999, or d/m/yy of 1930 to 2029. A refused text is marked, with the reason as tool tip, until it is a date. A
// read-only or disabled box can always be left, and so can any box when a menu, a drop-down or another window takes the
// focus.
class DateBox : public TextBox {
    Q_OBJECT
public:
    explicit DateBox(QWidget* parent = nullptr);

    QString formattedText() const;  // with mask characters: "05/11/2026", "__/__/____"
    QString text() const { return formattedText(); }
    // The date in full figures where there is one, else as formattedText(): for reading before the box is left.
    QString settledText() const;
    bool isBlank() const;
    std::optional<QDate> date() const;  // nothing unless the text is a date
    void setDate(QDate date);           // an invalid date blanks the box
    void setFormattedText(const QString& text);

signals:
    void refused();             // on leaving with anything that is no date; the box has already taken the focus back
    void accepted(QDate date);  // on leaving with a good date; the text has its two-digit day and month by then

protected:
    void focusOutEvent(QFocusEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void contextMenuEvent(QContextMenuEvent*) override;

private:
    void pasteDate();
    void markRefused(const QString& why);
    QString whyRefused() const;
};

// The picker: a button with a calendar that drops down (Alt+Down, F4, click). It holds a date of its own, today at
// first. Reachable by Tab; a click leaves the focus where it is, so that a blank box is not refused on the way to its
// calendar.
class DatePicker : public QToolButton {
    Q_OBJECT
public:
    explicit DatePicker(QWidget* parent = nullptr);
    QDate value() const { return value_; }
    void setValue(QDate date);  // an invalid date is ignored; picked() comes only from the user
    void dropDown();

signals:
    void aboutToDropDown();
    void picked(QDate date);

protected:
    void keyPressEvent(QKeyEvent*) override;

private:
    void pick(QDate date);

    QDate value_;
};

// Keeps the two in step: the picker takes the box's date when it gets the focus or drops down, picking writes the box
// and gives it the focus, leaving the box with a good date moves the picker. Alt+Down and F4 in the box drop the picker
// down. The beep for a bad date is the form's: it connects refused() to its sound.
void pairUp(DateBox* box, DatePicker* picker);

}  // namespace controls
