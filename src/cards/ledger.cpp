#include "cards/ledger.h"

#include <cmath>
#include <limits>

#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

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
    const auto number = data::parseNumber(text);
    if (!number || std::fabs(*number) > largestTyped) return {};
    return data::parseNumber(data::format(*number, u"0.00"));
}

void Ledger::carryForward() {
    if (carried_) return;
    carried_ = true;
    // The balance is the one after the period's first movement, as the office knows this row.
    rows_.append({{u" "_s, u"ΑΠΟ ΜΕΤΑΦΟΡΑ"_s, {}, {}, balance_.text()}});
    rows_.append({{u" "_s}});
}

void Ledger::add(const Movement& movement) {
    balance_ += movement.debit;
    balance_ -= movement.credit;
    const QDate day = movement.day.date();
    if (!day.isValid() || day < from_ || day > to_) return;
    carryForward();
    debit_ += movement.debit;
    credit_ += movement.credit;
    rows_.append(
        {{dayText(movement.day), movement.reason, movement.debit.text(), movement.credit.text(), balance_.text()},
         movement.id});
}

QVector<LedgerRow> Ledger::finish() && {
    rows_.append({{u" "_s}});
    rows_.append({{u" "_s, u"ΣΥΝΟΛΑ"_s, debit_.text(), credit_.text(), balance_.text()}});
    return std::move(rows_);
}

QString dayText(const QDateTime& day) {
    if (!day.isValid()) return {};
    int year = 0, month = 0, ofMonth = 0;
    day.date().getDate(&year, &month, &ofMonth);
    QString text(10, u'/');
    const auto put = [&text](int at, int value, int digits) {
        for (int i = digits; i-- > 0; value /= 10) text[at + i] = QChar(u'0' + value % 10);
    };
    put(0, ofMonth, 2);
    put(3, month, 2);
    put(6, year, 4);
    return text;
}

}  // namespace cards
