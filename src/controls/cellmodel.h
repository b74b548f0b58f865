// What a grid of cells shows, and how a cell is painted.
#pragma once

#include <QAbstractTableModel>
#include <QPainter>
#include <QStyledItemDelegate>

#include "controls/gridcell.h"

namespace controls::detail {

class CellModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : int(rows.size()); }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() || rows.isEmpty() ? 0 : int(rows[0].size());
    }
    const GridCell& at(const QModelIndex& index) const { return rows[index.row()][index.column()]; }
    Qt::ItemFlags flags(const QModelIndex& index) const override {
        return !index.isValid() || at(index).off ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const GridCell& cell = at(index);
        if (role == Qt::DisplayRole) return cell.text;
        if (role == Qt::AccessibleTextRole) return cell.spoken.isEmpty() ? cell.text : cell.spoken;
        // As text of markup lines are broken, and a name with a "<" in it stays a name.
        if (role == Qt::ToolTipRole && !cell.toolTip.isEmpty()) return Qt::convertFromPlainText(cell.toolTip);
        return {};
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || section >= heads.size()) return {};
        const GridHead& head = heads[section];
        if (role == Qt::DisplayRole) return head.text;
        if (role == Qt::AccessibleTextRole) return head.spoken.isEmpty() ? head.text : head.spoken;
        return {};
    }
    // True when the grid kept its size.
    bool replace(QVector<QVector<GridCell>> fresh) {
        for (QVector<GridCell>& row : fresh) row.resize(fresh[0].size());
        const bool same = fresh.size() == rows.size() && !fresh.isEmpty() && fresh[0].size() == rows[0].size();
        if (!same) beginResetModel();
        rows = std::move(fresh);
        if (same)
            emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
        else
            endResetModel();
        return same;
    }

    QVector<QVector<GridCell>> rows;
    QVector<GridHead> heads;
};

class CellPainting : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const GridCell& cell = static_cast<const CellModel*>(index.model())->at(index);
        const CellColors colors = cellColors(cell.role);
        painter->save();
        painter->fillRect(option.rect, colors.ground);
        QFont font = option.font;
        font.setBold(cell.bold);
        painter->setFont(font);
        painter->setPen(colors.ink);
        const QRect room = option.rect.adjusted(3, 1, -3, -1);
        const QString text = QFontMetrics(font).elidedText(cell.text, Qt::ElideRight, room.width());
        painter->drawText(room, int(cell.alignment) | Qt::TextSingleLine, text);
        if (cell.dot) {
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(Qt::NoPen);
            painter->setBrush(colors.ink);
            painter->drawEllipse(QRectF(option.rect.right() - 6, option.rect.top() + 3, 4, 4));
        }
        painter->restore();
    }
};

}  // namespace controls::detail
