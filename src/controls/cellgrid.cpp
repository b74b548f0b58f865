#include "controls/cellgrid.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>

#include "controls/cellmodel.h"
#include "controls/themecolors.h"

namespace controls {

CellGrid::CellGrid(QWidget* parent) : QTableView(parent), cells_(new detail::CellModel(this)) {
    setModel(cells_);
    setItemDelegate(new detail::CellPainting(this));
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setWordWrap(false);
    verticalHeader()->hide();
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    setHeads({});
    connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (actedBy_ == ActedBy::Click) activate(index);
    });
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (actedBy_ == ActedBy::DoubleClick) activate(index);
    });
}

CellGrid::~CellGrid() = default;

void CellGrid::setBehaviour(Unit unit, ActedBy actedBy, Paging paging) {
    unit_ = unit;
    actedBy_ = actedBy;
    paging_ = paging;
    setSelectionBehavior(unit == Unit::Row ? SelectRows : SelectItems);
}

void CellGrid::setHeads(const QVector<GridHead>& heads) {
    cells_->heads = heads;
    if (columnCount() > 0) emit cells_->headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    horizontalHeader()->setHidden(
        std::all_of(heads.begin(), heads.end(), [](const GridHead& head) { return head.text.isEmpty(); }));
}

void CellGrid::setCells(QVector<QVector<GridCell>> rows) {
    const int row = currentRow(), column = currentColumn();
    if (!cells_->replace(std::move(rows))) {
        applySizes();
        setCurrentCell(std::min(row, rowCount() - 1), column);
    } else if (!isOn(currentIndex())) {
        setCurrentIndex({});
    }
    updateGeometry();
}

void CellGrid::setCell(int row, int column, const GridCell& cell) {
    cells_->rows[row][column] = cell;
    const QModelIndex index = cells_->index(row, column);
    emit cells_->dataChanged(index, index);
}

const GridCell& CellGrid::cell(int row, int column) const {
    return cells_->rows[row][column];
}

int CellGrid::rowCount() const {
    return cells_->rowCount();
}

int CellGrid::columnCount() const {
    return cells_->columnCount();
}

void CellGrid::setColumnWidths(const QVector<int>& widths) {
    widths_ = widths.isEmpty() ? QVector<int>{stretch} : widths;
    applySizes();
}

void CellGrid::setRowHeight(int height) {
    rowHeight_ = height;
    applySizes();
}

void CellGrid::applySizes() {
    const int letters = fontMetrics().height() + 4;
    QHeaderView* rows = verticalHeader();
    rows->setMinimumSectionSize(letters);
    rows->setDefaultSectionSize(std::max(rowHeight_, letters));
    rows->setSectionResizeMode(rowHeight_ == stretch ? QHeaderView::Stretch : QHeaderView::Fixed);
    QHeaderView* columns = horizontalHeader();
    columns->setMinimumSectionSize(letters);
    for (int i = 0; i < columnCount(); ++i) {
        const int width = widths_[std::min(i, int(widths_.size()) - 1)];
        columns->setSectionResizeMode(i, width == stretch ? QHeaderView::Stretch : QHeaderView::Fixed);
        if (width != stretch) columns->resizeSection(i, width);
    }
}

int CellGrid::currentRow() const {
    return currentIndex().row();
}

int CellGrid::currentColumn() const {
    return currentIndex().column();
}

void CellGrid::setCurrentCell(int row, int column) {
    const QModelIndex index = cells_->index(row, column);
    setCurrentIndex(isOn(index) ? index : QModelIndex());
}

void CellGrid::showFromRow(int row) {
    scrollTo(cells_->index(row, 0), PositionAtTop);
}

QSize CellGrid::minimumSizeHint() const {
    if (rowHeight_ != stretch) return QTableView::minimumSizeHint();
    // Nothing scrolls: all rows have room.
    const QHeaderView* heads = horizontalHeader();
    const int head = heads->isHidden() ? 0 : heads->sizeHint().height();
    const QSize cell(horizontalHeader()->minimumSectionSize(), verticalHeader()->minimumSectionSize());
    return QSize(cell.width() * columnCount(), head + cell.height() * rowCount()) +
           QSize(2 * frameWidth(), 2 * frameWidth());
}

bool CellGrid::isOn(const QModelIndex& index) const {
    return index.isValid() && !cells_->at(index).off;
}

void CellGrid::activate(const QModelIndex& index) {
    if (isOn(index)) emit cellActivated(index.row(), index.column());
}

// Keys have somewhere to begin; a click says itself where.
void CellGrid::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && !currentIndex().isValid()) setCurrentIndex(seekInReadingOrder(0, 1));
}

void CellGrid::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const auto isOneOf = [key](std::initializer_list<Qt::Key> keys) {
        return std::find(keys.begin(), keys.end(), key) != keys.end();
    };
    // A key held down since another window was in front activates nothing here.
    if (isOneOf({Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Select})) {
        if (!event->isAutoRepeat()) activate(currentIndex());
    } else if (key == Qt::Key_Menu || (key == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)) {
        // Not every platform makes a menu request of these keys.
        requestMenuAtCursor();
    } else if (paging_ == Paging::Turns && isOneOf({Qt::Key_PageUp, Qt::Key_PageDown})) {
        emit pageTurned(key == Qt::Key_PageUp ? -1 : 1);
    } else {
        return QTableView::keyPressEvent(event);
    }
    event->accept();
}

void CellGrid::requestMenuAtCursor() {
    const QModelIndex index = currentIndex();
    if (index.isValid()) scrollTo(index);
    const QPoint corner = index.isValid() ? visualRect(index).bottomLeft() : QPoint();
    emit menuRequested(index.row(), index.column(), viewport()->mapToGlobal(corner));
}

void CellGrid::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) return requestMenuAtCursor();
    QModelIndex hit = indexAt(event->pos());
    if (isOn(hit))
        setCurrentIndex(hit);
    else
        hit = {};
    emit menuRequested(hit.row(), hit.column(), event->globalPos());
}

QModelIndex CellGrid::seek(int row, int column, int down, int right) const {
    for (; row >= 0 && row < rowCount() && column >= 0 && column < columnCount(); row += down, column += right)
        if (const QModelIndex index = cells_->index(row, column); isOn(index)) return index;
    return {};
}

QModelIndex CellGrid::seekInReadingOrder(int from, int step) const {
    for (int place = from; place >= 0 && place < rowCount() * columnCount(); place += step)
        if (const QModelIndex index = cells_->index(place / columnCount(), place % columnCount()); isOn(index))
            return index;
    return {};
}

int CellGrid::rowsOnPage() const {
    return std::max(1, viewport()->height() / std::max(1, rowHeight(0)) - 1);
}

// Stays where it is when there is nothing that way.
QModelIndex CellGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const QModelIndex now = currentIndex();
    const int row = now.row(), column = now.column(), last = rowCount() - 1, lastColumn = columnCount() - 1;
    if (!now.isValid()) return seekInReadingOrder(0, 1);
    const bool wholeGrid = unit_ == Unit::Row || (modifiers & Qt::ControlModifier);
    const int place = row * columnCount() + column;
    QModelIndex next;
    switch (action) {
        case MoveUp:
            next = seek(row - 1, column, -1, 0);
            break;
        case MoveDown:
            next = seek(row + 1, column, 1, 0);
            break;
        case MovePageUp:
            next = seek(std::max(0, row - rowsOnPage()), column, 1, 0);
            break;
        case MovePageDown:
            next = seek(std::min(last, row + rowsOnPage()), column, -1, 0);
            break;
        case MoveHome:
            next = wholeGrid ? seekInReadingOrder(0, 1) : seek(row, 0, 0, 1);
            break;
        case MoveEnd:
            next = wholeGrid ? seekInReadingOrder(rowCount() * columnCount() - 1, -1) : seek(row, lastColumn, 0, -1);
            break;
        case MoveLeft:
        case MovePrevious:
            next = unit_ == Unit::Cell ? seekInReadingOrder(place - 1, -1) : seek(row, column - 1, 0, -1);
            break;
        case MoveRight:
        case MoveNext:
            next = unit_ == Unit::Cell ? seekInReadingOrder(place + 1, 1) : seek(row, column + 1, 0, 1);
            break;
    }
    return next.isValid() ? next : now;
}

void CellGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    viewport()->update();
}

// The cursor's frame, stronger while the keys go here.
void CellGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!currentIndex().isValid()) return;
    QRect frame = visualRect(currentIndex());
    if (unit_ == Unit::Row)
        for (int i = 0; i < columnCount(); ++i) frame |= visualRect(cells_->index(currentRow(), i));
    const int width = hasFocus() ? 2 : 1;
    QPainter painter(viewport());
    painter.setPen(
        QPen(hasFocus() ? theme().text : theme().border, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(QRectF(frame).adjusted(width / 2.0, width / 2.0, -width / 2.0, -width / 2.0));
}

void CellGrid::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) applySizes();
}

}  // namespace controls
