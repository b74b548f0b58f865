#include "controls/flow.h"

namespace controls {

namespace {

bool grows(const QLayoutItem* item) {
    return item->expandingDirections() & Qt::Horizontal;
}

// What an item needs in a line: one that grows begins at its smallest.
int needed(const QLayoutItem* item) {
    return grows(item) ? item->minimumSize().width() : item->sizeHint().width();
}

}  // namespace

FlowLayout::FlowLayout(int spacing) {
    setContentsMargins({});
    setSpacing(spacing);
}

FlowLayout::~FlowLayout() {
    // One by one: the layout looks through its items when a nested one goes.
    while (!items_.isEmpty()) delete items_.takeFirst();
}

void FlowLayout::addNested(QLayout* layout) {
    addChildLayout(layout);
    addItem(layout);
}

QSize FlowLayout::minimumSize() const {
    QSize size(0, 0);
    for (const QLayoutItem* item : items_)
        if (!item->isEmpty()) size = size.expandedTo(item->minimumSize());
    return size;
}

QSize FlowLayout::sizeHint() const {
    QSize size(0, 0);
    for (QLayoutItem* item : items_)
        if (!item->isEmpty() || item->spacerItem())
            size = {size.width() + std::max(needed(item), item->sizeHint().width()) + spacing(),
                    std::max(size.height(), item->sizeHint().height())};
    return size - QSize(spacing(), 0);
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    place(rect, true);
}

int FlowLayout::place(const QRect& rect, bool really) const {
    QList<QLayoutItem*> line;
    int width = 0, y = rect.top();
    const auto endLine = [&] {
        if (line.isEmpty()) return;
        y += (y > rect.top() ? spacing() : 0);
        y += placeLine(line, {rect.left(), y, rect.width(), 0}, really);
        line.clear();
        width = 0;
    };
    for (QLayoutItem* item : items_) {
        if (item->isEmpty() && !item->spacerItem()) continue;
        const int wanted = needed(item) + (line.isEmpty() ? 0 : spacing());
        if (width + wanted > rect.width()) endLine();
        width += needed(item) + (line.isEmpty() ? 0 : spacing());
        line.append(item);
    }
    endLine();
    return y - rect.top();
}

int FlowLayout::placeLine(const QList<QLayoutItem*>& line, const QRect& rect, bool really) const {
    int left = rect.width() - spacing() * int(line.size() - 1), height = 0, growing = 0;
    for (const QLayoutItem* item : line) {
        left -= needed(item);
        growing += grows(item);
        height = std::max(height, item->sizeHint().height());
    }
    if (!really) return height;
    int x = rect.left();
    for (QLayoutItem* item : line) {
        int width = std::min(needed(item), rect.width());
        if (grows(item) && left > 0) {
            const int share = left / growing--;
            width += share;
            left -= share;
        }
        item->setGeometry({x, rect.top(), width, height});
        x += width + spacing();
    }
    return height;
}

}  // namespace controls
