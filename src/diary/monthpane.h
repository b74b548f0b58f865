// The month of the calendar: a grid of its days, and the buttons that turn it.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QSet>
#include <functional>

#include "controls/cellgrid.h"
#include "core/commands.h"
#include "core/guarded.h"
#include "diary/month.h"

namespace diary {

class MonthPane : public QGroupBox, core::Guarded {
    Q_OBJECT
public:
    // `marked` gives the days of a month that bear a dot.
    MonthPane(core::MainMod& mod, std::function<QSet<QDate>(Month)> marked);

    void ShowMonth(Month month);
    Month month() const { return month_; }
    void refreshMarks();         // the dots again
    void setToday(QDate today);  // of the mark and of the button that leads there

signals:
    void dayChosen(QDate day);
    void todayWanted();

private:
    void turn(int direction);
    void choose(int row, int column);
    void setCursorOn(QDate day);
    controls::GridCell cellOf(int day, int column) const;
    QDate dayAt(int row, int column) const;  // none for a cell that is empty or no date

    std::function<QSet<QDate>(Month)> marked_;
    QDate today_;
    Month month_{};
    QSet<QDate> dots_;
    int chosenRow_ = -1, chosenColumn_ = -1;  // the cell that carries the selection, whichever month it showed
    core::Commands commands_;
    QLabel* MonthYear;
    controls::CellGrid* MSFlexGrid1;
    QPushButton* Label2;
};

}  // namespace diary
