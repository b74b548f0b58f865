// A drawn page as a picture, a point to a pixel, without its margins.
#pragma once

#include <QImage>
#include <QPainter>

#include "platform/printdocument.h"

namespace support {

inline QImage pageImage(const platform::PrintDocument& document, int page = 0) {
    QImage image((document.setup().areaTwips() / 20).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(1 / 20.0, 1 / 20.0);
    document.paint(painter, page);
    return image;
}

}  // namespace support
