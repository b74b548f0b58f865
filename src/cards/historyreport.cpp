#include "cards/historyreport.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

using core::ReportItem, core::ReportLine;

const platform::PrintFont strong{.size = core::reportTextSize, .bold = true};

struct Column {
    double x, width;
    Qt::Alignment align = Qt::AlignLeft;
};
constexpr Column dateColumn{0, 14}, reasonColumn{15, 53}, notesColumn{15, 85};
const Column debitColumn{69, 15, Qt::AlignRight}, creditColumn{85, 15, Qt::AlignRight};

ReportItem head(const Column& column, const QString& text) {
    return {.x = column.x, .width = column.width, .text = text, .font = strong, .align = column.align};
}

ReportItem value(const Column& column, const QString& field) {
    return {.x = column.x, .width = column.width, .field = field, .align = column.align};
}

ReportLine pair(const QString& label, const QString& value, const QString& label2, const QString& value2) {
    return {ReportItem{.width = 16, .text = label, .grows = false},
            ReportItem{.x = 16, .width = 33, .text = value, .font = strong, .grows = false},
            ReportItem{.x = 50, .width = 16, .text = label2, .grows = false},
            ReportItem{.x = 66, .width = 34, .text = value2, .font = strong, .grows = false}};
}

}  // namespace

core::Report historyReport(const core::OwnerDetails& owner, data::Recordset& card) {
    core::Report report{.title = u"Εκτύπωση Ιστορικού"_s, .head = core::ownerBand(owner, u"ΙΣΤΟΡΙΚΟ ΕΠΑΦΗΣ"_s)};
    report.about = card[u"ΕΠΩΝΥΜΟ"].text();
    report.head.lines.append({pair(u"ΕΠΩΝΥΜΟ:"_s, card[u"ΕΠΩΝΥΜΟ"].text(), u"ΤΗΛΕΦΩΝΟ:"_s, card[u"ΤΗΛΕΦΩΝΟ1"].text()),
                              pair(u"ΟΝΟΜΑ:"_s, card[u"ΟΝΟΜΑ"].text(), u"ΚΙΝΗΤΟ:"_s, card[u"ΚΙΝΗΤΟ"].text())});
    report.pageHead = {.lines = {{head(dateColumn, u"ΗΜΕΡΟΜΗΝΙΑ"_s), head(reasonColumn, u"ΑΙΤΙΟΛΟΓΙΑ"_s),
                                  head(debitColumn, u"ΧΡΕΩΣΗ"_s), head(creditColumn, u"ΠΙΣΤΩΣΗ"_s)}},
                       .ruled = true};
    ReportItem notes = value(notesColumn, u"notes"_s);
    notes.font = {.size = 8, .italic = true};
    report.detail = {.lines = {{value(dateColumn, u"ΗΜΕΡΟΜΗΝΙΑ"_s), value(debitColumn, u"ΧΡΕΩΣΗ"_s),
                                value(creditColumn, u"ΠΙΣΤΩΣΗ"_s), value(reasonColumn, u"ΑΙΤΙΟΛΟΓΙΑ"_s)},
                               {notes}},
                     .after = 60};
    return report;
}

bool dtpHistory(core::MainMod& mod, QWidget* parent, qint64 cardCode) {
    data::Recordset card(mod.gConn,
                         data::Sql(u"select ΕΠΩΝΥΜΟ,ΟΝΟΜΑ,ΤΗΛΕΦΩΝΟ1,ΚΙΝΗΤΟ from cards where code=?"_s, cardCode));
    if (card.isEmpty()) return false;
    core::Report report = historyReport(core::ownerDetails(mod.services.settings), card);
    core::fillReport(
        report,
        data::Recordset(mod.gConn, data::Sql(u"select ΗΜΕΡΟΜΗΝΙΑ,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ,ΠΙΣΤΩΣΗ,notes from History where "
                                             "codecards=? order by ΗΜΕΡΟΜΗΝΙΑ,aa"_s,
                                             cardCode)),
        {{u"ΗΜΕΡΟΜΗΝΙΑ"_s, u"d/mm/yyyy"_s},
         {u"ΑΙΤΙΟΛΟΓΙΑ"_s},
         {u"ΧΡΕΩΣΗ"_s, u"#,##0.00"_s},
         {u"ΠΙΣΤΩΣΗ"_s, u"#,##0.00"_s},
         {u"notes"_s}});
    return core::printReport(mod, parent, report);
}

}  // namespace cards
