#include "cards/ledger.h"

#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

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
        {{data::dayText(movement.day), movement.reason, movement.debit.text(), movement.credit.text(), balance_.text()},
         movement.id});
}

QVector<LedgerRow> Ledger::finish() && {
    rows_.append({{u" "_s}});
    rows_.append({{u" "_s, u"ΣΥΝΟΛΑ"_s, debit_.text(), credit_.text(), balance_.text()}});
    return std::move(rows_);
}

}  // namespace cards
