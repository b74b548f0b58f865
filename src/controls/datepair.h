// The date pair: a masked box "dd/mm/yyyy" with a calendar picker beside it, kept in step.
#pragma once

#include <QDate>
#include <QToolButton>

#include "controls/boxes.h"

namespace controls {

// The box. The mask shows "__/__/____" when empty; text() is then exactly that, as formattedText().
class DateBox : public TextBox {
    Q_OBJECT
public:
    explicit DateBox(QWidget* parent = nullptr);

    QString formattedText() const;         // with mask characters: "05/11/2026", "__/__/____"
    bool isBlank() const;
    std::optional<QDate> date() const;     // nothing unless the text is a date
    void setDate(QDate date);              // an invalid date blanks the box
    void setFormattedText(const QString& text);

signals:
    void refused();           // on leaving with anything that is no date; the box has already taken the focus back
    void accepted(QDate date);  // on leaving with a good date

protected:
    void focusOutEvent(QFocusEvent*) override;
};

// The picker: a button with a calendar that drops down (Alt+Down, F4, click). It holds a date of its own.
class DatePicker : public QToolButton {
    Q_OBJECT
public:
    explicit DatePicker(QWidget* parent = nullptr);
    QDate value() const { return value_; }
    void setValue(QDate date);  // emits changed() only when the user picks

signals:
    void aboutToDropDown();
    void picked(QDate date);

protected:
    void keyPressEvent(QKeyEvent*) override;

private:
    void dropDown();
    QDate value_;
};

// Keeps the two in step: dropping down takes the box's date, picking writes the box and gives it the focus, leaving the box
// with a good date moves the picker, leaving it with a bad one beeps through refused().
void pairUp(DateBox* box, DatePicker* picker);

}  // namespace controls
