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

Due dueCards(data::Connection& connection, QDate from, QDate to, bool withFrequency) {
    const data::Sql sql(
        u"Select CODE,[ΕΠΩΝΥΜΟ],[ΟΝΟΜΑ],[ΕΤΑΙΡΙΑ],dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ) as "
        "Teleytaia,[ΠΟΣΟ_ΚΙΝΗΣΗΣ],[ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ] from CARDS where "
        "(dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ) between ? and ?) {AND [ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ]<>?} ORDER BY "
        "dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ)"_s,
        from, to, withFrequency ? std::optional(0) : std::nullopt);
    Due due;
    for (data::Recordset rows(connection, sql); !rows.eof(); rows.moveNext()) {
        const QVariant stored = rows[u"ΠΟΣΟ_ΚΙΝΗΣΗΣ"].value();
        const data::Money amount = data::Money::of(stored.toDouble());
        due.sum += amount;
        due.rows.append({{rows[u"ΕΠΩΝΥΜΟ"].text(), rows[u"ΟΝΟΜΑ"].text(), rows[u"ΕΤΑΙΡΙΑ"].text(),
                          data::dayText(rows[u"Teleytaia"].toDate()), stored.isNull() ? QString() : amount.text()},
                         rows[u"CODE"].toLong(),
                         {}});
    }
    return due;
}

}  // namespace diary
