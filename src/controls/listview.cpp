#include "controls/listview.h"

#include <QAbstractTableModel>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>

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
        if (role == Qt::ForegroundRole && row.colour.isValid()) return row.colour;
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
    header()->setStretchLastSection(true);
    connect(this, &QTreeView::doubleClicked, this,
            [this](const QModelIndex& index) { emit rowActivated(index.row()); });
    connect(header(), &QHeaderView::sectionClicked, this, &ListView::columnClicked);
}

ListView::~ListView() = default;

void ListView::setColumns(const QVector<ListColumn>& columns) {
    rows_->replace(columns);
    for (int i = 0; i < columns.size(); ++i) header()->resizeSection(i, toPixels(columns[i].width));
}

const QVector<ListColumn>& ListView::columns() const {
    return rows_->columns;
}

int ListView::columnTwips(int column) const {
    return toTwips(header()->sectionSize(column));
}

void ListView::setRows(QVector<ListRow> rows) {
    rows_->replace(std::move(rows));
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

void ListView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    if (columns().isEmpty()) return;
    const int wanted =
        header()->length() - header()->sectionSize(header()->count() - 1) + toPixels(columns().last().width);
    if (!sharing_ || !isVisible() || wanted >= viewport()->width()) return;
    sharing_ = false;
    const double share = double(viewport()->width()) / wanted;
    for (int i = 0; i < columns().size(); ++i) header()->resizeSection(i, int(toPixels(columns()[i].width) * share));
}

void ListView::keyPressEvent(QKeyEvent* event) {
    // Not every platform makes a menu request of these keys; where one does, the menu just opens at the same place.
    const bool shiftF10 = event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier;
    if (event->key() == Qt::Key_Menu || shiftF10) {
        event->accept();
        return requestMenuAtRow();
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
