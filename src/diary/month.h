// The days of a month as the calendar's grid shows them.
#pragma once

#include <QDate>
#include <QVector>
#include <array>

namespace diary {

bool IsDivisible(double a, double b);

// A year that 1000 divides is a leap year when 400 divides it, any other when 4 does: so 1900 and 2100 have a 29
// February here, which no calendar has, and 1000 and 3000 have none.
int HowManyDays(int month, int year);

// Weeks from Monday, 0 where the week lies outside the month. At least five weeks; the one behind a last Sunday is
// there, and empty, unless the month needs fewer than five.
using Week = std::array<int, 7>;
QVector<Week> weeksOf(int month, int year);

// Nothing for a day that the leap rule above draws and no calendar has.
QDate dayOf(int day, int month, int year);

struct Month {
    int month, year;
    bool operator==(const Month&) const = default;
};
// A month forward or back; stays within the years 100 to 9999, which dates of a database reach.
Month turned(Month shown, int direction);
inline Month monthOf(QDate day) {
    return {day.month(), day.year()};
}

}  // namespace diary
