#include "data/values/money.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace data {

namespace {

constexpr qint64 unitsPerOne = 10'000;
constexpr qint64 unitsPerCent = 100;
constexpr int restDigits = 14;
constexpr int keptDecimals = 8;  // no amount has more; what lies behind them was left by binary sums
constexpr qint64 restsPerUnit = 100'000'000'000'000;
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
    if (money.beyond_) return money;
    money.units_ = std::llround(amount * unitsPerOne);
    return money.toDouble() == amount ? money : ofDigits(amount);
}

// Of the fewest digits that mean this number, those behind the eighteenth decimal aside.
Money Money::ofDigits(double amount) {
    char buffer[400];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(amount), std::chars_format::fixed).ptr;
    const QByteArray text(buffer, end - buffer);
    const QByteArrayList parts = text.split('.');
    const QByteArray decimals = parts.value(1).left(4 + restDigits).leftJustified(4 + restDigits, '0');
    Money money;
    money.add((parts[0] + decimals.left(4)).toLongLong(), decimals.mid(4).toLongLong(), false);
    return amount < 0 ? Money() -= money : money;
}

double Money::toDouble() const {
    if (rest_ == 0) return double(units_) / unitsPerOne;
    const long double whole = static_cast<long double>(units_) + static_cast<long double>(rest_) / restsPerUnit;
    const double seen = QByteArray::number(double(whole / unitsPerOne), 'g', 15).toDouble();
    const double amount = QByteArray::number(seen, 'f', keptDecimals).toDouble();
    return amount == 0 ? 0.0 : amount;
}

QString Money::text() const {
    if (beyond_) return tooLarge;
    if (rest_ != 0) return format(toDouble(), u"#,##0.00");
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

Money& Money::add(qint64 units, qint64 rest, bool beyond) {
    auto sum = sumOf(units_, units);
    rest_ += rest;
    if (sum && (rest_ < 0 || rest_ >= restsPerUnit)) {
        const int carry = rest_ < 0 ? -1 : 1;
        rest_ -= carry * restsPerUnit;
        sum = sumOf(*sum, carry);
    }
    beyond_ = beyond_ || beyond || !sum;
    units_ = beyond_ ? 0 : *sum;
    if (beyond_) rest_ = 0;
    return *this;
}

Money& Money::operator+=(Money other) {
    return add(other.units_, other.rest_, other.beyond_);
}

Money& Money::operator-=(Money other) {
    return add(-other.units_, -other.rest_, other.beyond_);
}

std::optional<double> typedAmount(QStringView text) {
    const auto number = parseNumber(text);
    if (!number || std::fabs(*number) > largestTyped) return {};
    return parseNumber(format(*number, u"0.00"));
}

}  // namespace data
