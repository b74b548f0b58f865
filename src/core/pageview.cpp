#include "core/pageview.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include "controls/theme.h"
#include "platform/printer.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

namespace {

constexpr int gap = 14;              // around the page, in pixels
constexpr int longestSpoken = 4000;  // characters of a page that a screen reader is given

}  // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(240, 100);
    horizontalScrollBar()->setSingleStep(30);
    verticalScrollBar()->setSingleStep(30);
}

void PageView::setDocument(std::shared_ptr<const platform::PrintDocument> document) {
    document_ = std::move(document);
    setPage(std::min(page_, document_->pageCount() - 1));
}

void PageView::setPage(int page) {
    page_ = std::clamp(page, 0, document_->pageCount() - 1);
    layOut();
    setAccessibleName(u"Σελίδα %1 από %2"_s.arg(page_ + 1).arg(document_->pageCount()));
    setAccessibleDescription(document_->texts(page_).join(u' ').left(longestSpoken));
    emit pageShown(page_);
}

void PageView::setZoom(int percent) {
    zoom_ = percent;
    layOut();
}

double PageView::scale() const {
    const QSizeF paper = document_->setup().paperTwips();
    // The bar's room is always kept, so that it doesn't come and go with the size that it causes.
    const QSize bars(verticalScrollBar()->sizeHint().width(), horizontalScrollBar()->sizeHint().height());
    const QSize room = maximumViewportSize() - QSize(2 * gap, 2 * gap);
    if (zoom_ > 0) return zoom_ / 100.0 * logicalDpiX() / 1440;
    const double byWidth = std::max(40, room.width() - bars.width()) / paper.width();
    return zoom_ == fitWidth ? byWidth : std::min(byWidth, std::max(40, room.height()) / paper.height());
}

QSize PageView::pagePixels() const {
    return (document_->setup().paperTwips() * scale()).toSize();
}

void PageView::layOut() {
    if (!document_) return;
    const QSize needed = pagePixels() + QSize(2 * gap, 2 * gap);
    const QSize room = viewport()->size();
    const auto fit = [](QScrollBar* bar, int all, int shown) {
        bar->setRange(0, std::max(0, all - shown));
        bar->setPageStep(shown);
    };
    fit(horizontalScrollBar(), needed.width(), room.width());
    fit(verticalScrollBar(), needed.height(), room.height());
    viewport()->update();
}

void PageView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    const controls::Theme& theme = controls::theme();
    painter.fillRect(viewport()->rect(), theme.window.darker(theme.dark ? 130 : 112));
    if (!document_) return;
    const QSize size = pagePixels();
    const auto place = [](int room, int length, const QScrollBar* bar) {
        return length + 2 * gap <= room ? (room - length) / 2 : gap - bar->value();
    };
    const QRect paper(QPoint(place(viewport()->width(), size.width(), horizontalScrollBar()),
                             place(viewport()->height(), size.height(), verticalScrollBar())),
                      size);
    painter.fillRect(paper, Qt::white);
    painter.setPen(theme.border);
    painter.drawRect(paper.adjusted(-1, -1, 0, 0));
    painter.setClipRect(paper);
    painter.translate(paper.topLeft());
    painter.scale(scale(), scale());
    const double margin = document_->setup().margin;
    painter.translate(margin, margin);
    try {
        document_->paint(painter, page_);
    } catch (const platform::PrintError& error) {
        // A box here would open another painting, and that one another box.
        painter.resetTransform();
        painter.setPen(Qt::black);
        painter.drawText(paper, Qt::AlignCenter | Qt::TextWordWrap, error.text());
    }
}

void PageView::resizeEvent(QResizeEvent*) {
    layOut();
}

// To another page, and there to its top or end.
void PageView::turn(int pages, bool toEnd) {
    const int before = page_;
    setPage(page_ + pages);
    if (page_ != before) verticalScrollBar()->setValue(toEnd ? verticalScrollBar()->maximum() : 0);
}

void PageView::keyPressEvent(QKeyEvent* event) {
    QScrollBar* bar = verticalScrollBar();
    event->accept();
    switch (event->key()) {
        case Qt::Key_PageDown:
        case Qt::Key_Space:
            return bar->value() < bar->maximum() ? bar->triggerAction(QScrollBar::SliderPageStepAdd) : turn(1, false);
        case Qt::Key_PageUp:
            return bar->value() > 0 ? bar->triggerAction(QScrollBar::SliderPageStepSub) : turn(-1, true);
        case Qt::Key_Home:
            return turn(-document_->pageCount(), false);
        case Qt::Key_End:
            return turn(document_->pageCount(), false);
        case Qt::Key_Plus:
            return emit zoomWanted(true);
        case Qt::Key_Minus:
            return emit zoomWanted(false);
        default:
            QAbstractScrollArea::keyPressEvent(event);
    }
}

void PageView::wheelEvent(QWheelEvent* event) {
    const int delta = event->angleDelta().y();
    if (event->modifiers() & Qt::ControlModifier) {
        if (delta) emit zoomWanted(delta > 0);
        return event->accept();
    }
    QScrollBar* bar = verticalScrollBar();
    if (delta < 0 && bar->value() == bar->maximum()) return turn(1, false);
    if (delta > 0 && bar->value() == 0) return turn(-1, true);
    QAbstractScrollArea::wheelEvent(event);
}

}  // namespace core
