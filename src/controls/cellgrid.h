// A grid of coloured cells under a row of heads that stays: a month of days, a day of half hours.
#pragma once

#include <QTableView>
#include <QVector>

#include "controls/gridcell.h"

namespace controls {

namespace detail {
class CellModel;
}

// Rows and columns count from 0, without the heads. A screen reader finds a table. Arrows, Home and End move (with
// Ctrl to the ends of the grid), digits and letters search; Enter and Space do what the mouse does.
class CellGrid : public QTableView {
    Q_OBJECT
public:
    enum class Unit { Cell, Row };  // what the cursor frames. Cells: left and right go on over the line's end
    enum class ActedBy { Click, DoubleClick };  // what of the mouse activates, beside Enter and Space
    enum class Paging { Scrolls, Turns };       // Page Up and Page Down: over the rows, or by pageTurned alone

    static constexpr int stretch = 0;

    explicit CellGrid(QWidget* parent = nullptr);
    ~CellGrid() override;

    void setBehaviour(Unit unit, ActedBy actedBy, Paging paging);
    // Without heads, or when all are empty, there is no row of them.
    void setHeads(const QVector<GridHead>& heads);
    // All cells anew; place and scrolling stay while there are as many as before. Every row has as many columns as the
    // first.
    void setCells(QVector<QVector<GridCell>> rows);
    void setCell(int row, int column, const GridCell& cell);
    const GridCell& cell(int row, int column) const;
    int rowCount() const;
    int columnCount() const;

    // In pixels; `stretch` shares what is left. Columns beyond the list take its last. Never less than the letters
    // need.
    void setColumnWidths(const QVector<int>& widths);
    void setRowHeight(int height);

    int currentRow() const;  // -1 while the cursor is nowhere
    int currentColumn() const;
    void setCurrentCell(int row, int column);
    // Scrolls so that this row is the topmost.
    void showFromRow(int row);

    QSize minimumSizeHint() const override;

signals:
    void cellActivated(int row, int column);
    void pageTurned(int direction);  // -1 back, 1 forward
    // Right click, which moves the cursor, -1 beside the cells; or menu key and Shift+F10 where the cursor is.
    void menuRequested(int row, int column, QPoint globalPosition);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    bool isOn(const QModelIndex& index) const;
    void activate(const QModelIndex& index);
    void requestMenuAtCursor();
    void applySizes();
    // The first cell that is on, from there in steps of so many rows and columns; invalid when there is none.
    QModelIndex seek(int row, int column, int down, int right) const;
    QModelIndex seekInReadingOrder(int from, int step) const;
    int rowsOnPage() const;

    detail::CellModel* cells_;
    Unit unit_ = Unit::Cell;
    ActedBy actedBy_ = ActedBy::Click;
    Paging paging_ = Paging::Scrolls;
    QVector<int> widths_{stretch};
    int rowHeight_ = stretch;
};

}  // namespace controls
