#include <cmath>

#include "data/sqlite/functionparts.h"
#include "data/values/convert.h"
#include "data/values/format.h"

namespace data::sqlite {

QVariant taggedValue(sqlite3_value* value, char tag) {
    const int type = sqlite3_value_type(value);
    if (type == SQLITE_NULL) return {};
    if (tag == 'd' && type != SQLITE_TEXT) return secondsToDate(sqlite3_value_int64(value));
    if (tag == 'y' && type != SQLITE_TEXT) return sqlite3_value_double(value) != 0;
    switch (type) {
        case SQLITE_INTEGER:
            return qint64(sqlite3_value_int64(value));
        case SQLITE_FLOAT:
            return sqlite3_value_double(value);
        case SQLITE_BLOB:
            return QByteArray(static_cast<const char*>(sqlite3_value_blob(value)), sqlite3_value_bytes(value));
        default:
            return text(value);
    }
}

void resultStored(Context context, const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::UnknownType:
            return sqlite3_result_null(context);
        case QMetaType::Bool:
            return sqlite3_result_int(context, value.toBool());
        case QMetaType::Double:
            return sqlite3_result_double(context, value.toDouble());
        case QMetaType::QDateTime:
            return sqlite3_result_int64(context, dateToSeconds(value.toDateTime()));
        case QMetaType::QString:
            return result(context, value.toString());
        case QMetaType::QByteArray: {
            const QByteArray bytes = value.toByteArray();
            return sqlite3_result_blob64(context, bytes.constData(), sqlite3_uint64(bytes.size()), SQLITE_TRANSIENT);
        }
        default:
            return sqlite3_result_int64(context, value.toLongLong());
    }
}

namespace {

char tagOf(sqlite3_value* value) {
    const Utf8 tag = utf8(value);
    return tag.size > 0 ? tag.data[0] : 'v';
}

bool isTextValue(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_TEXT;
}

// The three readings take numbers as they are and give Null for a text that doesn't read.

void toNumber(Context context, int, Values values) {
    if (!isTextValue(values[0])) return sqlite3_result_value(context, values[0]);
    const std::optional<double> number = parseNumber(text(values[0]));
    if (number)
        sqlite3_result_double(context, *number);
    else
        sqlite3_result_null(context);
}

void toDate(Context context, int, Values values) {
    if (sqlite3_value_type(values[0]) == SQLITE_INTEGER) return sqlite3_result_value(context, values[0]);
    const bool isReal = sqlite3_value_type(values[0]) == SQLITE_FLOAT;
    const QDateTime date =
        isReal ? daysToDate(sqlite3_value_double(values[0])) : parseDate(text(values[0])).value_or(QDateTime());
    if (date.isValid())
        sqlite3_result_int64(context, dateToSeconds(date));
    else
        sqlite3_result_null(context);
}

void toYesNo(Context context, int, Values values) {
    if (!isTextValue(values[0])) return sqlite3_result_int(context, sqlite3_value_double(values[0]) != 0);
    ColumnInfo column;
    column.type = ColumnType::YesNo;
    try {
        sqlite3_result_int(context, toColumn(text(values[0]), column).toBool());
    } catch (const std::exception&) {
        sqlite3_result_null(context);
    }
}

void toText(Context context, int, Values values) {
    if (isTextValue(values[0])) return sqlite3_result_value(context, values[0]);
    const QVariant value = taggedValue(values[0], tagOf(values[1]));
    if (value.typeId() == QMetaType::QByteArray) return sqlite3_result_null(context);
    result(context, valueText(value));
}

// value, kind's tag, column type, size, column name
void intoColumn(Context context, int, Values values) {
    ColumnInfo column;
    column.type = ColumnType(sqlite3_value_int(values[2]));
    column.size = sqlite3_value_int(values[3]);
    column.name = text(values[4]);
    char tag = tagOf(values[1]);
    // A parameter for a date column comes in the stored form.
    if (tag == 'v' && column.type == ColumnType::DateTime && sqlite3_value_type(values[0]) == SQLITE_INTEGER) tag = 'd';
    resultStored(context, toColumn(taggedValue(values[0], tag), column));
}

void formatted(Context context, int count, Values values) {
    if (isNull(values[0])) return result(context, QString());
    const QVariant value = taggedValue(values[0], tagOf(values[1]));
    if (value.typeId() == QMetaType::QByteArray) return result(context, QString());
    result(context, count > 2 && !isNull(values[2]) ? format(value, text(values[2])) : valueText(value));
}

void numeric(Context context, int, Values values) {
    const QVariant value = taggedValue(values[0], tagOf(values[1]));
    const int type = value.typeId();
    sqlite3_result_int(context, type == QMetaType::QString ? isNumeric(value.toString())
                                                           : type == QMetaType::LongLong || type == QMetaType::Double ||
                                                                 type == QMetaType::Bool);
}

void dateLike(Context context, int, Values values) {
    const QVariant value = taggedValue(values[0], tagOf(values[1]));
    sqlite3_result_int(context, value.typeId() == QMetaType::QString ? isDate(value.toString())
                                                                     : value.typeId() == QMetaType::QDateTime);
}

}  // namespace

const std::vector<SqlFunction>& conversionFunctions() {
    static const std::vector<SqlFunction> functions = {
        {"jet_tonumber", 1, toNumber},         {"jet_todate", 1, toDate},
        {"jet_toyesno", 1, toYesNo},           {"jet_totext", 2, toText},
        {"jet_tocolumn", 5, intoColumn, true}, {"jet_format", -1, formatted, true},
        {"jet_isnumeric", 2, numeric, true},   {"jet_isdate", 2, dateLike, true},
    };
    return functions;
}

}  // namespace data::sqlite
