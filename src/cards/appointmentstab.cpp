#include "cards/appointmentstab.h"

#include "cards/ledger.h"
#include "controls/layout.h"
#include "data/recordset.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

QVector<controls::ListColumn> columns() {
    return {{u"Subject"_s, u"Θέμα"_s, 1000}, {u"Location"_s, u"Τόπος"_s, 1000}, {u"Day"_s, u"Ημέρα"_s, 1000},
            {u"Start"_s, u"Έναρξη"_s, 1200}, {u"End"_s, u"Τέλος"_s, 1200},      {u"Σχόλια"_s, u"Σχόλια"_s, 2200}};
}

QString timeText(const QVariant& time) {
    return data::format(time, u"hh:nn");
}

}  // namespace

AppointmentsTab::AppointmentsTab(core::MainMod& mod)
    : Guarded(mod, this),
      ListView3(new core::StoredList(mod.services.settings, u"ListView3"_s, u"Συναντήσεις"_s, u"lvDates"_s, columns())),
      commands_(mod, this,
                {{u"cmdDelAppoiment"_s,
                  u"delete"_s,
                  u"Διαγραφή Συνάντησης"_s,
                  {},
                  [this] { deleteAppointment(); },
                  [this] { return ListView3->count() > 0; }}}) {
    controls::add(controls::tabLayout(this),
                  {{ListView3, 1}, controls::row({commands_.button(u"cmdDelAppoiment"_s), controls::Item::rest()})});
}

void AppointmentsTab::fill(const QString& code) {
    code_ = code;
    QVector<controls::ListRow> rows;
    try {
        for (data::Recordset dates(mod_.gConn,
                                   data::Sql(u"Select aa,[contact],[subject],[location],[day],[start],[end],[notes] "
                                             "from dates where codecard=?"_s,
                                             code.toLongLong()));
             !dates.eof(); dates.moveNext())
            rows.append({{dates[u"subject"].text(), dates[u"location"].text(), data::dayText(dates[u"day"].toDate()),
                          timeText(dates[u"start"].value()), timeText(dates[u"end"].value()), dates[u"notes"].text()},
                         dates[u"aa"].value(),
                         {}});
    } catch (const data::Error& error) {
        core::showFailure(mod_, this, error,
                          u"Πρόβλημα κατά την επεξεργασία των δεμένων! \nΕλέγχετε τα πεδία της ημερομηνίας! \n"_s);
    }
    ListView3->setRows(std::move(rows));
    if (ListView3->count() > 0) ListView3->selectRow(0);
    commands_.refresh();
}

void AppointmentsTab::clear() {
    code_.clear();
    ListView3->clear();
    commands_.refresh();
}

void AppointmentsTab::deleteAppointment() {
    const QVariant appointment = ListView3->currentTag();
    if (appointment.isValid() && askAndDelete(u"Να συνεχίσω με διαγραφή της Συνάντησης;"_s, [&] {
            mod_.gConn.execute(data::Sql(u"Delete from dates where aa=?"_s, appointment.toLongLong()));
        }))
        fill(code_);
}

}  // namespace cards
