#include "diary/reports.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

namespace {

using core::ReportItem, core::ReportLine;

const platform::PrintFont strong{.size = core::reportTextSize, .bold = true};
constexpr double rowGap = 120, groupGap = 180;

// A column's head, and the field below it.
struct Column {
    QString head, field;
    double x, width;
    Qt::Alignment align = Qt::AlignLeft;
};

ReportLine heads(const QVector<Column>& columns) {
    ReportLine line;
    for (const Column& column : columns)
        line.append({.x = column.x, .width = column.width, .text = column.head, .font = strong, .align = column.align});
    return line;
}

ReportLine values(const QVector<Column>& columns) {
    ReportLine line;
    for (const Column& column : columns)
        line.append({.x = column.x, .width = column.width, .field = column.field, .align = column.align});
    return line;
}

// A caption with a field beside it, over a part of the line.
struct Place {
    double x = 0, width = 100, caption = 16;
    bool strong = false;
};
ReportLine captioned(const QString& caption, const QString& field, const Place& place = {}) {
    ReportItem value{.x = place.x + place.caption, .width = place.width - place.caption, .field = field};
    value.font.bold = place.strong;
    return {ReportItem{.x = place.x, .width = place.caption, .text = caption, .font = strong}, value};
}

core::Report titled(core::MainMod& mod, const QString& title, const QString& printedTitle = {}) {
    return {.title = title, .head = core::ownerBand(core::ownerDetails(mod.services.settings), printedTitle)};
}

}  // namespace

core::Report datesReport(core::MainMod& mod, QDate from, QDate to) {
    const QVector<Column> columns{{u"Θέμα"_s, u"Subject"_s, 0, 30},
                                  {u"Τόπος"_s, u"Location"_s, 31, 20},
                                  {u"Έναρξη"_s, u"Start"_s, 52, 10},
                                  {u"Τέλος"_s, u"End"_s, 63, 10},
                                  {u"Επαφή"_s, u"contact"_s, 74, 26}};
    core::Report report = titled(mod, u"Κατάσταση Συναντήσεων"_s);
    report.pageHead = {.lines = {core::titleLine(u"ΚΑΤΑΣΤΑΣΗ ΣΥΝΑΝΤΗΣΕΩΝ ("_s + mod.gUserName + u')')}};
    report.groupBy = u"Day"_s;
    report.groupHead = {.lines = {captioned(u"Ημερομηνία:"_s, u"Day"_s, {.strong = true}), heads(columns)},
                        .before = groupGap,
                        .ruled = true};
    report.detail = {
        .lines = {values(columns), captioned(u"Σημειώσεις:"_s, u"notes"_s), captioned(u"Εντολέας:"_s, u"Entoleas"_s)},
        .after = rowGap};
    core::fillReport(
        report,
        data::Recordset(mod.gConn, data::Sql(u"select [day],subject,location,[start],[end],contact,notes,entoleas "
                                             "from Dates where ([day] between ? and ?) and [user]=? "
                                             "order by [day],[start],[end]"_s,
                                             from, to, mod.gUserName)),
        {{u"Day"_s, u"dd/mm/yyyy"_s},
         {u"Subject"_s},
         {u"Location"_s},
         {u"Start"_s, u"hh:nn"_s},
         {u"End"_s, u"hh:nn"_s},
         {u"contact"_s},
         {u"notes"_s},
         {u"Entoleas"_s}});
    return report;
}

core::Report thinksReport(core::MainMod& mod) {
    core::Report report = titled(mod, u"Κατάσταση Εκρεμών Εργασιών"_s);
    report.pageHead = {.lines = {core::titleLine(u"ΚΑΤΑΣΤΑΣΗ ΕΚΡΕΜΩΝ ΕΡΓΑΣΙΩΝ ("_s + mod.gUserName + u')')},
                       .after = groupGap,
                       .ruled = true};
    constexpr double wide = 19;
    report.detail = {.lines = {captioned(u"Θέμα:"_s, u"Subject"_s, {.caption = wide, .strong = true}),
                               captioned(u"Προτεραιότητα:"_s, u"Priority"_s, {.width = 49, .caption = wide}) +
                                   captioned(u"Εντολέας:"_s, u"Entoleas"_s, {.x = 50, .width = 50}),
                               captioned(u"Σημειώσεις:"_s, u"notes"_s, {.caption = wide})},
                     .after = groupGap};
    core::fillReport(
        report,
        data::Recordset(
            mod.gConn,
            data::Sql(u"select subject,priority,entoleas,notes from ThinksToDo where [user]=? order by priority"_s,
                      mod.gUserName)),
        {{u"Subject"_s}, {u"Priority"_s}, {u"Entoleas"_s}, {u"notes"_s}});
    return report;
}

core::Report leigounReport(core::MainMod& mod, QDate from, QDate to) {
    const QVector<Column> columns{{u"ΕΠΩΝΥΜΟ"_s, u"ΕΠΩΝΥΜΟ"_s, 0, 26},
                                  {u"ΟΝΟΜΑ"_s, u"ΟΝΟΜΑ"_s, 27, 18},
                                  {u"ΕΤΑΙΡΙΑ"_s, u"ΕΤΑΙΡΙΑ"_s, 46, 21},
                                  {u"ΛΗΞΗ"_s, u"Teleytaia"_s, 68, 16},
                                  {u"ΠΟΣΟ"_s, u"ΠΟΣΟ_ΚΙΝΗΣΗΣ"_s, 85, 15, Qt::AlignRight}};
    const QString title = u"ΚΑΤΑΣΤΑΣΗ ΕΚΡΕΜΩΝ ΕΠΙΣΚΕΨΕΩΝ"_s;
    core::Report report = titled(mod, title, title);
    report.pageHead = {.lines = {heads(columns)}, .ruled = true};
    report.detail = {.lines = {values(columns), captioned(u"Διεύθυνση:"_s, u"ΔΙΕΥΘΥΝΣΗ"_s, {.width = 67}) +
                                                    captioned(u"Τηλέφωνο:"_s, u"ΤΗΛΕΦΩΝΟ1"_s, {.x = 68, .width = 32})},
                     .after = rowGap};
    core::fillReport(
        report,
        data::Recordset(mod.gConn,
                        data::Sql(u"select [ΕΠΩΝΥΜΟ],[ΟΝΟΜΑ],[ΕΤΑΙΡΙΑ],[ΔΙΕΥΘΥΝΣΗ],[ΤΗΛΕΦΩΝΟ1],"
                                  "dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ) as Teleytaia,[ΠΟΣΟ_ΚΙΝΗΣΗΣ] "
                                  "from CARDS "
                                  "where (dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ) between ? and ?) "
                                  "order by dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ)"_s,
                                  from, to)),
        {{u"ΕΠΩΝΥΜΟ"_s},
         {u"ΟΝΟΜΑ"_s},
         {u"ΕΤΑΙΡΙΑ"_s},
         {u"ΔΙΕΥΘΥΝΣΗ"_s},
         {u"ΤΗΛΕΦΩΝΟ1"_s},
         {u"Teleytaia"_s, u"dd/mm/yyyy"_s},
         {u"ΠΟΣΟ_ΚΙΝΗΣΗΣ"_s, u"#,##0.00"_s}});
    return report;
}

bool DatesReport(core::MainMod& mod, QWidget* parent, QDate from, QDate to) {
    return core::printReport(mod, parent, datesReport(mod, from, to));
}

bool ThinksReport(core::MainMod& mod, QWidget* parent) {
    return core::printReport(mod, parent, thinksReport(mod));
}

bool LeigounReport(core::MainMod& mod, QWidget* parent, QDate from, QDate to) {
    return core::printReport(mod, parent, leigounReport(mod, from, to));
}

}  // namespace diary
