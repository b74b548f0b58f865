// A period of days, "from" and "to", as one control.
#pragma once

#include <QWidget>

#include "controls/datefield.h"

namespace controls {

struct Days {
    QDate from, to;  // both days count
};

// The boxes are called txtFrom and txtTo, unless said otherwise; the calendars `pickers`(0) and `pickers`(1).
class Period : public QWidget {
    Q_OBJECT
public:
    struct Names {
        QString from, to;
    };
    explicit Period(const QString& pickers);
    Period(const QString& pickers, const Names& boxes);

    DateField* from() const { return from_; }
    DateField* to() const { return to_; }
    void setDays(const Days& days);
    void setMonthToDate(QDate today);              // from the first of the month
    void setFromToday(QDate today, int days = 7);  // and as many days on
    std::optional<Days> days() const;              // nothing unless both boxes hold a date
    QString text() const;                          // "από dd/mm/yyyy έως dd/mm/yyyy", as the boxes stand

private:
    DateField *from_, *to_;
};

}  // namespace controls
