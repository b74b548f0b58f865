#include "diary/frmnameday.h"

#include "controls/layout.h"
#include "controls/names.h"
#include "data/recordset.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

using controls::captionOf;
using controls::named;

namespace {

QVector<controls::ListColumn> cardColumns() {
    QVector<controls::ListColumn> all;
    for (const QString& name : {u"Επώνυμο"_s, u"Όνομα"_s, u"Τηλέφωνο"_s, u"Κινητό"_s}) all.append({name, name, 2000});
    return all;
}

}  // namespace

frmNameDay::frmNameDay(core::MainMod& mod)
    : Form(mod, u"frmNameDay"_s, {}, {u"NameDayShow"_s, 1545, 0}, u"nameday"_s),
      ListView1(new core::StoredList(mod.services.settings, u"ListView1"_s, u"Σήμερα γιορτάζουν"_s, u"lvNameDay1"_s,
                                     {{u"Όνομα"_s, u"Όνομα"_s, 8000}})),
      ListView2(new core::StoredList(mod.services.settings, u"ListView2"_s, u"Γιορτάζουν οι επαφές"_s, u"lvNameDay2"_s,
                                     cardColumns())),
      Check1(named(new QCheckBox(u"Να εμφανίζετε στην εκκίνηση του προγράμματος"_s), u"Check1"_s)),
      commands_(mod, this, {{u"cmdExit"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { emit closeRequested(); }}}) {
    controls::add(controls::pageLayout(this), {named(captionOf(u"Σήμερα γιορτάζουν:"_s, ListView1), u"Label3"_s),
                                               {ListView1, 1},
                                               named(captionOf(u"Γιορτάζουν οι επαφές:"_s, ListView2), u"Label4"_s),
                                               {ListView2, 1},
                                               controls::row({{Check1, 1}, commands_.picture(u"cmdExit"_s)})});
    setMinimumSize(560, 420);
    on(ListView2, &controls::ListView::rowActivated,
       [this](int row) { mod_.doors.openCard(ListView2->row(row).tag.toLongLong()); });
}

void frmNameDay::onLoad() {
    const QDate today = mod_.services.clock.today();
    setWindowTitle(u"Σήμερα (%1) Γιορτάζουν οι ..."_s.arg(data::format(data::wallClock(today), u"dddd dd mmm yyyy")));
    Check1->setChecked(mod_.services.settings.number(u"Options"_s, u"frmNameDayStart"_s, 1) == 1);
    fillNames(today);
    fillCards(today);
}

void frmNameDay::onUnload() {
    mod_.services.settings.setNumber(u"Options"_s, u"frmNameDayStart"_s, Check1->isChecked());
}

void frmNameDay::fillNames(QDate today) {
    QVector<controls::ListRow> list;
    for (data::Recordset rows(
             mod_.gConn,
             data::Sql(u"Select [onoma] from NameDay where day(hmera)=? and month(hmera)=? order by onoma"_s,
                       today.day(), today.month()));
         !rows.eof(); rows.moveNext())
        list.append({{rows[u"onoma"].text()}, {}, {}});
    ListView1->setRows(std::move(list));
}

void frmNameDay::fillCards(QDate today) {
    QVector<controls::ListRow> list;
    const int day = today.day(), month = today.month();
    for (data::Recordset rows(
             mod_.gConn,
             data::Sql(u"Select CODE,ΟΝΟΜΑ,ΕΠΩΝΥΜΟ,ΤΗΛΕΦΩΝΟ1,ΚΙΝΗΤΟ from Cards where (day(ΗΜ_ΓΕΝΗΣΗΣ)=? and "
                       "month(ΗΜ_ΓΕΝΗΣΗΣ)=?) or (day(ΗΜ_ΕΟΡΤΗΣ)=? and month(ΗΜ_ΕΟΡΤΗΣ)=?) order by ΕΠΩΝΥΜΟ"_s,
                       day, month, day, month));
         !rows.eof(); rows.moveNext())
        list.append(
            {{rows[u"ΕΠΩΝΥΜΟ"].text(), rows[u"ΟΝΟΜΑ"].text(), rows[u"ΤΗΛΕΦΩΝΟ1"].text(), rows[u"ΚΙΝΗΤΟ"].text()},
             rows[u"CODE"].toLong(),
             {}});
    ListView2->setRows(std::move(list));
}

}  // namespace diary
