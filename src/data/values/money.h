// Exact money.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

namespace data {

// An amount of money as the decimal digits of its number, so that sums of any length stay exact, also of amounts with
// more than two decimals that came from elsewhere. An amount beyond 900 million million, and every sum with one in it
// or that runs over, is no amount any more and says so.
class Money {
public:
    Money() = default;
    static Money of(double amount);

    bool isBeyond() const { return beyond_; }
    double toDouble() const;  // to 15 digits and 8 decimals; 0 for one that is beyond
    QString text() const;     // "#,##0.00", "υπέρβαση" for one that is beyond

    Money& operator+=(Money other);
    Money& operator-=(Money other);
    friend bool operator==(Money, Money) = default;

private:
    static Money ofDigits(double amount);
    Money& add(qint64 units, qint64 rest, bool beyond);

    qint64 units_ = 0;  // ten-thousandths
    qint64 rest_ = 0;   // what is more than them, never less than none; nearly always none
    bool beyond_ = false;
};

// A typed amount, rounded to two decimals as it is stored; nothing for a text that is no amount.
std::optional<double> typedAmount(QStringView text);

}  // namespace data
