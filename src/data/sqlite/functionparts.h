// What the files of SQL functions share.
#pragma once

#include <sqlite3.h>

#include <QDate>
#include <QString>
#include <QVariant>
#include <cstring>
#include <optional>
#include <vector>

namespace data::sqlite {

using Context = sqlite3_context*;
using Values = sqlite3_value**;

struct SqlFunction {
    const char* name;
    int arguments;  // -1: any number
    void (*run)(Context context, int count, Values values);
    bool takesNull = false;  // otherwise a Null argument gives Null without a call
    bool pure = true;        // the same arguments always give the same
};

const std::vector<SqlFunction>& textFunctions();
const std::vector<SqlFunction>& dateFunctions();
const std::vector<SqlFunction>& numberFunctions();
const std::vector<SqlFunction>& conversionFunctions();
void registerAggregates(sqlite3* database);

inline bool isNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

struct Utf8 {
    const char* data;
    qsizetype size;
};

inline Utf8 utf8(sqlite3_value* value) {
    const char* data = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {data ? data : "", data ? sqlite3_value_bytes(value) : 0};
}

inline QString text(sqlite3_value* value) {
    const Utf8 bytes = utf8(value);
    return QString::fromUtf8(bytes.data, bytes.size);
}

inline void result(Context context, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    sqlite3_result_text64(context, bytes.constData(), sqlite3_uint64(bytes.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
}

inline void result(Context context, const char* data, qsizetype size) {
    sqlite3_result_text64(context, data, sqlite3_uint64(size), SQLITE_TRANSIENT, SQLITE_UTF8);
}

// A number as a whole one, halves to even; nothing when it is out of range.
std::optional<qint64> wholeNumber(double value);
std::optional<qint64> wholeNumber(sqlite3_value* value);

// A value by the tag of its kind (see kindTag), in the forms of types.h.
QVariant taggedValue(sqlite3_value* value, char tag);
// A value in the stored form.
void resultStored(Context context, const QVariant& value);

// The fold of a text in memory of its own; short ones stay on the stack.
class Folded {
public:
    explicit Folded(sqlite3_value* value);
    const char* data() const { return heap_.isEmpty() ? stack_ : heap_.constData(); }
    qsizetype size() const { return size_; }

private:
    char stack_[768];
    QByteArray heap_;
    qsizetype size_;
};

}  // namespace data::sqlite
