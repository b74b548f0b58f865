// The surface that every printed page is drawn on: a current place, a font, texts, lines, boxes, pictures, pages.
#pragma once

#include <QColor>
#include <QDataStream>
#include <functional>
#include <memory>

#include "platform/printdocument.h"
#include "platform/printerror.h"

namespace platform {

using namespace Qt::Literals::StringLiterals;

struct PrintFont {
    QString name = u"Tahoma"_s;
    double size = 10;  // points
    bool bold = false;
    bool italic = false;
    bool underline = false;

    bool operator==(const PrintFont& other) const;
};

// All measures in twips from the corner of the printable area; a text's place is its upper left corner.
// A fresh surface stands at the top of the first page.
class Printer {
public:
    // Gives an installed font for a name as the forms use it, in any size.
    using FontSource = std::function<QFont(const QString& name)>;

    Printer(const PageSetup& setup, const QString& title, FontSource fonts,
            qint64 memoryLimit = PrintDocument::usualMemory);
    ~Printer();
    Q_DISABLE_COPY_MOVE(Printer)

    double currentX = 0;
    double currentY = 0;
    double scaleLeft = 0;  // the value that currentX has at the left edge: -300 moves everything 300 to the right
    PrintFont font;

    double scaleWidth() const { return area_.width(); }
    double scaleHeight() const { return area_.height(); }
    double textWidth(const QString& text) const;  // of the widest line
    double textHeight(const QString& text = u"X"_s) const;

    // Prints at the current place. Each line of the text begins where the first one began, and a line that would run
    // off the end of the paper opens the next page. Afterwards the place is the beginning of the next line (currentX
    // 0).
    void print(const QString& text = {});
    // The same, with the place left right behind the text, on its last line.
    void printInline(const QString& text);
    // One line at a place, for tables; the current place stays.
    void printAt(double x, double y, const QString& line);
    // Text inside the paper whatever its length: wrapped between `left` and `right` at blanks, inside a word that is
    // longer than a line. Ends the line.
    void printWrapped(const QString& text, double left, double right);
    // The lines that printWrapped makes of a text in the font as it stands.
    QStringList wrapped(const QString& text, double width) const;
    // The text, or its beginning and "..." where it doesn't stay below `width`; empty when even the dots don't.
    QString fitted(const QString& text, double width) const;

    void line(double x1, double y1, double x2, double y2, QColor colour = Qt::black);
    void box(QRectF rect, QColor colour = Qt::black);     // outline
    void fillBox(QRectF rect, QColor colour);             // filled, without an outline
    void paintPicture(const QImage& picture, QRectF to);  // stretched into the rectangle

    int page() const { return document_->pageCount() + 1; }  // the one being drawn, from 1
    void newPage();                                          // the font stays, the place is the top
    // Finishes the document; an untouched surface gives one empty page. The surface is empty afterwards and a further
    // document may be drawn.
    std::shared_ptr<const PrintDocument> endDoc();
    void killDoc();  // forgets everything drawn

private:
    struct Measure;  // the current font as the toolkit has it
    const Measure& measure() const;
    void start();
    void startPage();
    void finishPage();
    void putLine(const QString& line);

    PageSetup setup_;
    QString title_;
    FontSource fonts_;
    qint64 memoryLimit_;
    QSizeF area_;
    std::shared_ptr<PrintDocument> document_;
    QByteArray drawing_;
    std::unique_ptr<QDataStream> out_;
    mutable std::unique_ptr<Measure> measure_;
};

}  // namespace platform
