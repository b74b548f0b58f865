#include "diary/frmdatesshow.h"

#include "controls/layout.h"
#include "controls/names.h"
#include "core/required.h"
#include "data/recordset.h"
#include "data/values/format.h"
#include "diary/appointment.h"
#include "diary/reports.h"
#include "diary/sendics.h"
#include "diary/users.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

using controls::Item;

namespace {

QVector<controls::ListColumn> columns() {
    QVector<controls::ListColumn> all;
    for (const auto& [key, header] : {std::pair{u"Επαφή"_s, u"Επαφή"_s},
                                      {u"Subject"_s, u"Θέμα"_s},
                                      {u"Location"_s, u"Τόπος"_s},
                                      {u"Day"_s, u"Ημέρα"_s},
                                      {u"Start"_s, u"Έναρξη"_s},
                                      {u"End"_s, u"Τέλος"_s},
                                      {u"Χρήστης"_s, u"Χρήστης"_s},
                                      {u"Εντολέας"_s, u"Εντολέας"_s}})
        all.append({.key = key, .header = header, .spare = key == u"Subject"});
    return all;
}

}  // namespace

frmDatesShow::frmDatesShow(core::MainMod& mod)
    : Form(mod, u"frmDatesShow"_s, u"Λίστα Συναντήσεων"_s, {u"DateShow"_s, 1000, 0}, u"dates"_s),
      period_(new controls::Period(u"DTPcustDate"_s)),
      Combo1(controls::named(new controls::ChoiceBox(false), u"Combo1"_s)),
      ListView1(new core::StoredList(mod.services.settings, u"ListView1"_s, windowTitle(), u"lvDates"_s, columns())),
      keys_(core::SortKeys::ofAppointments(mod)),
      commands_(mod, this, commands()) {
    auto* foot = controls::row({Item::rest()});
    commands_.addPictures(foot);
    controls::add(
        controls::pageLayout(this),
        {controls::row({period_, Item::gap(12), controls::captionOf(u"Χρήστης"_s, Combo1), Combo1, Item::rest()}),
         {ListView1, 1},
         foot});
    setMinimumSize(960, 420);
    on(ListView1, &controls::ListView::rowActivated,
       [this](int row) { mod_.doors.openAppointment(ListView1->row(row).tag.toLongLong(), this); });
    on(ListView1, &controls::ListView::columnClicked, [this](int column) {
        keys_.click(column);
        FillList();
    });
}

QVector<core::Command> frmDatesShow::commands() {
    return {{u"lblClick(0)"_s, u"search"_s, u"Εμφάνιση Λίστας"_s, {}, [this] { FillList(); }},
            {u"lblClick(1)"_s,
             u"print"_s,
             u"Εκτύπωση Λίστας"_s,
             {},
             [this] {
                 const controls::Days days = core::required(*period_, u"των συναντήσεων"_s);
                 DatesReport(mod_, this, days.from, days.to);
             }},
            {u"cmdIcs"_s, u"calendar"_s, u"Αρχείο .ics..."_s, {}, [this] { saveList(); }},
            {u"lblClick(2)"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { emit closeRequested(); }}};
}

void frmDatesShow::saveList() {
    const controls::Days days = core::required(*period_, u"των συναντήσεων"_s);
    const QString user = Combo1->currentText();
    saveIcs(mod_, this,
            {.from = days.from, .to = days.to, .user = user.isEmpty() ? std::nullopt : std::optional(user)});
}

void frmDatesShow::onLoad() {
    period_->setFromToday(mod_.services.clock.today());
    keys_.load();
    fillUsers(mod_, *Combo1);
    if (mod_.onlyReads()) chooseUser(*Combo1, mod_.gUserName);
    FillList();
}

void frmDatesShow::onUnload() {
    keys_.store();
}

void frmDatesShow::refresh() {
    if (period_->days()) FillList();
}

void frmDatesShow::FillList() {
    const controls::Days days = core::required(*period_, u"των συναντήσεων"_s);
    const QString user = Combo1->currentText();
    const QVariant chosen = ListView1->currentTag();
    QVector<controls::ListRow> list;
    for (data::Recordset rows(
             mod_.gConn, data::Sql(u"Select [aa],[user],[contact],[subject],[location],[day],[start],[end],[notes],"
                                   "[entoleas] from dates where (day between ? and ?) {and user=?}"_s,
                                   days.from, days.to, user.isEmpty() ? std::nullopt : std::optional(user)));
         !rows.eof(); rows.moveNext())
        list.append({{rows[u"contact"].text(), rows[u"subject"].text(), rows[u"location"].text(),
                      data::dayText(rows[u"day"].toDate()), timeText(rows[u"start"].value()),
                      timeText(rows[u"end"].value()), rows[u"user"].text(), rows[u"entoleas"].text()},
                     rows[u"aa"].toLong(),
                     {}});
    ListView1->setRows(std::move(list));
    if (chosen.isValid()) ListView1->selectTag(chosen);
}

}  // namespace diary
