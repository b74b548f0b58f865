#include "data/values/money.h"

#include <cmath>
#include <limits>

#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace data {

namespace {

constexpr qint64 unitsPerOne = 10'000;
constexpr qint64 unitsPerCent = 100;
constexpr double largest = 9e14;
// Amounts of more digits are no longer exact to the cent in the columns that hold them.
constexpr double largestTyped = 1e13;

const QString tooLarge = u"υπέρβαση"_s;

// Nothing when the sum holds no more.
std::optional<qint64> sumOf(qint64 a, qint64 b) {
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    if (b > 0 ? a > most - b : a < -most - b) return {};
    return a + b;
}

}  // namespace

Money Money::of(double amount) {
    Money money;
    if (std::isnan(amount)) return money;
    money.beyond_ = std::fabs(amount) > largest;
    if (!money.beyond_) money.units_ = std::llround(amount * unitsPerOne);
    return money;
}

double Money::toDouble() const {
    return double(units_) / unitsPerOne;
}

QString Money::text() const {
    if (beyond_) return tooLarge;
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

Money& Money::add(qint64 units, bool beyond) {
    const auto sum = sumOf(units_, units);
    beyond_ = beyond_ || beyond || !sum;
    units_ = beyond_ ? 0 : *sum;
    return *this;
}

Money& Money::operator+=(Money other) {
    return add(other.units_, other.beyond_);
}

Money& Money::operator-=(Money other) {
    return add(-other.units_, other.beyond_);
}

std::optional<double> typedAmount(QStringView text) {
    const auto number = parseNumber(text);
    if (!number || std::fabs(*number) > largestTyped) return {};
    return parseNumber(format(*number, u"0.00"));
}

}  // namespace data
