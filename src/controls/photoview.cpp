#include "controls/photoview.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include "controls/themecolors.h"

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

// Larger pictures come from no camera that an office owns; a crafted header could ask for all of the memory.
constexpr qint64 maxPixels = 200'000'000;

}  // namespace

PhotoView::PhotoView(QWidget* parent) : QFrame(parent) {
    setFrameShape(QFrame::StyledPanel);
    setMinimumSize(160, 180);
    setAccessibleName(u"Φωτογραφία"_s);
}

void PhotoView::setBytes(const QByteArray& bytes) {
    bytes_ = bytes;
    decoded_ = false;
    update();
}

QImage PhotoView::read(const QByteArray& bytes, QSize bounds) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isValid() && qint64(size.width()) * size.height() > maxPixels) return {};
    if (size.isValid() && (size.width() > bounds.width() || size.height() > bounds.height()))
        reader.setScaledSize(size.scaled(bounds, Qt::KeepAspectRatio));
    return reader.read();
}

bool PhotoView::isPicture(const QByteArray& bytes) {
    return !read(bytes, {64, 64}).isNull();
}

void PhotoView::decode() {
    const qreal ratio = devicePixelRatioF();
    const QSize room = contentsRect().adjusted(8, 8, -8, -8).size() * ratio;
    QImage image = read(bytes_, room);
    if (!image.isNull()) image = image.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    picture_ = QPixmap::fromImage(image);
    picture_.setDevicePixelRatio(ratio);
    decoded_ = true;
}

void PhotoView::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    decoded_ = false;
}

void PhotoView::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    if (!decoded_) decode();
    QPainter painter(this);
    const QRect room = contentsRect();
    if (picture_.isNull()) {
        painter.setPen(theme().mutedText);
        painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap, u"Χωρίς φωτογραφία"_s);
        return;
    }
    const QSizeF size = picture_.deviceIndependentSize();
    painter.drawPixmap(QPointF(room.center().x() - size.width() / 2, room.center().y() - size.height() / 2), picture_);
}

}  // namespace controls
