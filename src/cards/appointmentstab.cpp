#include "cards/appointmentstab.h"

#include "cards/ledger.h"
#include "controls/layout.h"
#include "data/recordset.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

QVector<controls::ListColumn> columns() {
    return {{.key = u"Subject"_s, .header = u"Θέμα"_s, .spare = true},
            {u"Location"_s, u"Τόπος"_s, 1000},
            {u"Day"_s, u"Ημέρα"_s, 1000},
            {u"Start"_s, u"Έναρξη"_s, 1200},
            {u"End"_s, u"Τέλος"_s, 1200},
            {u"Σχόλια"_s, u"Σχόλια"_s, 2200}};
}

QString timeText(const QVariant& time) {
    return data::format(time, u"hh:nn");
}

}  // namespace

AppointmentsTab::AppointmentsTab(core::MainMod& mod, std::function<QString()> contact)
    : Guarded(mod, this),
      contact_(std::move(contact)),
      ListView3(new core::StoredList(mod.services.settings, u"ListView3"_s, u"Συναντήσεις"_s, u"lvDates"_s, columns())),
      commands_(mod, this, commands()) {
    auto* buttons = controls::row({});
    commands_.addButtons(buttons);
    buttons->addStretch(1);
    controls::add(controls::tabLayout(this), {{ListView3, 1}, buttons});
    on(ListView3, &controls::ListView::rowActivated, [this] { edit(); });
    on(ListView3->selectionModel(), &QItemSelectionModel::currentChanged, [this] { commands_.refresh(); });
}

QVector<core::Command> AppointmentsTab::commands() {
    const auto hasRows = [this] { return ListView3->count() > 0; };
    return {{u"cmdNewAppoiment"_s,
             u"add"_s,
             u"Νέα Συνάντηση"_s,
             {},
             [this] { mod_.doors.openCalendarFor(code_.toLongLong(), contact_()); },
             [this] { return code_.toLongLong() != 0; }},
            {u"cmdEditAppoiment"_s, u"edit"_s, u"Διόρθωση Συνάντησης"_s, {}, [this] { edit(); }, hasRows},
            {u"cmdDelAppoiment"_s,
             u"delete"_s,
             u"Διαγραφή Συνάντησης"_s,
             {},
             [this] { deleteAppointment(); },
             [this] { return mayDelete(); }}};
}

bool AppointmentsTab::mayDelete() const {
    const QVariant appointment = ListView3->currentTag();
    return appointment.isValid() && mod_.mayChange(owners_.value(appointment.toLongLong()));
}

void AppointmentsTab::edit() {
    if (const QVariant appointment = ListView3->currentTag(); appointment.isValid())
        mod_.doors.openAppointment(appointment.toLongLong(), nullptr);
}

void AppointmentsTab::fill(const QString& code) {
    const QVariant chosen = code == code_ ? ListView3->currentTag() : QVariant();
    code_ = code;
    owners_.clear();
    QVector<controls::ListRow> rows;
    try {
        for (data::Recordset dates(mod_.gConn,
                                   data::Sql(u"Select aa,[contact],[subject],[location],[day],[start],[end],[notes],"
                                             "[user] from dates where codecard=?"_s,
                                             code.toLongLong()));
             !dates.eof(); dates.moveNext()) {
            owners_.insert(dates[u"aa"].toLong(), dates[u"user"].text());
            rows.append({{dates[u"subject"].text(), dates[u"location"].text(), data::dayText(dates[u"day"].toDate()),
                          timeText(dates[u"start"].value()), timeText(dates[u"end"].value()), dates[u"notes"].text()},
                         dates[u"aa"].value(),
                         {}});
        }
    } catch (const data::Error& error) {
        core::showFailure(mod_, this, error,
                          u"Πρόβλημα κατά την επεξεργασία των δεμένων! \nΕλέγχετε τα πεδία της ημερομηνίας! \n"_s);
    }
    ListView3->setRows(std::move(rows));
    if (ListView3->count() > 0) ListView3->selectRow(0);
    if (chosen.isValid()) ListView3->selectTag(chosen);
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
        })) {
        fill(code_);
        mod_.doors.appointmentsChanged();
    }
}

}  // namespace cards
