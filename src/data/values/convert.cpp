#include "data/values/convert.h"

#include <cmath>
#include <limits>

#include "data/error.h"
#include "data/values/fold.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

[[noreturn]] void refuse(const ColumnInfo& column, ErrorCategory category, const QString& why) {
    throw Error(category, u"Η τιμή του πεδίου «%1» %2"_s.arg(column.name, why));
}

[[noreturn]] void refuseType(const ColumnInfo& column, const QString& why) {
    refuse(column, ErrorCategory::Type, why);
}

bool isText(const QVariant& value) {
    return value.typeId() == QMetaType::QString || value.typeId() == QMetaType::QChar;
}

bool isInteger(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Long:
        case QMetaType::LongLong:
            return true;
        default:
            return false;
    }
}

bool isReal(const QVariant& value) {
    const int type = value.typeId();
    return type == QMetaType::Double || type == QMetaType::Float || type == QMetaType::ULongLong ||
           type == QMetaType::ULong;
}

bool isNull(const QVariant& value) {
    if (!value.isValid() || value.typeId() == QMetaType::Nullptr) return true;
    // An invalid date is what a Null reads as through Field::toDate.
    if (value.typeId() == QMetaType::QDateTime) return !value.toDateTime().isValid();
    return value.typeId() == QMetaType::QDate && !value.toDate().isValid();
}

double toNumber(const QVariant& value, const ColumnInfo& column) {
    if (isInteger(value)) return double(value.toLongLong());
    if (isReal(value)) return value.toDouble();
    if (value.typeId() == QMetaType::Bool) return value.toBool() ? -1 : 0;  // True is -1 in the dialect
    if (value.typeId() == QMetaType::QDateTime) return double(dateToSeconds(value.toDateTime())) / 86400;
    if (isText(value)) {
        if (const auto number = parseNumber(value.toString())) return *number;
        refuseType(column, value.toString().trimmed().isEmpty() ? u"είναι κενή και χρειάζεται αριθμό."_s
                                                                : u"δεν είναι αριθμός."_s);
    }
    refuseType(column, u"δεν είναι αριθμός."_s);
}

QVariant toWhole(const QVariant& value, const ColumnInfo& column) {
    const bool shortInteger = column.type == ColumnType::Integer;
    const double low = shortInteger ? std::numeric_limits<qint16>::min() : std::numeric_limits<qint32>::min();
    const double high = shortInteger ? std::numeric_limits<qint16>::max() : std::numeric_limits<qint32>::max();
    const double number = std::nearbyint(toNumber(value, column));  // the default rounding is half to even
    if (!(number >= low && number <= high))
        refuseType(column, u"είναι έξω από τα όρια (%1 έως %2)."_s.arg(qint64(low)).arg(qint64(high)));
    return qint64(number);
}

QVariant toReal(const QVariant& value, const ColumnInfo& column) {
    const double number = toNumber(value, column);
    const bool single = column.type == ColumnType::Single;
    if (!std::isfinite(number) || (single && std::fabs(number) > double(std::numeric_limits<float>::max())))
        refuseType(column, u"είναι έξω από τα όρια."_s);
    return number == 0 ? 0.0 : number;  // no negative zero
}

QVariant toText(const QVariant& value, const ColumnInfo& column) {
    if (value.typeId() == QMetaType::QByteArray || !value.canConvert<QString>())
        refuseType(column, u"δεν είναι κείμενο."_s);
    const QString text = valueText(value);
    if (column.type == ColumnType::Text && column.size > 0 && text.size() > column.size) {
        refuse(column, ErrorCategory::Constraint,
               u"έχει %1 χαρακτήρες και χωράνε %2."_s.arg(text.size()).arg(column.size));
    }
    return text;
}

QVariant toYesNo(const QVariant& value, const ColumnInfo& column) {
    if (value.typeId() == QMetaType::Bool) return value.toBool();
    if (isText(value)) {
        const QString word = fold(value.toString().trimmed());
        if (word == u"true" || word == u"ναι") return true;
        if (word == u"false" || word == u"οχι") return false;
        if (const auto number = parseNumber(word)) return *number != 0;
    } else if (isInteger(value) || isReal(value)) {
        return value.toDouble() != 0;
    }
    refuseType(column, u"πρέπει να είναι Ναι ή Όχι."_s);
}

QVariant toDateTime(const QVariant& value, const ColumnInfo& column, DateOrder order) {
    QDateTime at;
    if (value.typeId() == QMetaType::QDateTime)
        at = toWallClock(value.toDateTime());
    else if (value.typeId() == QMetaType::QDate)
        at = wallClock(value.toDate());
    else if (value.typeId() == QMetaType::QTime)
        at = wallClock(QDate(1899, 12, 30), value.toTime());
    else if (isInteger(value) || isReal(value))
        at = daysToDate(value.toDouble());
    else if (isText(value))
        at = parseDate(value.toString(), order).value_or(QDateTime());
    if (!at.isValid()) refuseType(column, u"δεν είναι ημερομηνία ή ώρα."_s);
    if (at.date().year() < 100 || at.date().year() > 9999)
        refuseType(column, u"είναι ημερομηνία έξω από τα έτη 100 έως 9999."_s);
    return secondsToDate(dateToSeconds(at));
}

QVariant toBinary(const QVariant& value, const ColumnInfo& column) {
    if (value.typeId() != QMetaType::QByteArray) refuseType(column, u"δεν είναι δεδομένα αρχείου."_s);
    return value;
}

}  // namespace

QVariant toColumn(const QVariant& value, const ColumnInfo& column, DateOrder order) {
    if (isNull(value)) return column.type == ColumnType::YesNo ? QVariant(false) : QVariant();
    switch (column.type) {
        case ColumnType::Autonumber:
        case ColumnType::Long:
        case ColumnType::Integer:
            return toWhole(value, column);
        case ColumnType::Single:
        case ColumnType::Double:
            return toReal(value, column);
        case ColumnType::Text:
        case ColumnType::Memo:
            return toText(value, column);
        case ColumnType::YesNo:
            return toYesNo(value, column);
        case ColumnType::DateTime:
            return toDateTime(value, column, order);
        case ColumnType::LongBinary:
            return toBinary(value, column);
    }
    return value;
}

}  // namespace data
