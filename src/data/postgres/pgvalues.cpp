#include "data/postgres/pgvalues.h"

#include <QtEndian>
#include <charconv>
#include <cmath>
#include <cstring>

#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace data::postgres {
namespace {

// The server's own numbers of its types, fixed for ever.
enum TypeNumber : Oid {
    Boolean = 16,
    Bytea = 17,
    Int8 = 20,
    Int2 = 21,
    Int4 = 23,
    Text = 25,
    ObjectId = 26,
    Float4 = 700,
    Float8 = 701,
    Varchar = 1043,
    Timestamp = 1114,
    Numeric = 1700,
};

constexpr qint64 millionth = 1'000'000;
constexpr qint64 epochSeconds = 36526LL * 86400;  // 2000-01-01, the server's zero, from 1899-12-30

[[noreturn]] void refuse(const QString& what) {
    throw Error(ErrorCategory::Type, u"Η τιμή δεν ταιριάζει με τον τύπο του πεδίου: περίμενα %1."_s.arg(what));
}

template <class T>
QByteArray bigEndian(T value) {
    QByteArray bytes(sizeof(T), Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray realBytes(double value) {
    quint64 bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bigEndian(bits);
}

QByteArray singleBytes(float value) {
    quint32 bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bigEndian(bits);
}

bool isText(const QVariant& value) {
    return value.typeId() == QMetaType::QString;
}

double number(const QVariant& value) {
    if (isText(value)) {
        if (const auto parsed = parseNumber(value.toString())) return *parsed;
        refuse(u"αριθμό"_s);
    }
    if (value.typeId() == QMetaType::QByteArray) refuse(u"αριθμό"_s);
    if (value.typeId() == QMetaType::QDateTime) return double(dateToSeconds(value.toDateTime()));
    return value.toDouble();
}

template <class T>
QByteArray whole(const QVariant& value) {
    const bool exact = value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::Int;
    const double rounded = exact ? value.toDouble() : std::nearbyint(number(value));
    constexpr double least = double(std::numeric_limits<T>::min()), most = double(std::numeric_limits<T>::max());
    if (!(rounded >= least && rounded <= most)) refuse(u"αριθμό μέσα στα όρια"_s);
    return bigEndian<T>(T(exact ? value.toLongLong() : qint64(rounded)));
}

QByteArray textBytes(const QVariant& value) {
    if (value.typeId() == QMetaType::QByteArray) refuse(u"κείμενο"_s);
    QByteArray utf8 = valueText(value).toUtf8();
    if (utf8.contains('\0')) refuse(u"κείμενο χωρίς χαρακτήρα μηδέν (NUL)"_s);
    return utf8;
}

QByteArray tagged(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::QString:
            return 't' + textBytes(value);
        case QMetaType::QByteArray:
            return 'b' + value.toByteArray().toHex();
        case QMetaType::Double:
        case QMetaType::Float:
            return 'r' + QByteArray::number(value.toDouble(), 'g', 17);
        default:
            return 'i' + QByteArray::number(qint64(number(value)));
    }
}

QByteArray encoded(const QVariant& value, Oid type) {
    switch (type) {
        case Boolean:
            return QByteArray(1, char(number(value) != 0));
        case Int2:
            return whole<qint16>(value);
        case Int4:
            return whole<qint32>(value);
        case Int8:
            return whole<qint64>(value);
        case Float4:
            return singleBytes(float(number(value)));
        case Float8:
            return realBytes(number(value));
        case Timestamp:
            return bigEndian<qint64>((qint64(number(value)) - epochSeconds) * millionth);
        case Bytea:
            return value.typeId() == QMetaType::QByteArray ? value.toByteArray() : textBytes(value);
        case Numeric:
            return QByteArray::number(number(value), 'g', 17);
        default:
            return textBytes(value);
    }
}

Oid typeNumber(ColumnType type) {
    switch (type) {
        case ColumnType::Autonumber:
            return Int8;
        case ColumnType::Long:
            return Int4;
        case ColumnType::Integer:
            return Int2;
        case ColumnType::Single:
            return Float4;
        case ColumnType::Double:
            return Float8;
        case ColumnType::YesNo:
            return Boolean;
        case ColumnType::DateTime:
            return Timestamp;
        case ColumnType::LongBinary:
            return Bytea;
        default:
            return Text;
    }
}

bool isNull(const QVariant& value) {
    return !value.isValid() || value.typeId() == QMetaType::Nullptr;
}

double singleAsSeen(float value) {
    char digits[40];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    double result = value;
    std::from_chars(digits, end, result);
    return result;
}

// Groups of four decimal digits, the first of which stands at 10000^weight.
void sendNumeric(const char* bytes, RowSink& sink) {
    const auto word = [&](int at) { return qFromBigEndian<qint16>(bytes + 2 * at); };
    const int groups = word(0), weight = word(1);
    const quint16 sign = quint16(word(2));
    if (sign != 0 && sign != 0x4000) return sink.real(std::nan(""));
    const bool isWhole = groups <= weight + 1 && weight <= 3;
    if (isWhole) {
        qint64 value = 0;
        for (int i = 0; i <= weight; ++i) value = value * 10000 + (i < groups ? word(4 + i) : 0);
        return sink.integer(sign ? -value : value);
    }
    QByteArray digits = "0";
    for (int i = 0; i < groups; ++i) digits += QByteArray::number(word(4 + i)).rightJustified(4, '0');
    digits += 'e' + QByteArray::number(4 * (weight - groups + 1));
    sink.real(sign ? -digits.toDouble() : digits.toDouble());
}

void sendCell(const char* bytes, int size, Oid type, RowSink& sink) {
    switch (type) {
        case Boolean:
            return sink.integer(bytes[0] != 0);
        case Int2:
            return sink.integer(qFromBigEndian<qint16>(bytes));
        case Int4:
            return sink.integer(qFromBigEndian<qint32>(bytes));
        case ObjectId:
            return sink.integer(qFromBigEndian<quint32>(bytes));
        case Int8:
            return sink.integer(qFromBigEndian<qint64>(bytes));
        case Float4: {
            const quint32 bits = qFromBigEndian<quint32>(bytes);
            float value;
            std::memcpy(&value, &bits, sizeof value);
            return sink.real(singleAsSeen(value));
        }
        case Float8: {
            const quint64 bits = qFromBigEndian<quint64>(bytes);
            double value;
            std::memcpy(&value, &bits, sizeof value);
            return sink.real(value);
        }
        case Timestamp: {
            const qint64 millionths = qFromBigEndian<qint64>(bytes);
            const qint64 seconds = millionths / millionth - (millionths % millionth < 0 ? 1 : 0);
            return sink.integer(seconds + epochSeconds);
        }
        case Numeric:
            return sendNumeric(bytes, sink);
        case Bytea:
            return sink.blob(bytes, size);
        default:
            return sink.text(bytes, size);
    }
}

}  // namespace

PgParameters::PgParameters(const QVector<QVariant>& values, const std::vector<Oid>& types, Oid variant) {
    held_.reserve(values.size());
    for (qsizetype i = 0; i < values.size(); ++i) {
        const Oid type = types[size_t(i)];
        const bool null = isNull(values[i]);
        held_.append(null ? QByteArray() : type == variant ? tagged(values[i]) : encoded(values[i], type));
        pointers_.push_back(null ? nullptr : held_.last().constData());
        lengths_.push_back(int(held_.last().size()));
        formats_.push_back(type == Numeric ? 0 : 1);
    }
}

QByteArray columnBytes(const QVariant& value, ColumnType type) {
    return encoded(value, typeNumber(type));
}

qint64 sendRows(const PGresult* result, RowSink& sink) {
    const int rows = PQntuples(result), columns = PQnfields(result);
    std::vector<Oid> types;
    for (int column = 0; column < columns; ++column) types.push_back(PQftype(result, column));
    for (int row = 0; row < rows; ++row) {
        sink.beginRow();
        for (int column = 0; column < columns; ++column) {
            if (PQgetisnull(result, row, column))
                sink.null();
            else
                sendCell(PQgetvalue(result, row, column), PQgetlength(result, row, column), types[size_t(column)],
                         sink);
        }
    }
    return rows;
}

}  // namespace data::postgres
