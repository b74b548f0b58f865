#include "diary/monthpane.h"

#include "controls/layout.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

using controls::CellGrid;
using controls::CellRole;
using controls::named;

MonthPane::MonthPane(core::MainMod& mod, std::function<QSet<QDate>(Month)> marked)
    : QGroupBox(u"Επιλογή ημερομηνίας"_s),
      Guarded(mod, this),
      marked_(std::move(marked)),
      commands_(mod, this,
                {{u"cmdPrevious"_s, u"prev"_s, u"Προηγούμενος μήνας"_s, {}, [this] { turn(-1); }},
                 {u"cmdNext"_s, u"next"_s, u"Επόμενος μήνας"_s, {}, [this] { turn(1); }},
                 {u"Label2"_s, {}, u"Σήμερα"_s, {}, [this] { emit todayWanted(); }}}),
      MonthYear(named(new QLabel, u"MonthYear"_s)),
      MSFlexGrid1(named(new CellGrid, u"MSFlexGrid1"_s)),
      Label2(commands_.button(u"Label2"_s)) {
    setObjectName(u"Frame1"_s);
    MonthYear->setAlignment(Qt::AlignCenter);
    MonthYear->setFont(controls::font(u"Tahoma"_s, 10, true));
    MSFlexGrid1->setAccessibleName(u"Ημέρες του μήνα"_s);
    MSFlexGrid1->setBehaviour(CellGrid::Unit::Cell, CellGrid::ActedBy::Click, CellGrid::Paging::Turns);
    MSFlexGrid1->setHeads({{u"ΔΕΥ"_s, u"Δευτέρα"_s},
                           {u"ΤΡΙ"_s, u"Τρίτη"_s},
                           {u"ΤΕΤ"_s, u"Τετάρτη"_s},
                           {u"ΠΕΜ"_s, u"Πέμπτη"_s},
                           {u"ΠΑΡ"_s, u"Παρασκευή"_s},
                           {u"ΣΑΒ"_s, u"Σάββατο"_s},
                           {u"ΚΥΡ"_s, u"Κυριακή"_s}});
    Label2->setToolTip(u"Επιστροφή στη σημερινή ημέρα"_s);
    auto *previous = commands_.toolButton(u"cmdPrevious"_s), *next = commands_.toolButton(u"cmdNext"_s);
    controls::add(controls::tabLayout(this),
                  {controls::row({previous, {MonthYear, 1}, next}),
                   {MSFlexGrid1, 1},
                   controls::row({new QLabel(u"Σήμερα:"_s), Label2, controls::Item::rest()})});
    // The keys begin among the days.
    setTabOrder(MSFlexGrid1, previous);
    setTabOrder(previous, next);
    on(MSFlexGrid1, &CellGrid::cellActivated, [this](int row, int column) { choose(row, column); });
    on(MSFlexGrid1, &CellGrid::pageTurned, [this](int direction) { turn(direction); });
}

void MonthPane::setToday(QDate today) {
    today_ = today;
    Label2->setText(data::format(data::wallClock(today), u"dd/mm/yyyy"));
}

void MonthPane::turn(int direction) {
    ShowMonth(turned(month_, direction));
}

QDate MonthPane::dayAt(int row, int column) const {
    const QVector<Week> weeks = weeksOf(month_.month, month_.year);
    if (row >= weeks.size() || weeks[row][size_t(column)] == 0) return {};
    return dayOf(weeks[row][size_t(column)], month_.month, month_.year);
}

controls::GridCell MonthPane::cellOf(int day, int column) const {
    if (day == 0) return {.text = {}, .off = true};
    const QDate date = dayOf(day, month_.month, month_.year);
    controls::GridCell cell{.text = QString::number(day), .bold = column == 6, .dot = dots_.contains(date)};
    cell.off = !date.isValid();
    if (cell.off) return cell;
    cell.spoken = data::format(data::wallClock(date), u"dddd d mmmm yyyy");
    if (date == today_) {
        cell.role = CellRole::Today;
        cell.spoken += u", σήμερα"_s;
    }
    if (cell.dot) {
        cell.spoken += u", με συναντήσεις"_s;
        cell.toolTip = u"Υπάρχουν συναντήσεις"_s;
    }
    return cell;
}

void MonthPane::ShowMonth(Month month) {
    month_ = month;
    dots_ = marked_(month);
    QVector<QVector<controls::GridCell>> rows;
    for (const Week& week : weeksOf(month.month, month.year)) {
        QVector<controls::GridCell> cells;
        for (int column = 0; column < 7; ++column) cells.append(cellOf(week[size_t(column)], column));
        rows.append(cells);
    }
    MSFlexGrid1->setCells(std::move(rows));
    if (MSFlexGrid1->currentRow() < 0) setCursorOn(today_);
    MonthYear->setText(data::format(data::wallClock(QDate(month.year, month.month, 1)), u"mmmm yyyy"));
}

// Where the keys begin; nowhere when the day isn't on show.
void MonthPane::setCursorOn(QDate day) {
    for (int row = 0; row < MSFlexGrid1->rowCount(); ++row)
        for (int column = 0; column < 7; ++column)
            if (dayAt(row, column) == day) MSFlexGrid1->setCurrentCell(row, column);
}

void MonthPane::refreshMarks() {
    const QSet<QDate> dots = marked_(month_);
    if (std::exchange(dots_, dots) == dots) return;
    const QVector<Week> weeks = weeksOf(month_.month, month_.year);
    for (int row = 0; row < weeks.size(); ++row)
        for (int column = 0; column < 7; ++column) {
            controls::GridCell cell = cellOf(weeks[row][size_t(column)], column);
            cell.role = MSFlexGrid1->cell(row, column).role;
            MSFlexGrid1->setCell(row, column, cell);
        }
}

void MonthPane::choose(int row, int column) {
    const QDate day = dayAt(row, column);
    if (!day.isValid()) return;
    const auto paint = [this](int atRow, int atColumn, CellRole role) {
        controls::GridCell cell = MSFlexGrid1->cell(atRow, atColumn);
        cell.role = role;
        MSFlexGrid1->setCell(atRow, atColumn, cell);
    };
    // Today's cell loses its mark, too, when the selection goes on from it.
    if (chosenRow_ >= 0 && chosenRow_ < MSFlexGrid1->rowCount()) paint(chosenRow_, chosenColumn_, CellRole::Plain);
    emit dayChosen(day);
    paint(row, column, CellRole::Selected);
    chosenRow_ = row;
    chosenColumn_ = column;
}

}  // namespace diary
