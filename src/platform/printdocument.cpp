#include "platform/printdocument.h"

#include <QPainter>
#include <QTemporaryFile>
#include <optional>

#include "platform/drawing.h"
#include "platform/filefault.h"
#include "platform/printerror.h"

using namespace Qt::Literals::StringLiterals;

namespace platform {

namespace {

// Half a point, the finest line that every printer draws evenly.
constexpr double lineWidth = 10;

QPen ruling(QRgb colour) {
    QPen pen(QColor::fromRgba(colour), lineWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

}  // namespace

QSizeF PageSetup::paperTwips() const {
    const QSizeF points = paper.size(QPageSize::Point);
    return (landscape ? points.transposed() : points) * 20;
}

QSizeF PageSetup::areaTwips() const {
    return paperTwips() - QSizeF(2 * margin, 2 * margin);
}

PrintDocument::PrintDocument(const PageSetup& setup, QString title, qint64 memoryLimit)
    : setup_(setup), title_(std::move(title)), memoryLimit_(memoryLimit) {}

PrintDocument::~PrintDocument() = default;

int PrintDocument::fontIndex(const QFont& font) {
    const QString key = font.key();
    const auto known = fontIndexes_.constFind(key);
    if (known != fontIndexes_.constEnd()) return *known;
    fonts_.append(font);
    fontIndexes_.insert(key, int(fonts_.size()) - 1);
    return int(fonts_.size()) - 1;
}

int PrintDocument::imageIndex(const QImage& image) {
    const auto known = imageIndexes_.constFind(image.cacheKey());
    if (known != imageIndexes_.constEnd()) return *known;
    images_.append(image);
    imageIndexes_.insert(image.cacheKey(), int(images_.size()) - 1);
    return int(images_.size()) - 1;
}

void PrintDocument::append(const QByteArray& drawing) {
    Page page;
    page.packed = qCompress(drawing, 1);
    page.size = page.packed.size();
    if (inMemory_ + page.size > memoryLimit_) {
        if (!file_) file_ = std::make_unique<QTemporaryFile>();
        if (!file_->isOpen() && !file_->open())
            throw PrintError(u"Δεν δημιουργήθηκε προσωρινό αρχείο για τις σελίδες: "_s + fileFault(*file_));
        page.offset = file_->size();
        if (!file_->seek(page.offset) || file_->write(page.packed) != page.size || !file_->flush())
            throw PrintError(u"Δεν χωρούν άλλες σελίδες στον δίσκο: "_s + fileFault(*file_));
        page.packed.clear();
    } else {
        inMemory_ += page.size;
    }
    pages_.append(std::move(page));
}

QByteArray PrintDocument::drawing(int page) const {
    const Page& kept = pages_[page];
    if (kept.offset < 0) return qUncompress(kept.packed);
    QByteArray packed;
    if (file_->seek(kept.offset)) packed = file_->read(kept.size);
    if (packed.size() != kept.size)
        throw PrintError(u"Δεν διαβάζεται το προσωρινό αρχείο των σελίδων: "_s + fileFault(*file_));
    return qUncompress(packed);
}

QStringList PrintDocument::texts(int page) const {
    QStringList found;
    drawing::Item item;
    const QByteArray bytes = drawing(page);
    for (drawing::Reader reader(bytes); reader.next(item);)
        if (item.operation == drawing::Text) found.append(item.text);
    return found;
}

// Texts are drawn after all the rest, and changes of pen and font are saved: the writer of a PDF notes each of them.
void PrintDocument::paint(QPainter& painter, int page) const {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    const QByteArray bytes = drawing(page);
    drawing::Item item;
    QVector<drawing::Item> texts;
    QVector<QRectF> outlines;
    QRgb colour = 0;
    const auto flush = [&] {
        if (outlines.isEmpty()) return;
        painter.setPen(ruling(colour));
        painter.setBrush(Qt::NoBrush);
        painter.drawRects(outlines);
        outlines.clear();
    };
    for (drawing::Reader reader(bytes); reader.next(item);) {
        if (item.operation == drawing::Text) {
            texts.append(item);
            continue;
        }
        if (item.operation != drawing::Outline || item.value != colour) flush();
        colour = item.value;
        switch (item.operation) {
            case drawing::Line:
                painter.setPen(ruling(item.value));
                painter.drawLine(item.rect.topLeft(), item.rect.bottomRight());
                break;
            case drawing::Outline:
                outlines.append(item.rect);
                break;
            case drawing::Fill:
                painter.fillRect(item.rect, QColor::fromRgba(item.value));
                break;
            case drawing::Picture:
                painter.drawImage(item.rect, images_[int(item.value)]);
                break;
        }
    }
    flush();
    painter.setPen(Qt::black);
    std::optional<quint32> font;
    for (const drawing::Item& text : texts) {
        if (font != text.value) painter.setFont(fonts_[int(text.value)]);
        font = text.value;
        painter.drawText(text.rect.topLeft(), text.text);
    }
}

}  // namespace platform
