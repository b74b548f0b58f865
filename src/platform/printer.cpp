#include "platform/printer.h"

#include <QFontMetricsF>

#include "platform/drawing.h"

using namespace Qt::Literals::StringLiterals;

namespace platform {

namespace {

constexpr double twipsPerPoint = 20;

// A letter that stands for itself, whatever is beside it.
bool isPlain(QChar c) {
    const char16_t u = c.unicode();
    return (u >= 0x20 && u < 0x0300) || (u >= 0x0370 && u < 0x0483) || (u >= 0x1f00 && u < 0x2000) ||
           (u >= 0x2010 && u < 0x2027) || u == 0x20ac;
}

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
            plain += u"    "_s;
        else if (!isControl(c))
            plain += c;
    }
    return plain;
}

QStringList linesOf(QString text) {
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
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
    mutable QHash<char16_t, double> advances;

    double advance(QChar c) const {
        auto known = advances.constFind(c.unicode());
        if (known == advances.constEnd()) known = advances.insert(c.unicode(), metrics.horizontalAdvance(c));
        return *known;
    }
    // Without kerning a text of plain letters is as wide as its letters; shaping it costs a hundred times as much.
    double width(QStringView line) const {
        double sum = 0;
        for (const QChar c : line) {
            if (!isPlain(c)) return metrics.horizontalAdvance(line.toString());
            sum += advance(c);
        }
        return sum;
    }
    // How many characters of a line, with a tail, stay below a width.
    qsizetype fitting(QStringView line, double width, QStringView tail = {}) const;
};

qsizetype Printer::Measure::fitting(QStringView line, double width, QStringView tail) const {
    const double room = width - this->width(tail);
    double sum = 0;
    qsizetype count = 0;
    while (count < line.size() && isPlain(line[count])) {
        sum += advance(line[count]);
        if (sum >= room) return count;
        ++count;
    }
    if (count == line.size()) return count;
    // From the first letter on that joins others; doubling first keeps a line of any length cheap.
    const auto fits = [&](qsizetype wanted) { return this->width(line.left(wanted)) < room; };
    qsizetype good = count, bad = count + 16;
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
    made.setKerning(false);
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setUnderline(font.underline);
    const int index = document_->fontIndex(made);
    measure_ = std::make_unique<Measure>(Measure{font, made, QFontMetricsF(made), index, {}});
    return *measure_;
}

double Printer::textWidth(const QString& text) const {
    double widest = 0;
    for (const QString& line : linesOf(text)) widest = std::max(widest, measure().width(drawable(line)));
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
    currentX = left + measure().width(drawable(lines.last()));
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

QStringList Printer::wrapped(const QString& text, double width) const {
    QStringList made;
    for (const QString& source : linesOf(text)) {
        QString line = drawable(source);
        qsizetype count = measure().fitting(line, width);
        while (count < line.size()) {
            count = std::max<qsizetype>(count, 1);
            if (line[count - 1].isHighSurrogate()) ++count;
            const qsizetype blank = line.lastIndexOf(u' ', std::min(count, line.size() - 1));
            const bool atBlank = blank > 0;
            made.append(line.left(atBlank ? blank : count));
            line = line.mid(atBlank ? blank + 1 : count);
            count = measure().fitting(line, width);
        }
        made.append(line);
    }
    return made;
}

QString Printer::fitted(const QString& text, double width) const {
    const Measure& now = measure();
    const QString line = drawable(QString(text).replace(u'\n', u' ').replace(u'\r', u' '));
    if (now.fitting(line, width) == line.size()) return width > 0 ? line : QString();
    const QString dots = u"..."_s;
    if (now.width(dots) >= width) return {};
    qsizetype count = now.fitting(line, width, dots);
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
