// The arithmetic of a card's movements: exact money, and the rows of a period with their running balance.
#pragma once

#include <QDateTime>
#include <QStringList>
#include <QVector>
#include <optional>

namespace cards {

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

struct Movement {
    qint64 id = 0;
    QDateTime day;  // invalid when the row has none
    QString reason;
    Money debit, credit;
};

struct LedgerRow {
    QStringList cells;                 // date, reason, debit, credit, balance
    std::optional<qint64> movement{};  // none for the carried row, the sums and the blanks
};

// Takes all movements of a card in their order and keeps rows for those of the period, both days included.
class Ledger {
public:
    Ledger(QDate from, QDate to) : from_(from), to_(to) {}

    void add(const Movement& movement);
    // The rows, ended by the sums of the period.
    QVector<LedgerRow> finish() &&;

    Money balance() const { return balance_; }  // of all movements, those outside the period too

private:
    void carryForward();

    QDate from_, to_;
    QVector<LedgerRow> rows_;
    Money balance_, debit_, credit_;
    bool carried_ = false;
};

// A day as lists show it, empty for none.
QString dayText(const QDateTime& day);

}  // namespace cards
