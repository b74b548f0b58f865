#include "diary/month.h"

#include <cmath>

namespace diary {

bool IsDivisible(double a, double b) {
    return a / b == std::trunc(a / b);
}

int HowManyDays(int month, int year) {
    if (month == 4 || month == 6 || month == 9 || month == 11) return 30;
    if (month != 2) return 31;
    const bool leap = IsDivisible(year, 1000) ? IsDivisible(year, 400) : IsDivisible(year, 4);
    return leap ? 29 : 28;
}

QVector<Week> weeksOf(int month, int year) {
    QVector<Week> weeks(5, Week{});
    int week = 0;
    int column = QDate(year, month, 1).dayOfWeek() - 1;
    for (int day = 1; day <= HowManyDays(month, year); ++day) {
        weeks[week][size_t(column)] = day;
        if (++column < 7) continue;
        column = 0;
        if (++week == weeks.size()) weeks.append(Week{});
    }
    return weeks;
}

QDate dayOf(int day, int month, int year) {
    return QDate(year, month, day);
}

Month turned(Month shown, int direction) {
    const int months = shown.year * 12 + shown.month - 1 + direction;
    const Month next{months % 12 + 1, months / 12};
    return next.year < 100 || next.year > 9999 ? shown : next;
}

}  // namespace diary
