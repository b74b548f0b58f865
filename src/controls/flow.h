#pragma once

#include <QLayout>

namespace controls {

// A row that goes on in further lines where the width doesn't hold it. In each line the items that can grow share what
// is left; without one the line begins at the left.
class FlowLayout : public QLayout {
public:
    explicit FlowLayout(int spacing);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override { items_.append(item); }
    void addNested(QLayout* layout);
    int count() const override { return int(items_.size()); }
    QLayoutItem* itemAt(int index) const override { return items_.value(index); }
    QLayoutItem* takeAt(int index) override { return index >= 0 && index < count() ? items_.takeAt(index) : nullptr; }
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return place({0, 0, width, 0}, false); }
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect& rect) override;

private:
    int place(const QRect& rect, bool really) const;  // returns the height
    int placeLine(const QList<QLayoutItem*>& line, const QRect& rect, bool really) const;

    QList<QLayoutItem*> items_;
};

}  // namespace controls
