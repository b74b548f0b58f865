// The rows of a card's movements in a period, with their running balance.
#pragma once

#include <QDateTime>
#include <QStringList>
#include <QVector>
#include <optional>

#include "data/values/money.h"

namespace cards {

using data::Money;

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

}  // namespace cards
