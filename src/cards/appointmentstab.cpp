#include "cards/appointmentstab.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "cards/ledger.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/columnwidths.h"
#include "core/guard.h"
#include "data/recordset.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::named;

namespace {

QVector<controls::ListColumn> columns() {
    return {{u"Subject"_s, u"Θέμα"_s, 1000}, {u"Location"_s, u"Τόπος"_s, 1000}, {u"Day"_s, u"Ημέρα"_s, 1000},
            {u"Start"_s, u"Έναρξη"_s, 1200}, {u"End"_s, u"Τέλος"_s, 1200},      {u"Σχόλια"_s, u"Σχόλια"_s, 2200}};
}

QString timeText(const QVariant& time) {
    return data::format(time, u"hh:nn");
}

}  // namespace

AppointmentsTab::AppointmentsTab(core::MainMod& mod) : mod_(mod) {
    ListView3 = named(new controls::ListView, u"ListView3"_s);
    ListView3->setAccessibleName(u"Συναντήσεις"_s);
    cmdDelAppoiment =
        named(new QPushButton(controls::icon(u"delete"_s), u"Διαγραφή Συνάντησης"_s), u"cmdDelAppoiment"_s);
    core::onSignal(mod_, this, cmdDelAppoiment, &QPushButton::clicked, [this] { deleteAppointment(); });
    auto* commands = new QHBoxLayout;
    commands->addWidget(cmdDelAppoiment);
    commands->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 14, 14, 14);
    layout->setSpacing(8);
    layout->addWidget(ListView3, 1);
    layout->addLayout(commands);
}

void AppointmentsTab::load() {
    core::loadColumns(mod_.services.settings, u"lvDates"_s, *ListView3, columns());
    clear();
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
    cmdDelAppoiment->setEnabled(ListView3->count() > 0);
}

void AppointmentsTab::clear() {
    code_.clear();
    ListView3->clear();
    cmdDelAppoiment->setEnabled(false);
}

void AppointmentsTab::deleteAppointment() {
    const int row = ListView3->currentRow();
    if (row < 0 ||
        !mod_.services.prompts.question(this, core::programTitle(), u"Να συνεχίσω με διαγραφή της Συνάντησης;"_s))
        return;
    mod_.gConn.execute(data::Sql(u"Delete from dates where aa=?"_s, ListView3->row(row).tag.toLongLong()));
    fill(code_);
}

}  // namespace cards
