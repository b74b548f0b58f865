#include "data/values/format.h"

#include <cmath>

#include "data/values/formatparts.h"
#include "data/values/lettercase.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

constexpr qint64 secondsOfDay = 86400;

QDate dayZero() {
    return QDate(1899, 12, 30);
}

std::optional<QDateTime> asDate(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::QDateTime:
            return toWallClock(value.toDateTime());
        case QMetaType::QDate:
            return wallClock(value.toDate());
        case QMetaType::QTime:
            return wallClock(dayZero(), value.toTime());
        case QMetaType::QString:
            return parseDate(value.toString());
        default:
            return {};
    }
}

std::optional<Decimal> asDecimal(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::Bool:
            return Decimal::of(qint64(value.toBool() ? -1 : 0));
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Short:
        case QMetaType::Long:
        case QMetaType::LongLong:
            return Decimal::of(value.toLongLong());
        case QMetaType::ULongLong:
        case QMetaType::Float:
        case QMetaType::Double:
            if (std::isfinite(value.toDouble())) return Decimal::of(value.toDouble());
            return {};
        case QMetaType::QString:
            if (const auto number = parseNumber(value.toString())) return Decimal::of(*number);
            return {};
        default:
            return {};
    }
}

bool isDateType(const QVariant& value) {
    const int type = value.typeId();
    return type == QMetaType::QDateTime || type == QMetaType::QDate || type == QMetaType::QTime;
}

QString dateText(const QDateTime& at) {
    if (!at.isValid()) return {};
    if (at.date() == dayZero() && at.time() != QTime(0, 0)) return formatDate(at, u"hh:nn:ss");
    return formatDate(at, at.time() == QTime(0, 0) ? u"dd/mm/yyyy" : u"dd/mm/yyyy hh:nn:ss");
}

// A number is a count of days, as everywhere in the dialect.
std::optional<QDateTime> dateFor(const QVariant& value) {
    const int type = value.typeId();
    if (const auto date = asDate(value)) return date;
    if (type == QMetaType::QString || type == QMetaType::Bool || !asDecimal(value)) return {};
    return daysToDate(value.toDouble());
}

// Plain digits as far as people read them, powers of ten beyond.
QString decimalText(Decimal decimal) {
    int exponent = 0;
    if (decimal.point > 21 || decimal.point < -9) {
        exponent = decimal.point - 1;
        decimal.point = 1;
    }
    const int places = qMax(0, int(decimal.digits.size()) - decimal.point);
    const QString text = formatNumber(decimal, places > 0 ? u"0."_s + QString(places, u'0') : u"0"_s);
    return exponent == 0 ? text : text + u'E' + QString::number(exponent);
}

}  // namespace

QString format(const QVariant& value, QStringView pattern) {
    if (!value.isValid()) return {};
    pattern = resolvedPattern(pattern);
    if (pattern.isEmpty()) return valueText(value);
    if (pattern == u"<") return lowerText(valueText(value));
    if (pattern == u">") return upperText(valueText(value));
    if (isDatePattern(pattern)) {
        const auto date = dateFor(value);
        if (!date || !date->isValid()) return valueText(value);
        return pattern == generalDate ? dateText(*date) : formatDate(*date, pattern);
    }
    auto number = asDecimal(value);
    if (const auto date = asDate(value); !number && date && date->isValid() && isDateType(value))
        number = Decimal::of(double(dateToSeconds(*date)) / secondsOfDay);
    if (!number) return valueText(value);
    return pattern == generalNumber ? decimalText(*number) : formatNumber(*number, pattern);
}

QString numberText(double value) {
    if (std::isnan(value)) return u"NaN"_s;
    if (std::isinf(value)) return value < 0 ? u"-∞"_s : u"∞"_s;
    return decimalText(Decimal::of(value));
}

QString valueText(const QVariant& value) {
    if (!value.isValid()) return {};
    if (isDateType(value)) return dateText(*asDate(value));
    switch (value.typeId()) {
        case QMetaType::Bool:
            return value.toBool() ? u"True"_s : u"False"_s;
        case QMetaType::Float:
        case QMetaType::Double:
            return numberText(value.toDouble());
        default:
            return value.toString();
    }
}

qint64 dateToSeconds(const QDateTime& at) {
    return dayZero().daysTo(at.date()) * secondsOfDay + at.time().msecsSinceStartOfDay() / 1000;
}

QDateTime secondsToDate(qint64 seconds) {
    qint64 day = seconds / secondsOfDay;
    if (seconds % secondsOfDay < 0) --day;
    constexpr qint64 tenThousandYears = 3'700'000;
    if (day > tenThousandYears || day < -tenThousandYears) return {};
    return wallClock(dayZero().addDays(day), QTime::fromMSecsSinceStartOfDay(int(seconds - day * secondsOfDay) * 1000));
}

QDateTime daysToDate(double days) {
    if (!(std::fabs(days) < 3.7e6)) return {};
    return secondsToDate(qint64(std::llround(days * secondsOfDay)));
}

QDateTime wallClock(QDate date, QTime time) {
    return QDateTime(date, time, Qt::UTC);
}

QDateTime toWallClock(const QDateTime& local) {
    return wallClock(local.date(), local.time());
}

}  // namespace data
