// One page of a document on screen, as large as wanted.
#pragma once

#include <QAbstractScrollArea>
#include <memory>

#include "platform/printdocument.h"

namespace core {

class PageView : public QAbstractScrollArea {
    Q_OBJECT
public:
    static constexpr int fitWidth = 0;
    static constexpr int fitPage = -1;

    explicit PageView(QWidget* parent = nullptr);

    void setDocument(std::shared_ptr<const platform::PrintDocument> document);  // stays on its page where there is one
    int page() const { return page_; }                                          // from 0
    void setPage(int page);
    int zoom() const { return zoom_; }
    void setZoom(int percent);  // of the real size, or fitWidth or fitPage
    QSize pagePixels() const;

signals:
    void pageShown(int page);
    void zoomWanted(bool larger);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    double scale() const;  // pixels to a twip
    void layOut();
    void turn(int pages, bool toEnd);

    std::shared_ptr<const platform::PrintDocument> document_;
    int page_ = 0;
    int zoom_ = fitWidth;
};

}  // namespace core
