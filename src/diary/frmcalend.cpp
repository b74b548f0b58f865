#include "diary/frmcalend.h"

#include "controls/layout.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "data/recordset.h"
#include "data/values/format.h"
#include "diary/planner.h"
#include "diary/sendics.h"
#include "diary/users.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

using controls::CellGrid;
using controls::CellRole;
using controls::Item;
using controls::named;

namespace {

constexpr int firstShownSlot = 16;  // 08:00

QVector<controls::ListColumn> columns() {
    return {{u"Start"_s, u"Έναρξη"_s, 800},
            {u"End"_s, u"Τέλος"_s, 800},
            {u"Επαφή"_s, u"Επαφή"_s, 1300},
            {.key = u"Subject"_s, .header = u"Θέμα"_s, .width = 1800, .spare = true},
            {u"Χρήστης"_s, u"Χρήστης"_s, 1800}};
}

// A typed date as a day; nothing for a time alone.
std::optional<QDate> typedDay(const QString& text, QDate today) {
    const auto moment = data::parseDate(text, data::DateOrder::DayFirst, today);
    const bool timeAlone = moment && moment->date() == QDate(1899, 12, 30);
    return moment && !timeAlone ? std::optional(moment->date()) : std::nullopt;
}

}  // namespace

frmCalend::frmCalend(core::MainMod& mod, std::function<void(const NewAppointment&, QWidget*)> makeNew)
    : Form(mod, u"frmCalend"_s, u"Ημερολόγιο"_s, {u"Caln"_s, 0, 0}, u"calendar"_s),
      makeNew_(std::move(makeNew)),
      month_(new MonthPane(mod, [this](Month month) { return busyDays(month); })),
      ListView1(new core::StoredList(mod.services.settings, u"ListView1"_s, u"Συναντήσεις της ημέρας"_s, u"ListView1"_s,
                                     columns())),
      commands_(mod, this, commands()) {
    controls::add(controls::pageLayout(this), {{controls::row({side(), dayPane(), {ListView1, 1}}, 12), 1}});
    MnuPopUpDate = commands_.menu(u"MnuPopUpDate"_s);
    setMinimumSize(1160, 480);
    on(month_, &MonthPane::dayChosen, [this](QDate day) { ShowDay(day); });
    on(month_, &MonthPane::todayWanted, [this] {
        month_->ShowMonth(monthOf(today_));
        ShowDay(today_);
    });
    on(Combo1, &QComboBox::activated, [this] {
        ShowDay(today_);
        month_->refreshMarks();
    });
    on(MSFlexGrid2, &CellGrid::cellActivated, [this](int row, int) { startNew(row); });
    on(ListView1, &controls::ListView::rowActivated,
       [this](int row) { mod_.doors.openAppointment(ListView1->row(row).tag.toLongLong(), this); });
    on(ListView1, &controls::ListView::menuRequested, [this](int row, QPoint position) { openMenu(row, position); });
    on(&tmrClock, &QTimer::timeout, [this] { tick(); });
}

QVector<core::Command> frmCalend::commands() {
    const auto mayChange = [this] { return mayChangeSelected(); };
    const auto shows = [this] { return !ListView1->rows().isEmpty(); };
    return {{u"mnuChangeDate"_s, u"calendar"_s, u"Αλλαγή Ημερομηνίας"_s, {}, [this] { changeDate(); }, mayChange, true},
            {u"MnuDelDate"_s, u"delete"_s, u"Διαγραφή"_s, {}, [this] { deleteSelected(); }, mayChange, true},
            {u"mnuIcsSave"_s,
             u"save"_s,
             u"Αποθήκευση σε αρχείο .ics..."_s,
             {},
             [this] { saveIcs(mod_, this, outgoing()); },
             shows},
            {u"mnuIcsMail"_s,
             u"mail"_s,
             u"Αποστολή με e-mail..."_s,
             {},
             [this] { mailIcs(mod_, this, outgoing()); },
             shows}};
}

QWidget* frmCalend::side() {
    picClock = named(new ClockFace, u"picClock"_s);
    lblPm = named(new QLabel, u"lblPm"_s);
    Combo1 = named(new controls::ChoiceBox(false), u"Combo1"_s);
    auto* clock = controls::column({picClock, {lblPm, 0}});
    lblPm->setAlignment(Qt::AlignCenter);
    auto* side = new QWidget;
    controls::add(controls::bareLayout(side),
                  {{month_, 3}, controls::row({controls::captionOf(u"Χρήστης"_s, Combo1), {Combo1, 1}}), {clock, 2}});
    side->setMaximumWidth(300);
    return side;
}

QWidget* frmCalend::dayPane() {
    lblDate = named(new QLabel, u"lblDate"_s);
    lblDate->setFont(controls::font(u"Tahoma"_s, 10, true));
    MSFlexGrid2 = named(new CellGrid, u"MSFlexGrid2"_s);
    MSFlexGrid2->setAccessibleName(u"Ώρες της ημέρας"_s);
    MSFlexGrid2->setBehaviour(CellGrid::Unit::Row, CellGrid::ActedBy::DoubleClick, CellGrid::Paging::Scrolls);
    MSFlexGrid2->setColumnWidths({56, CellGrid::stretch});
    MSFlexGrid2->setRowHeight(20);
    auto* hint = new QLabel(u"Διπλό κλικ ή Enter σε μια ώρα: νέα συνάντηση"_s);
    hint->setProperty("role", u"muted"_s);
    hint->setWordWrap(true);
    auto* Frame2 = named(new QWidget, u"Frame2"_s);
    controls::add(controls::bareLayout(Frame2), {lblDate, {MSFlexGrid2, 1}, hint});
    Frame2->setMinimumWidth(190);
    Frame2->setMaximumWidth(320);
    return Frame2;
}

void frmCalend::onLoad() {
    today_ = mod_.services.clock.today();
    month_->setToday(today_);
    FillUsers();
    chooseUser(*Combo1, mod_.gUserName);
    month_->ShowMonth(monthOf(today_));
    ShowDay(today_);
    MSFlexGrid2->setCurrentCell(firstShownSlot, 0);
    MSFlexGrid2->showFromRow(firstShownSlot);
    tick();
    tmrClock.start(1000);
}

void frmCalend::FillUsers() {
    diary::fillUsers(mod_, *Combo1);
}

void frmCalend::setContact(qint64 card, const QString& contact) {
    gAppointmentCode = card;
    gAppointmentContact = contact;
}

// The time of day, and at midnight the new day's mark and button; the day on show stays.
void frmCalend::tick() {
    const QDateTime now = mod_.services.clock.now();
    picClock->setTime(now.time());
    if (const QString half = halfOfDay(now.time()); lblPm->text() != half) lblPm->setText(half);
    if (now.date() == today_) return;
    today_ = now.date();
    month_->setToday(today_);
    month_->ShowMonth(month_->month());
}

QSet<QDate> frmCalend::busyDays(Month month) {
    const QDate first(month.year, month.month, 1);
    const QString user = Combo1->currentText();
    const data::Sql sql(u"select distinct day from dates where day between ? and ? {and User=?}"_s, first,
                        first.addMonths(1).addDays(-1), user.isEmpty() ? std::nullopt : std::optional(user));
    QSet<QDate> days;
    for (data::Recordset rows(mod_.gConn, sql); !rows.eof(); rows.moveNext()) days.insert(rows[u"day"].toDate().date());
    return days;
}

void frmCalend::ShowDay(QDate day) {
    const QString user = Combo1->currentText();
    data::Recordset rows(mod_.gConn, data::Sql(u"select * from dates where day=? {and User=?} order by [start],[end]"_s,
                                               day, user.isEmpty() ? std::nullopt : std::optional(user)));
    mDay = day;
    lblDate->setText(data::format(data::wallClock(day), u"dddd, d mmm yyyy"));
    QVector<controls::ListRow> list;
    QVector<QStringList> entries(slotsOfDay);
    for (; !rows.eof(); rows.moveNext()) {
        list.append({{timeText(rows[u"Start"].value()), timeText(rows[u"End"].value()), rows[u"contact"].text(),
                      rows[u"Subject"].text(), rows[u"User"].text()},
                     rows[u"aa"].toLong(),
                     {}});
        for (const int slot : takenSlots(rows[u"Start"].toDate().time(), rows[u"End"].toDate().time()))
            entries[slot] << rows[u"contact"].text() + u", "_s + rows[u"Subject"].text();
    }
    ListView1->setRows(std::move(list));
    showPlanner(entries);
}

void frmCalend::showPlanner(const QVector<QStringList>& entries) {
    QVector<QVector<controls::GridCell>> rows;
    for (int slot = 0; slot < slotsOfDay; ++slot) {
        const QString time = slotText(slot);
        const QStringList& taking = entries[slot];
        const QString spoken =
            taking.isEmpty() ? u"%1, ελεύθερο"_s.arg(time) : u"%1, κλεισμένο: %2"_s.arg(time, taking.join(u" · "_s));
        const QString tip = taking.join(u'\n');
        rows.append({{.text = time,
                      .role = taking.isEmpty() ? CellRole::Free : CellRole::BusyTime,
                      .spoken = spoken,
                      .toolTip = tip},
                     {.text = {},
                      .role = taking.isEmpty() ? CellRole::Free : CellRole::BusyText,
                      .alignment = Qt::AlignLeft | Qt::AlignVCenter,
                      .spoken = spoken,
                      .toolTip = tip}});
    }
    MSFlexGrid2->setCells(std::move(rows));
}

void frmCalend::refresh() {
    const QVariant chosen = ListView1->currentTag();
    ShowDay(mDay);
    if (chosen.isValid()) ListView1->selectTag(chosen);
    month_->refreshMarks();
}

void frmCalend::startNew(int slot) {
    if (mDay < mod_.services.clock.today() &&
        !ask(u"Η ημερομηνία που πάτε να κλείσετε συνάντηση έχει περάσει! Να συνεχίσω;"_s))
        return;
    const SlotTimes times = timesOf(slot);
    makeNew_({mDay, times.start, times.end, times.remind, gAppointmentCode, gAppointmentContact}, this);
}

bool frmCalend::mayChangeSelected() const {
    const int row = ListView1->currentRow();
    return row >= 0 && mod_.mayChange(ListView1->row(row).cells.value(4));
}

void frmCalend::openMenu(int row, QPoint position) {
    menuOnRow_ = row >= 0;
    if (menuOnRow_) mSelectedAa = ListView1->row(row).tag.toLongLong();
    commands_.popUp(MnuPopUpDate, row, position);
}

// The appointment under the menu, or beside the rows all that are on show.
Wanted frmCalend::outgoing() const {
    if (menuOnRow_) return {.aa = mSelectedAa};
    const QString user = Combo1->currentText();
    return {.from = mDay, .to = mDay, .user = user.isEmpty() ? std::nullopt : std::optional(user)};
}

void frmCalend::changeDate() {
    const QDate today = mod_.services.clock.today();
    const auto typed = mod_.services.prompts.input(this, u"Αλλαγή Ημερομηνίας Σε συνάντηση"_s,
                                                   u"Δώστε νέα ημερομηνία"_s, fullDay(today));
    const auto day = typedDay(typed.value_or(QString()), today);
    if (!day) return complain(u"Λάθος Ημερομηνία !!!"_s);
    if (mod_.gConn.execute(data::Sql(u"update [DATES] set [DAY]=? where aa=?"_s, *day, mSelectedAa)) == 0)
        complain(u"Η συγκεκριμένη συνάντηση έχει ακυρωθεί !"_s);
    mod_.doors.appointmentsChanged();
}

void frmCalend::deleteSelected() {
    const QVariant appointment = ListView1->currentTag();
    if (appointment.isValid() && askAndDelete(u"Να συνεχίσω με διαγραφή της Συνάντησης;"_s, [&] {
            mod_.gConn.execute(data::Sql(u"Delete from dates where aa=?"_s, appointment.toLongLong()));
        }))
        mod_.doors.appointmentsChanged();
}

}  // namespace diary
