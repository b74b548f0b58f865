#include "platform/printer.h"

#include <QFontMetricsF>

#include "platform/drawing.h"

namespace platform {

namespace {

constexpr double twipsPerPoint = 20;

bool isControl(QChar c) {
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

// What can be drawn of a line: a tab is a gap, other control characters are nothing.
QString drawable(const QString& line) {
    if (std::none_of(line.begin(), line.end(), isControl)) return line;
    QString plain;
    plain.reserve(line.size());
    for (const QChar c : line) {
        if (c == u'\t')
            plain += QStringLiteral("    ");
        else if (!isControl(c))
            plain += c;
    }
    return plain;
}

QStringList linesOf(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    text.replace(QChar::LineSeparator, u'\n').replace(QChar::ParagraphSeparator, u'\n');
    return text.split(u'\n');
}

}  // namespace

bool PrintFont::operator==(const PrintFont& other) const {
    return name == other.name && size == other.size && bold == other.bold && italic == other.italic &&
           underline == other.underline;
}

struct Printer::Measure {
    PrintFont of;
    QFont font;
    QFontMetricsF metrics;
    int index = -1;  // in the document
};

Printer::Printer(const PageSetup& setup, const QString& title, FontSource fonts, qint64 memoryLimit)
    : setup_(setup), title_(title), fonts_(std::move(fonts)), memoryLimit_(memoryLimit), area_(setup.areaTwips()) {
    start();
}

Printer::~Printer() = default;

void Printer::start() {
    document_ = std::make_shared<PrintDocument>(setup_, title_, memoryLimit_);
    measure_.reset();
    startPage();
}

void Printer::startPage() {
    drawing_.clear();
    out_ = std::make_unique<QDataStream>(&drawing_, QIODevice::WriteOnly);
    drawing::prepare(*out_);
    currentX = currentY = 0;
}

void Printer::finishPage() {
    out_.reset();
    document_->append(drawing_);
}

const Printer::Measure& Printer::measure() const {
    if (measure_ && measure_->of == font) return *measure_;
    // A pixel of the font is a twip, and unhinted, so that a text is as wide on screen as on paper.
    QFont made = fonts_(font.name);
    made.setPixelSize(std::max(1, qRound(std::min(font.size, 500.0) * twipsPerPoint)));
    made.setHintingPreference(QFont::PreferNoHinting);
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setUnderline(font.underline);
    const int index = document_->fontIndex(made);
    measure_ = std::make_unique<Measure>(Measure{font, made, QFontMetricsF(made), index});
    return *measure_;
}

double Printer::textWidth(const QString& text) const {
    double widest = 0;
    for (const QString& line : linesOf(text))
        widest = std::max(widest, measure().metrics.horizontalAdvance(drawable(line)));
    return widest;
}

double Printer::textHeight(const QString& text) const {
    return measure().metrics.height() * double(linesOf(text).size());
}

void Printer::putLine(const QString& line) {
    const double height = measure().metrics.height();
    if (currentY + height > scaleHeight() && currentY > 0) {
        const double x = currentX;
        newPage();
        currentX = x;
    }
    printAt(currentX, currentY, line);
}

void Printer::printAt(double x, double y, const QString& line) {
    const QString text = drawable(line);
    if (text.isEmpty()) return;
    const Measure& now = measure();
    *out_ << quint8(drawing::Text) << quint32(now.index) << QPointF(x - scaleLeft, y + now.metrics.ascent())
          << text.toUtf8();
}

void Printer::printInline(const QString& text) {
    const QStringList lines = linesOf(text);
    const double left = currentX;
    for (int i = 0; i < lines.size(); ++i) {
        if (i > 0) currentY += measure().metrics.height();
        currentX = left;
        putLine(lines[i]);
    }
    currentX = left + measure().metrics.horizontalAdvance(drawable(lines.last()));
}

void Printer::print(const QString& text) {
    printInline(text);
    currentY += measure().metrics.height();
    currentX = 0;
}

void Printer::printWrapped(const QString& text, double left, double right) {
    for (const QString& line : wrapped(text, right - left)) {
        currentX = left;
        print(line);
    }
}

// How many characters of `line` stay within `width`, at least one. Doubling first keeps a line of any length cheap.
static qsizetype fitting(const QFontMetricsF& metrics, const QString& line, double width, const QString& tail = {}) {
    const auto fits = [&](qsizetype count) { return metrics.horizontalAdvance(line.left(count) + tail) < width; };
    qsizetype good = 0, bad = 16;
    while (bad < line.size() && fits(bad)) {
        good = bad;
        bad *= 2;
    }
    bad = std::min(bad, line.size() + 1);
    while (bad - good > 1) {
        const qsizetype middle = (good + bad) / 2;
        (fits(middle) ? good : bad) = middle;
    }
    return good;
}

QStringList Printer::wrapped(const QString& text, double width) const {
    QStringList made;
    for (const QString& source : linesOf(text)) {
        QString line = drawable(source);
        qsizetype count = fitting(measure().metrics, line, width);
        while (count < line.size()) {
            count = std::max<qsizetype>(count, 1);
            if (line[count - 1].isHighSurrogate()) ++count;
            const qsizetype blank = line.lastIndexOf(u' ', std::min(count, line.size() - 1));
            const bool atBlank = blank > 0;
            made.append(line.left(atBlank ? blank : count));
            line = line.mid(atBlank ? blank + 1 : count);
            count = fitting(measure().metrics, line, width);
        }
        made.append(line);
    }
    return made;
}

QString Printer::fitted(const QString& text, double width) const {
    const QFontMetricsF& metrics = measure().metrics;
    const QString line = drawable(QString(text).replace(u'\n', u' ').replace(u'\r', u' '));
    if (line.size() < 200 && metrics.horizontalAdvance(line) < width) return line;
    const QString dots = QStringLiteral("...");
    if (metrics.horizontalAdvance(dots) >= width) return {};
    const qsizetype whole = fitting(metrics, line, width);
    if (whole >= line.size()) return line;
    qsizetype count = fitting(metrics, line, width, dots);
    if (count > 0 && line[count - 1].isHighSurrogate()) --count;
    return line.left(count) + dots;
}

void Printer::line(double x1, double y1, double x2, double y2, QColor colour) {
    *out_ << quint8(drawing::Line) << quint32(colour.rgba())
          << QRectF(QPointF(x1 - scaleLeft, y1), QPointF(x2 - scaleLeft, y2));
}

void Printer::box(QRectF rect, QColor colour) {
    *out_ << quint8(drawing::Outline) << quint32(colour.rgba()) << rect.translated(-scaleLeft, 0);
}

void Printer::fillBox(QRectF rect, QColor colour) {
    *out_ << quint8(drawing::Fill) << quint32(colour.rgba()) << rect.translated(-scaleLeft, 0);
}

void Printer::paintPicture(const QImage& picture, QRectF to) {
    if (picture.isNull()) return;
    *out_ << quint8(drawing::Picture) << quint32(document_->imageIndex(picture)) << to.translated(-scaleLeft, 0);
}

void Printer::newPage() {
    finishPage();
    startPage();
}

std::shared_ptr<const PrintDocument> Printer::endDoc() {
    finishPage();
    std::shared_ptr<const PrintDocument> finished = std::move(document_);
    start();
    return finished;
}

void Printer::killDoc() {
    start();
}

}  // namespace platform
