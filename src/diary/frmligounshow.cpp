#include "diary/frmligounshow.h"

#include "controls/layout.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/required.h"
#include "diary/due.h"
#include "diary/reports.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

using controls::Item;

namespace {

const QString ofVisits = u"των επισκέψεων"_s;

}  // namespace

frmLigounShow::frmLigounShow(core::MainMod& mod)
    // At the place of the list of appointments: the two windows share it.
    : Form(mod, u"frmLigounShow"_s, u"Λίστα Επισκέψεων"_s, {u"DateShow"_s, 1000, 0}, u"due"_s),
      period_(new controls::Period(u"DTPcustDate"_s)),
      ListView1(
          new core::StoredList(mod.services.settings, u"ListView1"_s, windowTitle(), u"lvLigoun"_s, dueColumns())),
      lblYpoloipo(controls::named(new QLabel(u"0,00 "_s), u"lblYpoloipo"_s)),
      keys_(core::SortKeys::ofAppointments(mod)),
      commands_(mod, this, commands()) {
    lblYpoloipo->setFont(controls::font(u"Tahoma"_s, 11, true));
    auto* foot = controls::row({new QLabel(u" Σύνολο:"_s), lblYpoloipo, Item::rest()});
    commands_.addPictures(foot);
    controls::add(controls::pageLayout(this), {controls::row({period_, Item::rest()}), {ListView1, 1}, foot});
    setMinimumSize(640, 420);
    on(ListView1, &controls::ListView::rowActivated,
       [this](int row) { mod_.doors.openCard(ListView1->row(row).tag.toLongLong()); });
    on(ListView1, &controls::ListView::columnClicked, [this](int column) {
        keys_.click(column);
        FillList();
    });
}

QVector<core::Command> frmLigounShow::commands() {
    return {{u"lblClick(0)"_s, u"search"_s, u"Εμφάνιση Λίστας"_s, {}, [this] { FillList(); }},
            {u"lblClick(1)"_s,
             u"print"_s,
             u"Εκτύπωση Λίστας"_s,
             {},
             [this] {
                 const controls::Days days = core::required(*period_, ofVisits);
                 LeigounReport(mod_, this, days.from, days.to);
             }},
            {u"lblClick(2)"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { emit closeRequested(); }}};
}

void frmLigounShow::onLoad() {
    period_->setFromToday(mod_.services.clock.today());
    keys_.load();
    FillList();
}

void frmLigounShow::onUnload() {
    keys_.store(u"LigounQuery"_s);
}

void frmLigounShow::FillList() {
    const controls::Days days = core::required(*period_, ofVisits);
    Due due = dueCards(mod_.gConn, days.from, days.to, false);
    ListView1->setRows(std::move(due.rows));
    lblYpoloipo->setText(due.sum.text());
}

}  // namespace diary
