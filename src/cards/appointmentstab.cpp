#include "cards/appointmentstab.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "cards/ledger.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/columnwidths.h"
#include "core/guard.h"
#include "data/format.h"
#include "data/recordset.h"

namespace cards {

using controls::named;

namespace {

QVector<controls::ListColumn> columns() {
    return {{QStringLiteral("Subject"), QStringLiteral("Θέμα"), 1000},
            {QStringLiteral("Location"), QStringLiteral("Τόπος"), 1000},
            {QStringLiteral("Day"), QStringLiteral("Ημέρα"), 1000},
            {QStringLiteral("Start"), QStringLiteral("Έναρξη"), 1200},
            {QStringLiteral("End"), QStringLiteral("Τέλος"), 1200},
            {QStringLiteral("Σχόλια"), QStringLiteral("Σχόλια"), 2200}};
}

QString timeText(const QVariant& time) {
    return data::format(time, u"hh:nn");
}

}  // namespace

AppointmentsTab::AppointmentsTab(core::MainMod& mod) : mod_(mod) {
    ListView3 = named(new controls::ListView, QStringLiteral("ListView3"));
    ListView3->setAccessibleName(QStringLiteral("Συναντήσεις"));
    cmdDelAppoiment =
        named(new QPushButton(controls::icon(QStringLiteral("delete")), QStringLiteral("Διαγραφή Συνάντησης")),
              QStringLiteral("cmdDelAppoiment"));
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
    core::loadColumns(mod_.services.settings, QStringLiteral("lvDates"), *ListView3, columns());
    clear();
}

void AppointmentsTab::fill(const QString& code) {
    code_ = code;
    QVector<controls::ListRow> rows;
    try {
        for (data::Recordset dates(
                 mod_.gConn, QStringLiteral("Select aa,[contact],[subject],[location],[day],[start],[end],[notes] "
                                            "from dates where codecard=%1")
                                 .arg(code));
             !dates.eof(); dates.moveNext())
            rows.append({{dates[u"subject"].text(), dates[u"location"].text(), dayText(dates[u"day"].toDate()),
                          timeText(dates[u"start"].value()), timeText(dates[u"end"].value()), dates[u"notes"].text()},
                         dates[u"aa"].value(),
                         {}});
    } catch (const data::Error& error) {
        core::showFailure(
            mod_, this, error,
            QStringLiteral("Πρόβλημα κατά την επεξεργασία των δεμένων! \nΕλέγχετε τα πεδία της ημερομηνίας! \n"));
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
    if (row < 0 || !mod_.services.prompts.question(this, core::programTitle(),
                                                   QStringLiteral("Να συνεχίσω με διαγραφή της Συνάντησης;")))
        return;
    mod_.gConn.execute(QStringLiteral("Delete from dates where aa=%1").arg(ListView3->row(row).tag.toLongLong()));
    fill(code_);
}

}  // namespace cards
