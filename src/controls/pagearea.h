#pragma once

#include <QScrollArea>

namespace controls {

// Room for a page: asks for as much as the page wants, and scrolls where it gets less. No stop of Tab.
class PageArea : public QScrollArea {
    Q_OBJECT
public:
    explicit PageArea(QWidget* page);
    void setWantedSize(QSize size) { wanted_ = size; }  // where there is room, at least
    QSize sizeHint() const override;

private:
    QSize wanted_;
};

// Puts what a window holds into such an area, so that a window smaller than its contents scrolls. What was the window's
// smallest size is from then on the one that it asks for.
void scrollContents(QWidget* window);

}  // namespace controls
