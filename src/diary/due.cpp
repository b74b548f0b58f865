#include "diary/due.h"

#include "data/recordset.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

QVector<controls::ListColumn> dueColumns() {
    return {{u"Επώνυμο"_s, u"Επώνυμο"_s, 2000},
            {u"Όνομα"_s, u"Όνομα"_s, 2000},
            {.key = u"Εταιρία"_s, .header = u"Εταιρία"_s, .width = 2000, .spare = true},
            {u"Λήξη"_s, u"Λήξη"_s, 1000},
            {u"Ποσό"_s, u"Ποσό"_s, 1000, true}};
}

// Each step is a statement of its own that goes on behind the last card, which the index on the day finds at once.
bool DueReader::step() {
    constexpr int ofOneStep = 2000;  // as `top` says
    const bool first = !lastDay_.isValid();
    data::Recordset rows(
        connection_,
        data::Sql(
            u"Select top 2000 CODE,[ΕΠΩΝΥΜΟ],[ΟΝΟΜΑ],[ΕΤΑΙΡΙΑ],dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ) as "
            "Teleytaia,[ΠΟΣΟ_ΚΙΝΗΣΗΣ] from CARDS where "
            "(dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ) between ? and ?) "
            "{AND (dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ)<>? or CODE>?)} "
            "{AND [ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ]<>?} "
            "ORDER BY dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ),CODE"_s,
            first ? data::wallClock(from_) : lastDay_, to_, first ? std::nullopt : std::optional(lastDay_),
            first ? std::nullopt : std::optional(lastCode_), withFrequency_ ? std::optional(0) : std::nullopt));
    for (; !rows.eof(); rows.moveNext()) {
        const QVariant stored = rows[u"ΠΟΣΟ_ΚΙΝΗΣΗΣ"].value();
        const data::Money amount = data::Money::of(stored.toDouble());
        lastDay_ = rows[u"Teleytaia"].toDate();
        lastCode_ = rows[u"CODE"].toLong();
        due_.sum += amount;
        due_.rows.append({{rows[u"ΕΠΩΝΥΜΟ"].text(), rows[u"ΟΝΟΜΑ"].text(), rows[u"ΕΤΑΙΡΙΑ"].text(),
                           data::dayText(lastDay_), stored.isNull() ? QString() : amount.text()},
                          lastCode_,
                          {}});
    }
    return rows.recordCount() >= ofOneStep;
}

Due dueCards(data::Connection& connection, QDate from, QDate to, bool withFrequency) {
    DueReader reader(connection, from, to, withFrequency);
    while (reader.step()) continue;
    return reader.read();
}

}  // namespace diary
