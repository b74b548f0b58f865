#include "controls/pagearea.h"

#include "controls/layout.h"

namespace controls {

PageArea::PageArea(QWidget* page) {
    setWidget(page);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
}

QSize PageArea::sizeHint() const {
    return widget()->sizeHint().expandedTo(wanted_) + QSize(2 * frameWidth(), 2 * frameWidth());
}

void scrollContents(QWidget* window) {
    if (!window->layout()) return;
    auto* page = new QWidget;
    page->setLayout(window->layout());  // the widgets in it move along
    auto* area = new PageArea(page);
    area->setWantedSize(window->minimumSize());
    window->setMinimumSize(0, 0);
    add(bareLayout(window), {{area, 1}});
}

}  // namespace controls
