#include <cmath>

#include "data/sqlite/functionparts.h"
#include "data/values/format.h"

namespace data::sqlite {

namespace {

constexpr qint64 secondsPerDay = 86400;
constexpr qint64 dayZero = 2415019;  // Julian day of 1899-12-30

enum class Interval { None, Year, Quarter, Month, DayOfYear, Day, Weekday, Week, Hour, Minute, Second };

Interval intervalOf(sqlite3_value* value) {
    const Utf8 name = utf8(value);
    const auto is = [&](const char* known) {
        return name.size == qsizetype(strlen(known)) && qstrnicmp(name.data, known, size_t(name.size)) == 0;
    };
    if (is("d")) return Interval::Day;
    if (is("m")) return Interval::Month;
    if (is("yyyy")) return Interval::Year;
    if (is("q")) return Interval::Quarter;
    if (is("y")) return Interval::DayOfYear;
    if (is("w")) return Interval::Weekday;
    if (is("ww")) return Interval::Week;
    if (is("h")) return Interval::Hour;
    if (is("n")) return Interval::Minute;
    if (is("s")) return Interval::Second;
    return Interval::None;
}

qint64 floorDivide(qint64 value, qint64 by) {
    return value / by - (value % by < 0 ? 1 : 0);
}

// A date in the stored form, taken apart.
struct Moment {
    qint64 seconds;
    qint64 day() const { return floorDivide(seconds, secondsPerDay); }
    int secondOfDay() const { return int(seconds - day() * secondsPerDay); }
    QDate date() const { return QDate::fromJulianDay(day() + dayZero); }
};

Moment moment(sqlite3_value* value) {
    return {sqlite3_value_int64(value)};
}

// Years 100 to 9999, as columns hold them.
void resultMoment(Context context, QDate date, qint64 secondOfDay) {
    if (!date.isValid()) return sqlite3_result_null(context);
    const qint64 seconds = (date.toJulianDay() - dayZero) * secondsPerDay + secondOfDay;
    const int year = Moment{seconds}.date().year();
    if (year < 100 || year > 9999) return sqlite3_result_null(context);
    sqlite3_result_int64(context, seconds);
}

template <class Part>
void part(Context context, Values values, Part take) {
    const QDate date = moment(values[0]).date();
    if (!date.isValid()) return sqlite3_result_null(context);
    sqlite3_result_int(context, take(date));
}

void day(Context context, int, Values values) {
    part(context, values, [](QDate date) { return date.day(); });
}

void month(Context context, int, Values values) {
    part(context, values, [](QDate date) { return date.month(); });
}

void year(Context context, int, Values values) {
    part(context, values, [](QDate date) { return date.year(); });
}

void hour(Context context, int, Values values) {
    sqlite3_result_int(context, moment(values[0]).secondOfDay() / 3600);
}

void minute(Context context, int, Values values) {
    sqlite3_result_int(context, moment(values[0]).secondOfDay() / 60 % 60);
}

void second(Context context, int, Values values) {
    sqlite3_result_int(context, moment(values[0]).secondOfDay() % 60);
}

// 1 is Sunday; 0 means as the system has it, which is Monday in Greece.
int firstDayOfWeek(int count, Values values, int at) {
    const qint64 first = count > at ? wholeNumber(values[at]).value_or(1) : 1;
    if (first == 0) return 2;
    return first >= 1 && first <= 7 ? int(first) : 1;
}

// From 0, counted from the first day of the week.
int dayInWeek(QDate date, int firstDay) {
    return (date.dayOfWeek() % 7 - (firstDay - 1) + 7) % 7;
}

void weekday(Context context, int count, Values values) {
    const int first = firstDayOfWeek(count, values, 1);
    part(context, values, [first](QDate date) { return dayInWeek(date, first) + 1; });
}

// `least` is how many days the first week of a year must have in it: 1, 4 or 7.
int weekOfYear(QDate date, int firstDay, int least) {
    const auto firstWeek = [&](int year) {
        const QDate newYear(year, 1, 1);
        const int offset = dayInWeek(newYear, firstDay);
        return newYear.addDays(7 - offset >= least ? -offset : 7 - offset);
    };
    if (least == 1) return int(firstWeek(date.year()).daysTo(date)) / 7 + 1;
    QDate start = firstWeek(date.year());
    if (date < start) start = firstWeek(date.year() - 1);
    if (const QDate next = firstWeek(date.year() + 1); date >= next) start = next;
    return int(start.daysTo(date)) / 7 + 1;
}

void dateadd(Context context, int, Values values) {
    const std::optional<qint64> number = wholeNumber(values[1]);
    const Moment from = moment(values[2]);
    const QDate date = from.date();
    constexpr qint64 farthest = 400'000'000'000;  // seconds in a bit more than all years there are
    if (!number || std::abs(*number) > farthest || !date.isValid()) return sqlite3_result_null(context);
    const int months = int(std::clamp<qint64>(*number, -200'000, 200'000));
    const qint64 days = std::clamp<qint64>(*number, -10'000'000, 10'000'000);
    switch (intervalOf(values[0])) {
        case Interval::Year:
            return resultMoment(context, date.addYears(months), from.secondOfDay());
        case Interval::Quarter:
            return resultMoment(context, date.addMonths(3 * months), from.secondOfDay());
        case Interval::Month:
            return resultMoment(context, date.addMonths(months), from.secondOfDay());
        case Interval::DayOfYear:
        case Interval::Weekday:
        case Interval::Day:
            return resultMoment(context, date.addDays(days), from.secondOfDay());
        case Interval::Week:
            return resultMoment(context, date.addDays(7 * days), from.secondOfDay());
        case Interval::Hour:
            return resultMoment(context, date, from.secondOfDay() + *number * 3600);
        case Interval::Minute:
            return resultMoment(context, date, from.secondOfDay() + *number * 60);
        case Interval::Second:
            return resultMoment(context, date, from.secondOfDay() + *number);
        case Interval::None:
            break;
    }
    sqlite3_result_null(context);
}

// Boundaries crossed from the first date to the second, not time elapsed: 31 December to 1 January is a year.
std::optional<qint64> difference(Interval interval, Moment from, Moment to, int firstDay) {
    const QDate a = from.date();
    const QDate b = to.date();
    if (!a.isValid() || !b.isValid()) return std::nullopt;
    const int months = (b.year() - a.year()) * 12 + b.month() - a.month();
    switch (interval) {
        case Interval::Year:
            return b.year() - a.year();
        case Interval::Quarter:
            return (b.year() - a.year()) * 4 + (b.month() - 1) / 3 - (a.month() - 1) / 3;
        case Interval::Month:
            return months;
        case Interval::DayOfYear:
        case Interval::Day:
            return to.day() - from.day();
        case Interval::Weekday:
            return (to.day() - from.day()) / 7;
        case Interval::Week:
            return (a.addDays(-dayInWeek(a, firstDay)).daysTo(b.addDays(-dayInWeek(b, firstDay)))) / 7;
        case Interval::Hour:
            return floorDivide(to.seconds, 3600) - floorDivide(from.seconds, 3600);
        case Interval::Minute:
            return floorDivide(to.seconds, 60) - floorDivide(from.seconds, 60);
        case Interval::Second:
            return to.seconds - from.seconds;
        case Interval::None:
            break;
    }
    return std::nullopt;
}

void datediff(Context context, int count, Values values) {
    const std::optional<qint64> answer =
        difference(intervalOf(values[0]), moment(values[1]), moment(values[2]), firstDayOfWeek(count, values, 3));
    if (answer)
        sqlite3_result_int64(context, *answer);
    else
        sqlite3_result_null(context);
}

void datepart(Context context, int count, Values values) {
    const Moment at = moment(values[1]);
    const QDate date = at.date();
    if (!date.isValid()) return sqlite3_result_null(context);
    const int firstDay = firstDayOfWeek(count, values, 2);
    const qint64 firstWeek = count > 3 ? wholeNumber(values[3]).value_or(1) : 1;
    switch (intervalOf(values[0])) {
        case Interval::Year:
            return sqlite3_result_int(context, date.year());
        case Interval::Quarter:
            return sqlite3_result_int(context, (date.month() - 1) / 3 + 1);
        case Interval::Month:
            return sqlite3_result_int(context, date.month());
        case Interval::DayOfYear:
            return sqlite3_result_int(context, date.dayOfYear());
        case Interval::Day:
            return sqlite3_result_int(context, date.day());
        case Interval::Weekday:
            return sqlite3_result_int(context, dayInWeek(date, firstDay) + 1);
        case Interval::Week:
            return sqlite3_result_int(context, weekOfYear(date, firstDay, firstWeek == 3 ? 7 : firstWeek == 2 ? 4 : 1));
        case Interval::Hour:
            return sqlite3_result_int(context, at.secondOfDay() / 3600);
        case Interval::Minute:
            return sqlite3_result_int(context, at.secondOfDay() / 60 % 60);
        case Interval::Second:
            return sqlite3_result_int(context, at.secondOfDay() % 60);
        case Interval::None:
            break;
    }
    sqlite3_result_null(context);
}

// Months and days out of range run over into the next or last, as in dateserial(2026, 3, 0).
void dateserial(Context context, int, Values values) {
    const std::optional<qint64> y = wholeNumber(values[0]);
    const std::optional<qint64> m = wholeNumber(values[1]);
    const std::optional<qint64> d = wholeNumber(values[2]);
    constexpr qint64 limit = 1'000'000;
    if (!y || !m || !d || *y < 0 || *y > 9999 || std::abs(*m) > limit || std::abs(*d) > limit)
        return sqlite3_result_null(context);
    const int fullYear = int(*y < 30 ? *y + 2000 : *y < 100 ? *y + 1900 : *y);
    resultMoment(context, QDate(fullYear, 1, 1).addMonths(int(*m) - 1).addDays(*d - 1), 0);
}

void timeserial(Context context, int, Values values) {
    const std::optional<qint64> h = wholeNumber(values[0]);
    const std::optional<qint64> m = wholeNumber(values[1]);
    const std::optional<qint64> s = wholeNumber(values[2]);
    constexpr qint64 limit = 1'000'000;
    if (!h || !m || !s || std::abs(*h) > limit || std::abs(*m) > limit || std::abs(*s) > limit)
        return sqlite3_result_null(context);
    sqlite3_result_int64(context, *h * 3600 + *m * 60 + *s);
}

void datevalue(Context context, int, Values values) {
    sqlite3_result_int64(context, moment(values[0]).day() * secondsPerDay);
}

void timevalue(Context context, int, Values values) {
    sqlite3_result_int64(context, moment(values[0]).secondOfDay());
}

qint64 clockSeconds() {
    return dateToSeconds(toWallClock(QDateTime::currentDateTime()));
}

void now(Context context, int, Values) {
    sqlite3_result_int64(context, clockSeconds());
}

void today(Context context, int, Values) {
    sqlite3_result_int64(context, Moment{clockSeconds()}.day() * secondsPerDay);
}

void timeOfDay(Context context, int, Values) {
    sqlite3_result_int64(context, Moment{clockSeconds()}.secondOfDay());
}

void monthname(Context context, int count, Values values) {
    const qint64 number = wholeNumber(values[0]).value_or(0);
    if (number < 1 || number > 12) return sqlite3_result_null(context);
    const bool brief = count > 1 && sqlite3_value_int(values[1]) != 0;
    result(context, format(wallClock(QDate(2001, int(number), 1)), brief ? u"mmm" : u"mmmm"));
}

void weekdayname(Context context, int count, Values values) {
    const qint64 number = wholeNumber(values[0]).value_or(0);
    if (number < 1 || number > 7) return sqlite3_result_null(context);
    const bool brief = count > 1 && sqlite3_value_int(values[1]) != 0;
    const QDate sunday(2000, 1, 2);
    const QDate date = sunday.addDays(number - 1 + firstDayOfWeek(count, values, 2) - 1);
    result(context, format(wallClock(date), brief ? u"ddd" : u"dddd"));
}

}  // namespace

const std::vector<SqlFunction>& dateFunctions() {
    static const std::vector<SqlFunction> functions = {
        {"jet_day", 1, day},
        {"jet_month", 1, month},
        {"jet_year", 1, year},
        {"jet_hour", 1, hour},
        {"jet_minute", 1, minute},
        {"jet_second", 1, second},
        {"jet_weekday", -1, weekday},
        {"jet_dateadd", 3, dateadd},
        {"jet_datediff", -1, datediff},
        {"jet_datepart", -1, datepart},
        {"jet_dateserial", 3, dateserial},
        {"jet_timeserial", 3, timeserial},
        {"jet_datevalue", 1, datevalue},
        {"jet_timevalue", 1, timevalue},
        {"jet_monthname", -1, monthname},
        {"jet_weekdayname", -1, weekdayname},
        {"jet_now", 0, now, false, false},
        {"jet_date", 0, today, false, false},
        {"jet_time", 0, timeOfDay, false, false},
    };
    return functions;
}

}  // namespace data::sqlite
