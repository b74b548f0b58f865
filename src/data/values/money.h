// Exact money.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

namespace data {

// An amount of money, exact to a ten-thousandth, so that sums of any length stay exact. What lies beyond about 900
// billion stands still there.
class Money {
public:
    Money() = default;
    static Money of(double amount);  // the nearest one

    double toDouble() const;
    QString text() const;  // "#,##0.00"

    Money& operator+=(Money other);
    Money& operator-=(Money other);
    friend bool operator==(Money, Money) = default;

private:
    qint64 units_ = 0;
};

// A typed amount, rounded to two decimals as it is stored; nothing for a text that is no amount.
std::optional<double> typedAmount(QStringView text);

}  // namespace data
