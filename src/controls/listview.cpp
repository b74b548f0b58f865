#include "controls/listview.h"

#include <QAbstractTableModel>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QToolTip>

#include "controls/captions.h"
#include "controls/theme.h"

using namespace Qt::Literals::StringLiterals;

namespace controls {

class ListView::Rows : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : int(rows.size()); }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : int(columns.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const ListRow& row = rows[index.row()];
        if (role == Qt::DisplayRole) return row.cells.value(index.column());
        if (role == Qt::ForegroundRole && row.ink != ListInk::Usual)
            return row.ink == ListInk::Danger ? theme().danger : theme().mutedText;
        if (role == Qt::TextAlignmentRole) return alignment(index.column());
        if (role == Qt::DecorationRole && index.column() == 0 && !row.icon.isNull()) return row.icon;
        return {};
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || section >= columns.size()) return {};
        if (role == Qt::DisplayRole) return columns[section].header;
        if (role == Qt::TextAlignmentRole) return alignment(section);
        return {};
    }
    void replace(QVector<ListRow> fresh) {
        beginResetModel();
        rows = std::move(fresh);
        endResetModel();
    }
    void replace(const QVector<ListColumn>& fresh) {
        beginResetModel();
        columns = fresh;
        endResetModel();
    }

    QVector<ListColumn> columns;
    QVector<ListRow> rows;

private:
    int alignment(int column) const {
        return (columns[column].number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    }
};

ListView::ListView(QWidget* parent) : QTreeView(parent), rows_(new Rows(this)) {
    setModel(rows_);
    setFont(controls::font(u"Tahoma"_s, font().pointSizeF()));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setExpandsOnDoubleClick(false);
    header()->setSectionsClickable(true);
    header()->setStretchLastSection(false);
    connect(this, &QTreeView::doubleClicked, this,
            [this](const QModelIndex& index) { emit rowActivated(index.row()); });
    connect(header(), &QHeaderView::sectionClicked, this, &ListView::columnClicked);
    connect(header(), &QHeaderView::sectionResized, this,
            [this](int column, int, int pixels) { keepDragged(column, pixels); });
}

ListView::~ListView() = default;

void ListView::setColumns(const QVector<ListColumn>& columns) {
    const QScopedValueRollback placing(placing_, true);
    rows_->replace(columns);
    grown_.fill(0, columns.size());
    grow();
    placeColumns();
}

const QVector<ListColumn>& ListView::columns() const {
    return rows_->columns;
}

int ListView::columnTwips(int column) const {
    return toTwips(header()->sectionSize(column));
}

void ListView::setRows(QVector<ListRow> rows) {
    const QScopedValueRollback placing(placing_, true);
    rows_->replace(std::move(rows));
    grow();
    placeColumns();
}

int ListView::count() const {
    return int(rows_->rows.size());
}

const ListRow& ListView::row(int index) const {
    return rows_->rows[index];
}

const QVector<ListRow>& ListView::rows() const {
    return rows_->rows;
}

int ListView::currentRow() const {
    return selectionModel()->hasSelection() ? currentIndex().row() : -1;
}

void ListView::selectRow(int index) {
    setCurrentIndex(rows_->index(index, 0));
}

QVariant ListView::currentTag() const {
    const int row = currentRow();
    return row < 0 ? QVariant() : rows_->rows[row].tag;
}

bool ListView::selectTag(const QVariant& tag) {
    const auto& rows = rows_->rows;
    const auto found = std::find_if(rows.begin(), rows.end(), [&tag](const ListRow& row) { return row.tag == tag; });
    if (!tag.isValid() || found == rows.end()) return false;
    selectRow(int(found - rows.begin()));
    return true;
}

int ListView::spareColumn() const {
    const auto& all = columns();
    const auto told = std::find_if(all.begin(), all.end(), [](const ListColumn& each) { return each.spare; });
    if (told != all.end()) return int(told - all.begin());
    const auto text = std::find_if(all.rbegin(), all.rend(), [](const ListColumn& each) { return !each.number; });
    return int(text != all.rend() ? text.base() - all.begin() : all.size()) - 1;
}

// The column may get narrower than it was meant, but not unreadable; as narrow as a user made it, and no narrower.
int ListView::leastSpare(int column) const {
    constexpr int readable = 100;  // pixels
    const int own = toPixels(columns()[column].width);
    return columns()[column].kept ? own : std::max(std::min(own, readable), header()->sectionSizeHint(column));
}

// Only the longest texts are measured: a list may have any number of rows.
int ListView::widestText(int column) const {
    constexpr int about = 2, enough = 100;  // letters, texts
    qsizetype longest = 0;
    for (const ListRow& row : rows_->rows) longest = std::max(longest, row.cells.value(column).size());
    int widest = 0, measured = 0;
    for (const ListRow& row : rows_->rows) {
        const QString text = row.cells.value(column);
        if (text.size() + about < longest || measured == enough) continue;
        widest = std::max(widest, fontMetrics().horizontalAdvance(text.left(enough)));
        ++measured;
    }
    return widest;
}

void ListView::grow() {
    const int most = fontMetrics().averageCharWidth() * 24;
    const int margins = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 4);
    for (int i = 0; i < columns().size(); ++i) {
        int wanted = widestText(i) + margins;
        if (!columns()[i].number) wanted = std::min(wanted, most);
        if (i == 0 && !rows_->rows.isEmpty() && !rows_->rows[0].icon.isNull()) wanted += iconSize().width() + margins;
        grown_[i] = std::max({grown_[i], wanted, header()->sectionSizeHint(i)});
    }
}

void ListView::placeColumns() {
    if (columns().isEmpty()) return;
    const QScopedValueRollback placing(placing_, true);
    const int spare = spareColumn();
    int left = viewport()->width();
    for (int i = 0; i < columns().size(); ++i) {
        if (i == spare) continue;
        const int own = toPixels(columns()[i].width);
        header()->resizeSection(i, columns()[i].kept ? own : std::max(own, grown_[i]));
        left -= header()->sectionSize(i);
    }
    header()->resizeSection(spare, isVisible() ? std::max(left, leastSpare(spare)) : toPixels(columns()[spare].width));
}

void ListView::keepDragged(int column, int pixels) {
    if (placing_) return;
    rows_->columns[column].width = toTwips(pixels);
    rows_->columns[column].kept = true;
    placeColumns();
}

void ListView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    placeColumns();
}

void ListView::showEvent(QShowEvent* event) {
    QTreeView::showEvent(event);
    placeColumns();
}

// A text that its column cuts off is told whole.
bool ListView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex under = indexAt(help->pos());
    const bool cut = under.isValid() && sizeHintForIndex(under).width() > columnWidth(under.column());
    QToolTip::showText(help->globalPos(), cut ? plainTip(under.data().toString()) : QString(), viewport());
    return true;
}

void ListView::keyPressEvent(QKeyEvent* event) {
    // Not every platform makes a menu request of these keys; where one does, the menu just opens at the same place.
    const bool shiftF10 = event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier;
    if (event->key() == Qt::Key_Menu || shiftF10) {
        event->accept();
        return requestMenuAtRow();
    }
    const bool moves = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (moves && currentRow() < 0 && currentIndex().isValid()) {
        // The cursor stands on a row that isn't chosen: in a list of one there is no other to move to.
        const QModelIndex here = currentIndex();
        event->accept();
        selectionModel()->clearCurrentIndex();
        return setCurrentIndex(here);
    }
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) return QTreeView::keyPressEvent(event);
    event->accept();
    if (currentRow() >= 0) emit rowActivated(currentRow());
}

void ListView::requestMenuAtRow() {
    const int row = currentRow();
    if (row >= 0) scrollTo(currentIndex());
    const QPoint corner = row >= 0 ? visualRect(rows_->index(row, 0)).bottomLeft() : QPoint();
    emit menuRequested(row, viewport()->mapToGlobal(corner));
}

void ListView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) return requestMenuAtRow();
    const QModelIndex hit = indexAt(event->pos());
    if (hit.isValid()) setCurrentIndex(hit);
    emit menuRequested(hit.isValid() ? hit.row() : -1, event->globalPos());
}

}  // namespace controls
