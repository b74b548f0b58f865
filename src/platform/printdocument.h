// A finished print: its pages as drawing in twips (1440 to an inch), drawn once and shown, written or sent from there.
#pragma once

#include <QByteArray>
#include <QFont>
#include <QHash>
#include <QImage>
#include <QPageSize>
#include <QString>
#include <QStringList>
#include <QVector>
#include <memory>

class QPainter;
class QTemporaryFile;

namespace platform {

// The paper, and the strip along its edges that no printer reaches.
struct PageSetup {
    QPageSize paper{QPageSize::A4};
    bool landscape = false;
    double margin = 340;  // twips, 6 mm

    QSizeF paperTwips() const;  // as it is held, so wider than high in landscape
    QSizeF areaTwips() const;   // without the margins

    bool operator==(const PageSetup& other) const {
        return paper == other.paper && landscape == other.landscape && margin == other.margin;
    }
};

// Pages are kept packed; when they outgrow `memoryLimit` the further ones lie in a temporary file, so a report may
// have any number of them.
class PrintDocument {
public:
    static constexpr qint64 usualMemory = 48 << 20;

    explicit PrintDocument(const PageSetup& setup, QString title = {}, qint64 memoryLimit = usualMemory);
    ~PrintDocument();
    Q_DISABLE_COPY_MOVE(PrintDocument)

    const PageSetup& setup() const { return setup_; }
    const QString& title() const { return title_; }
    int pageCount() const { return int(pages_.size()); }

    // Page from 0. The painter's unit is the twip, its origin the corner of the printable area. Texts lie above lines,
    // boxes and pictures.
    void paint(QPainter& painter, int page) const;
    // The texts of a page in the order of their printing, as a screen reader says them.
    QStringList texts(int page) const;

private:
    friend class Printer;
    struct Page {
        QByteArray packed;
        qint64 offset = -1;  // in the file, when `packed` doesn't hold it
        qint64 size = 0;
    };

    int fontIndex(const QFont& font);
    int imageIndex(const QImage& image);
    void append(const QByteArray& drawing);
    QByteArray drawing(int page) const;

    PageSetup setup_;
    QString title_;
    qint64 memoryLimit_;
    qint64 inMemory_ = 0;
    QVector<Page> pages_;
    QVector<QFont> fonts_;
    QHash<QString, int> fontIndexes_;
    QVector<QImage> images_;
    QHash<qint64, int> imageIndexes_;
    std::unique_ptr<QTemporaryFile> file_;
};

}  // namespace platform
