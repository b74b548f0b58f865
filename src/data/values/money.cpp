#include "data/values/money.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "data/values/format.h"

namespace data {

namespace {

constexpr qint64 unitsPerOne = 10'000;
constexpr qint64 unitsPerCent = 100;
constexpr double largest = 9e14;
// Amounts of more digits are no longer exact to the cent in the columns that hold them.
constexpr double largestTyped = 1e13;

qint64 saturatedSum(qint64 a, qint64 b) {
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    if (b > 0 && a > most - b) return most;
    if (b < 0 && a < -most - b) return -most;
    return a + b;
}

}  // namespace

Money Money::of(double amount) {
    Money money;
    if (std::isnan(amount)) return money;
    money.units_ = std::llround(std::clamp(amount, -largest, largest) * unitsPerOne);
    return money;
}

double Money::toDouble() const {
    return double(units_) / unitsPerOne;
}

QString Money::text() const {
    const qint64 cents = (std::abs(units_) + unitsPerCent / 2) / unitsPerCent;
    char16_t buffer[40];
    char16_t* at = buffer + 40;
    *--at = char16_t(u'0' + cents % 10);
    *--at = char16_t(u'0' + cents / 10 % 10);
    *--at = u',';
    qint64 whole = cents / 100;
    for (int digits = 0; digits == 0 || whole > 0; ++digits, whole /= 10) {
        if (digits > 0 && digits % 3 == 0) *--at = u'.';
        *--at = char16_t(u'0' + whole % 10);
    }
    if (units_ < 0 && cents > 0) *--at = u'-';
    return QString(reinterpret_cast<const QChar*>(at), buffer + 40 - at);
}

Money& Money::operator+=(Money other) {
    units_ = saturatedSum(units_, other.units_);
    return *this;
}

Money& Money::operator-=(Money other) {
    units_ = saturatedSum(units_, -other.units_);
    return *this;
}

std::optional<double> typedAmount(QStringView text) {
    const auto number = parseNumber(text);
    if (!number || std::fabs(*number) > largestTyped) return {};
    return parseNumber(format(*number, u"0.00"));
}

}  // namespace data
