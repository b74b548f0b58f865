#include "diary/frmtodayshow.h"

#include "controls/layout.h"
#include "controls/names.h"
#include "data/recordset.h"
#include "data/values/format.h"
#include "diary/appointment.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

using controls::Item;
using controls::named;

namespace {

const QString optionsSection = u"Options"_s, startOption = u"frmTodayShowStart"_s;

// What fell due before stays unseen: data that old comes from other programs.
const QDate firstDue(2000, 1, 1);

QVector<controls::ListColumn> appointmentColumns() {
    return {{u"Επαφή"_s, u"Επαφή"_s, 1500},    {.key = u"Subject"_s, .header = u"Θέμα"_s, .width = 1500, .spare = true},
            {u"Location"_s, u"Τόπος"_s, 2000}, {u"Day"_s, u"Ημέρα"_s, 1000},
            {u"Start"_s, u"Έναρξη"_s, 1100},   {u"End"_s, u"Λήξη"_s, 1100}};
}

QVector<controls::ListColumn> taskColumns() {
    return {{u"Subject"_s, u"Θέμα"_s, 3000},
            {.key = u"Notes"_s, .header = u"Σημειώσεις"_s, .width = 3000, .spare = true},
            {.key = u"Priority"_s, .header = u"Προτεραιότητα"_s, .width = 1300, .storedAs = u"Priotity"_s}};
}

controls::TextBox* sumBox(const QString& name) {
    auto* box = named(new controls::TextBox, name);
    box->setReadOnly(true);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(120);
    return box;
}

}  // namespace

frmTodayShow::frmTodayShow(core::MainMod& mod)
    : Form(mod, u"frmTodayShow"_s, u"Τι έχω να κάνω σήμερα;"_s, {u"TodayShow"_s, 30, 1230}, u"today"_s),
      period_(new controls::Period(u"DTPcustDate"_s)),
      ListView1(new core::StoredList(mod.services.settings, u"ListView1"_s, u"Συναντήσεις Ημέρας"_s, u"lvDates"_s,
                                     appointmentColumns())),
      ListView2(new core::StoredList(mod.services.settings, u"ListView2"_s, u"Εργασίες σε Εκρεμότητα"_s, u"lvThinks"_s,
                                     taskColumns())),
      ListView3(new core::StoredList(mod.services.settings, u"ListView3"_s, u"Εκρεμείς Επισκέψεις"_s, u"lvLigoun"_s,
                                     dueColumns())),
      lblSumTotalInc(sumBox(u"lblSumTotalInc"_s)),
      txtSumTotalPay(sumBox(u"txtSumTotalPay"_s)),
      Check1(named(new QCheckBox(u"Να εμφανίζετε στην εκκίνηση του προγράμματος"_s), u"Check1"_s)),
      keys_(core::SortKeys::ofAppointments(mod)),
      pieces_(mod, this),
      midnight_(this),
      commands_(mod, this, commands()) {
    auto* sums = controls::row({{Check1, 1},
                                controls::captionOf(u"Σύνολο Εισπρακτέο:"_s, lblSumTotalInc),
                                lblSumTotalInc,
                                Item::gap(12),
                                controls::captionOf(u"Σύνολο Πληρωτέο:"_s, txtSumTotalPay),
                                txtSumTotalPay});
    controls::add(
        controls::pageLayout(this),
        {controls::row({period_, Item::rest(), commands_.button(u"cmdShow"_s), commands_.button(u"cmdExit"_s)}),
         {section(u"Συναντήσεις Ημέρας"_s, ListView1), 1},
         {section(u"Εργασίες σε Εκρεμότητα"_s, ListView2), 1},
         {section(u"Εκρεμείς Επισκέψεις"_s, ListView3), 1},
         sums});
    setMinimumSize(860, 480);
    on(ListView1, &controls::ListView::columnClicked, [this](int column) {
        keys_.click(column);
        FillList2();
    });
    openRow(ListView1, [this](qint64 aa) { mod_.doors.openAppointment(aa, nullptr); });
    openRow(ListView2, [this](qint64 aa) { mod_.doors.openTask(aa, nullptr); });
    openRow(ListView3, [this](qint64 code) { mod_.doors.openCard(code); });
    midnight_.setObjectName(u"tmrMidnight"_s);
    on(&midnight_, &QTimer::timeout, [this] { followMidnight(); });
}

QVector<core::Command> frmTodayShow::commands() {
    return {{u"cmdShow"_s, u"search"_s, u"Εμφάνιση Λίστας"_s, {}, [this] { refresh(); }},
            {u"cmdExit"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { emit closeRequested(); }}};
}

QWidget* frmTodayShow::section(const QString& caption, core::StoredList* list) {
    auto* whole = new QWidget;
    list->setMinimumHeight(64);
    controls::add(controls::bareLayout(whole), {controls::captionOf(caption, list), {list, 1}});
    return whole;
}

void frmTodayShow::openRow(core::StoredList* list, const std::function<void(qint64)>& open) {
    on(list, &controls::ListView::rowActivated, [list, open](int row) { open(list->row(row).tag.toLongLong()); });
}

void frmTodayShow::setToday(QDate today) {
    today_ = today;
    setWindowTitle(u"Τι έχω να κάνω σήμερα;    (%1)"_s.arg(data::format(data::wallClock(today), u"dddd dd mmm yyyy")));
}

void frmTodayShow::onLoad() {
    setToday(mod_.services.clock.today());
    period_->setDays({today_, today_});
    Check1->setChecked(mod_.services.settings.number(optionsSection, startOption, 1) == 1);
    keys_.load();
    refresh();
    midnight_.start(30'000);
}

void frmTodayShow::onUnload() {
    pieces_.stop();
    keys_.store();
    mod_.services.settings.setNumber(optionsSection, startOption, Check1->isChecked());
}

// Dates that the user set stay.
void frmTodayShow::followMidnight() {
    const QDate before = today_, now = mod_.services.clock.today();
    if (now == before) return;
    setToday(now);
    const auto days = period_->days();
    if (!days || days->from != before || days->to != before) return;
    period_->setDays({now, now});
    refresh();
}

void frmTodayShow::refresh() {
    FillList2();
    FillTasks();
    FillDue();
}

void frmTodayShow::FillList2() {
    QVector<controls::ListRow> list;
    const auto days = period_->days();
    if (!days) mod_.beep();
    const QVariant chosen = ListView1->currentTag();
    if (days)
        for (data::Recordset rows(
                 mod_.gConn,
                 data::Sql(u"Select contact,[subject],[location],[day],[start],[end],[notes],[aa] from dates "
                           "where (day between ? and ?) and user=?"_s,
                           days->from, days->to, mod_.gUserName));
             !rows.eof(); rows.moveNext())
            list.append({{rows[u"contact"].text(), rows[u"subject"].text(), rows[u"location"].text(),
                          data::dayText(rows[u"day"].toDate()), timeText(rows[u"start"].value()),
                          timeText(rows[u"end"].value())},
                         rows[u"aa"].toLong(),
                         {}});
    ListView1->setRows(std::move(list));
    if (chosen.isValid()) ListView1->selectTag(chosen);
}

void frmTodayShow::FillTasks() {
    QVector<controls::ListRow> list;
    const QVariant chosen = ListView2->currentTag();
    for (data::Recordset rows(mod_.gConn,
                              u"Select [subject],[Priority],[aa],[notes] from ThinksToDo ORDER BY priority"_s);
         !rows.eof(); rows.moveNext())
        list.append(
            {{rows[u"subject"].text(), rows[u"notes"].text(), rows[u"Priority"].text()}, rows[u"aa"].toLong(), {}});
    ListView2->setRows(std::move(list));
    if (chosen.isValid()) ListView2->selectTag(chosen);
}

void frmTodayShow::FillDue() {
    pieces_.stop();
    const auto to = period_->to()->date();
    if (!to) {
        ListView3->clear();
        return lblSumTotalInc->setText(data::Money().text());
    }
    due_ = std::make_unique<DueReader>(mod_.gConn, firstDue, *to, true);
    const auto step = [this] {
        const bool first = due_->read().rows.isEmpty(), more = due_->step();
        if (!first || !more) return more;
        showDue();
        lblSumTotalInc->clear();
        return true;
    };
    const auto done = [this] {
        showDue();
        lblSumTotalInc->setText(due_->read().sum.text());
    };
    pieces_.start({step, done, [](const data::Error& error) { throw error; }});
}

// A card that was chosen among the first ones stays so.
void frmTodayShow::showDue() {
    const QVariant chosen = ListView3->currentTag();
    ListView3->setRows(due_->read().rows);
    if (chosen.isValid()) ListView3->selectTag(chosen);
}

}  // namespace diary
