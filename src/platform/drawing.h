// How a page's drawing is packed between the surface that writes it and the document that paints it.
#pragma once

#include <QDataStream>
#include <QRectF>
#include <QString>

namespace platform::drawing {

enum Operation : quint8 {
    Text = 'T',     // font, x, base line y, UTF-8
    Line = 'L',     // colour, x1, y1, x2, y2
    Outline = 'O',  // colour, rectangle
    Fill = 'F',     // colour, rectangle
    Picture = 'P',  // image, rectangle
};

// Numbers are single precision, which keeps a fraction of a twip over any paper.
inline void prepare(QDataStream& stream) {
    stream.setVersion(QDataStream::Qt_6_4);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
}

struct Item {
    quint8 operation = 0;
    quint32 value = 0;  // a colour, or the index of a font or picture
    QRectF rect;        // a text's place is its top left
    QString text;
};

// Over bytes that outlive it.
class Reader {
public:
    explicit Reader(const QByteArray& bytes) : in_(bytes) { prepare(in_); }
    bool next(Item& item) {
        if (in_.atEnd()) return false;
        in_ >> item.operation >> item.value;
        if (item.operation != Text) {
            in_ >> item.rect;
            return true;
        }
        QPointF place;
        QByteArray utf8;
        in_ >> place >> utf8;
        item.rect.moveTopLeft(place);
        item.text = QString::fromUtf8(utf8);
        return true;
    }

private:
    QDataStream in_;
};

}  // namespace platform::drawing
