// Exact money.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

namespace data {

// An amount of money, exact to a ten-thousandth, so that sums of any length stay exact. An amount beyond 900 million
// million, and every sum with one in it or that runs over, is no amount any more and says so.
class Money {
public:
    Money() = default;
    static Money of(double amount);  // the nearest one

    bool isBeyond() const { return beyond_; }
    double toDouble() const;  // 0 for one that is beyond
    QString text() const;     // "#,##0.00", "υπέρβαση" for one that is beyond

    Money& operator+=(Money other);
    Money& operator-=(Money other);
    friend bool operator==(Money, Money) = default;

private:
    Money& add(qint64 units, bool beyond);

    qint64 units_ = 0;
    bool beyond_ = false;
};

// A typed amount, rounded to two decimals as it is stored; nothing for a text that is no amount.
std::optional<double> typedAmount(QStringView text);

}  // namespace data
