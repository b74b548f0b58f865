#include "controls/period.h"

#include "controls/names.h"

using namespace Qt::Literals::StringLiterals;

namespace controls {

Period::Period(const QString& pickers) : Period(pickers, {u"txtFrom"_s, u"txtTo"_s}) {}

Period::Period(const QString& pickers, const Names& boxes)
    : from_(new DateField(boxes.from, arrayName(pickers, 0), u"Από:"_s)),
      to_(new DateField(boxes.to, arrayName(pickers, 1), u"Έως:"_s)) {
    from_->showCaption();
    to_->showCaption();
    setLayout(row({from_, Item::gap(8), to_}));
}

void Period::setDays(const Days& days) {
    from_->setDate(days.from);
    to_->setDate(days.to);
}

void Period::setMonthToDate(QDate today) {
    setDays({QDate(today.year(), today.month(), 1), today});
}

void Period::setFromToday(QDate today, int days) {
    setDays({today, today.addDays(days)});
}

std::optional<Days> Period::days() const {
    const auto from = from_->date(), to = to_->date();
    if (!from || !to) return std::nullopt;
    return Days{*from, *to};
}

QString Period::text() const {
    return u"από %1 έως %2"_s.arg(from_->text(), to_->text());
}

}  // namespace controls
