#include <cmath>

#include "data/sqlite/functionparts.h"

namespace data::sqlite {

std::optional<qint64> wholeNumber(double value) {
    const double rounded = std::nearbyint(value);  // the default rounding is half to even
    constexpr double farthest = 9.0e18;
    if (!(std::abs(rounded) < farthest)) return std::nullopt;
    return qint64(rounded);
}

std::optional<qint64> wholeNumber(sqlite3_value* value) {
    if (sqlite3_value_type(value) == SQLITE_INTEGER) return sqlite3_value_int64(value);
    return wholeNumber(sqlite3_value_double(value));
}

namespace {

void resultReal(Context context, double value) {
    if (std::isfinite(value))
        sqlite3_result_double(context, value);
    else
        sqlite3_result_null(context);
}

void resultWhole(Context context, std::optional<qint64> value) {
    if (value)
        sqlite3_result_int64(context, *value);
    else
        sqlite3_result_null(context);
}

void floorOf(Context context, int, Values values) {
    resultReal(context, std::floor(sqlite3_value_double(values[0])));
}

void truncated(Context context, int, Values values) {
    resultReal(context, std::trunc(sqlite3_value_double(values[0])));
}

// Half to even on the decimal digits as a person sees them: 2.675 stands a hair below the half it means.
double roundedTo(double value, int places) {
    const double scale = std::pow(10.0, places);
    const double scaled = value * scale;
    if (!std::isfinite(scaled) || std::abs(scaled) > 1e15) return value;
    const double below = std::floor(scaled);
    const double rest = scaled - below;
    const double tolerance = 4e-16 * std::max(1.0, std::abs(scaled));
    if (std::abs(rest - 0.5) <= tolerance) return (std::fmod(below, 2) == 0 ? below : below + 1) / scale;
    return (rest < 0.5 ? below : below + 1) / scale;
}

void round(Context context, int count, Values values) {
    const qint64 places = count > 1 ? wholeNumber(values[1]).value_or(0) : 0;
    if (places < 0 || places > 22) return sqlite3_result_null(context);
    resultReal(context, roundedTo(sqlite3_value_double(values[0]), int(places)));
}

void absolute(Context context, int, Values values) {
    const qint64 whole = sqlite3_value_int64(values[0]);
    if (sqlite3_value_type(values[0]) == SQLITE_INTEGER && whole != std::numeric_limits<qint64>::min())
        sqlite3_result_int64(context, std::abs(whole));
    else
        resultReal(context, std::abs(sqlite3_value_double(values[0])));
}

void sign(Context context, int, Values values) {
    const double value = sqlite3_value_double(values[0]);
    sqlite3_result_int(context, value > 0 ? 1 : value < 0 ? -1 : 0);
}

void squareRoot(Context context, int, Values values) {
    resultReal(context, std::sqrt(sqlite3_value_double(values[0])));
}

void power(Context context, int, Values values) {
    resultReal(context, std::pow(sqlite3_value_double(values[0]), sqlite3_value_double(values[1])));
}

void whole(Context context, int, Values values) {
    resultWhole(context, wholeNumber(values[0]));
}

// Both sides are rounded first; nothing for a division by zero.
template <class Operation>
void wholeOperation(Context context, Values values, Operation operation) {
    const std::optional<qint64> left = wholeNumber(values[0]);
    const std::optional<qint64> right = wholeNumber(values[1]);
    if (!left || !right || *right == 0) return sqlite3_result_null(context);
    if (*right == -1)
        return resultWhole(context, operation(0, 1) == 0 && *left == std::numeric_limits<qint64>::min()
                                        ? std::nullopt
                                        : std::optional<qint64>(operation(*left, -1)));
    sqlite3_result_int64(context, operation(*left, *right));
}

void wholeDivide(Context context, int, Values values) {
    wholeOperation(context, values, [](qint64 a, qint64 b) { return a / b; });
}

void modulo(Context context, int, Values values) {
    wholeOperation(context, values, [](qint64 a, qint64 b) { return a % b; });
}

// The number that a text begins with, with a decimal point; blanks don't count.
void val(Context context, int, Values values) {
    const Utf8 text = utf8(values[0]);
    QByteArray digits;
    for (qsizetype i = 0; i < text.size && digits.size() < 400; ++i)
        if (!memchr(" \t\r\n", text.data[i], 4)) digits += text.data[i];
    qsizetype end = 0;
    const auto digit = [&](qsizetype at) { return at < digits.size() && digits[at] >= '0' && digits[at] <= '9'; };
    if (end < digits.size() && (digits[end] == '+' || digits[end] == '-')) ++end;
    while (digit(end)) ++end;
    if (end < digits.size() && digits[end] == '.') ++end;
    while (digit(end)) ++end;
    if (end < digits.size() && (digits[end] == 'e' || digits[end] == 'E')) {
        qsizetype exponent = end + 1;
        if (exponent < digits.size() && (digits[exponent] == '+' || digits[exponent] == '-')) ++exponent;
        if (digit(exponent)) {
            while (digit(exponent)) ++exponent;
            end = exponent;
        }
    }
    resultReal(context, digits.left(end).toDouble());
}

}  // namespace

const std::vector<SqlFunction>& numberFunctions() {
    static const std::vector<SqlFunction> functions = {
        {"jet_int", 1, floorOf},   {"jet_fix", 1, truncated}, {"jet_round", -1, round},
        {"jet_abs", 1, absolute},  {"jet_sgn", 1, sign},      {"jet_sqr", 1, squareRoot},
        {"jet_power", 2, power},   {"jet_whole", 1, whole},   {"jet_wholedivide", 2, wholeDivide},
        {"jet_modulo", 2, modulo}, {"jet_val", 1, val},
    };
    return functions;
}

}  // namespace data::sqlite
