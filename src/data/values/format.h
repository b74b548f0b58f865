// Dates, numbers and format patterns by Greek rules, whatever the machine's locale says.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>
#include <QVariant>
#include <optional>

namespace data {

enum class DateOrder { DayFirst, MonthFirst };

// Formats a value by a pattern, without regard to the case of its letters. Dates: "d", "dd", "ddd", "dddd",
// "m", "mm", "mmm", "mmmm", "yy", "yyyy", "h", "hh", "n", "nn", "s", "ss", "AM/PM" and any other characters
// as they stand; "m" right after an hour, or right before a second, is minutes. Day and month names are Greek
// (month in the genitive after a day number). Numbers: "0", "0.00", "#,##0", "#,##0.00" and the like, with
// '.' for thousands and ',' for decimals in the result; rounding is half away from zero on the decimal
// digits as a person sees them (2,675 becomes 2,68); "0.00E+00" and the like are powers of ten. The named patterns
// ("Short Date", "Currency", "Yes/No" and the others of formatnamed.cpp) are those of Greek settings. "<" and ">" give
// small letters and capitals. Null gives "", True is -1 as a number. A text that reads as a date or number is formatted
// as one, otherwise it comes back as it is.
QString format(const QVariant& value, QStringView pattern);

// A text as a date, a time, or both, in the forms that people type: "5/11/2026", "05-11-26", "5.11.2026",
// "2026/11/05", "2026-11-05 14:30:05", "14:30", "2:30 μμ", "2:30 PM". An order that gives no date is tried
// the other way round (13/25/2026 never, 11/25/2026 as 25 November). Two-digit years: 00-29 are 20xx, the
// others 19xx. No year means the year of `today`. A time alone lies on 1899-12-30. Years 100 to 9999.
std::optional<QDateTime> parseDate(QStringView text, DateOrder order = DateOrder::DayFirst, QDate today = {});

inline bool isDate(QStringView text) {
    return parseDate(text).has_value();
}

// A text as a number, decimal comma, points between thousands ("1.234,50"), sign, blanks around. A lone
// point is a decimal point unless exactly three digits follow it (1.234 is a thousand and more).
// Empty or anything else gives nothing; infinities and NaN don't read.
std::optional<double> parseNumber(QStringView text);

inline bool isNumeric(QStringView text) {
    return parseNumber(text).has_value();
}

// A number as text: decimal comma, no thousands, at most 15 digits; a number of no more digits reads back as the same.
QString numberText(double value);

// Any value as the text a user reads: dates "dd/mm/yyyy" (with " hh:nn:ss" when a time is in it, the time
// alone for a time on 1899-12-30), numbers by numberText, True as "True", Null as "".
QString valueText(const QVariant& value);

// A day as lists show it, "dd/mm/yyyy"; empty for none.
QString dayText(const QDateTime& day);

// Wall clock to whole seconds since 1899-12-30 00:00:00 and back; the stored form of embedded databases.
qint64 dateToSeconds(const QDateTime& wallClock);
QDateTime secondsToDate(qint64 seconds);  // invalid when it lies far outside the calendar
QDateTime daysToDate(double days);        // a count of days as numbers in date columns have it; invalid likewise

QDateTime wallClock(QDate date, QTime time = QTime(0, 0));  // spec Qt::UTC, see types.h
QDateTime toWallClock(const QDateTime& local);              // keeps what the clock on the wall shows

}  // namespace data
