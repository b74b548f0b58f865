// A date box, its calendar and, where it stands alone, its caption, as one control.
#pragma once

#include "controls/datepair.h"
#include "controls/layout.h"

namespace controls {

class DateField : public QWidget {
    Q_OBJECT
public:
    // The box and the calendar get these object names, and `caption` as their spoken name.
    DateField(const QString& boxName, const QString& pickerName, const QString& caption, QWidget* parent = nullptr);
    // Takes over a box that stands in a table of fields.
    DateField(DateBox* box, const QString& pickerName, const QString& caption, QWidget* parent = nullptr);

    DateBox* box() const { return box_; }
    DatePicker* picker() const { return picker_; }
    void setDate(QDate date);  // of both; an invalid one blanks the box
    std::optional<QDate> date() const { return box_->date(); }
    QString text() const { return box_->settledText(); }
    void add(QWidget* beside);  // a button that belongs to the date
    QLabel* showCaption();      // before the box, for a field that stands in no form

private:
    QString caption_;
    DateBox* box_;
    DatePicker* picker_;
    QHBoxLayout* layout_;
};

}  // namespace controls
