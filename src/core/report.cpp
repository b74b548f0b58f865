#include "core/report.h"

#include <stdexcept>

#include "core/printout.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

namespace {

constexpr double ruleGap = 60;
// So many lines of a head that is repeated leave room on every paper.
constexpr qsizetype linesOfHead = 4;

// A line of print, its texts at their places.
struct PrintedLine {
    struct Piece {
        double x;
        QString text;
        const platform::PrintFont* font;
    };
    QVector<Piece> pieces;
    double height = 0;
};

struct PrintedBand {
    const ReportBand* band;
    QVector<PrintedLine> lines;
    double height;
};

class Pages {
public:
    Pages(platform::Printer& printer, const Report& report)
        : printer_(printer),
          report_(report),
          left_(printMargin(printer)),
          room_(printer.scaleWidth() - 2 * left_),
          group_(report.fields.indexOf(report.groupBy)) {
        const double foot = laid(report.pageFoot, nullptr).height;
        footTop_ = printer.scaleHeight() - foot;
        bottom_ = footTop_ - foot;
    }

    void draw(const PrintStep& step) {
        put(laid(report_.head, nullptr));
        needRoom(laid(report_.pageHead, nullptr, linesOfHead).height);
        begun_ = true;
        pageHead();
        for (int i = 0; i < report_.rows.size(); ++i) {
            if (step) step(i, int(report_.rows.size()));
            row(report_.rows[i]);
        }
        pageFoot();
    }

private:
    QString valueOf(const QString& field, const QStringList* row) const {
        if (field.isEmpty()) return {};
        if (field == u"page") return QString::number(printer_.page());
        const qsizetype index = report_.fields.indexOf(field);
        if (index < 0 || !row) throw std::logic_error("a report shows a field that it hasn't: " + field.toStdString());
        return row->value(index);
    }

    void lay(PrintedBand& band, const ReportLine& line, const QStringList* row, qsizetype limit) const {
        QStringList values;
        for (const ReportItem& item : line) values.append(item.text + valueOf(item.field, row));
        if (values.join(QString()).isEmpty()) return;
        const qsizetype first = band.lines.size();
        for (int k = 0; k < line.size(); ++k) {
            const ReportItem& item = line[k];
            const double width = item.width / 100 * room_;
            printer_.font = item.font;
            const QStringList texts = item.grows ? printer_.wrapped(values[k], width).mid(0, limit)
                                                 : QStringList{printer_.fitted(values[k], width)};
            if (band.lines.size() < first + texts.size()) band.lines.resize(first + texts.size());
            const double height = printer_.textHeight();
            for (int i = 0; i < texts.size(); ++i) {
                PrintedLine& printed = band.lines[first + i];
                const double rest = width - printer_.textWidth(texts[i]);
                const double share = item.align & Qt::AlignRight ? 1 : item.align & Qt::AlignHCenter ? 0.5 : 0;
                const double x = left_ + item.x / 100 * room_ + rest * share;
                printed.height = std::max(printed.height, height);
                if (!texts[i].trimmed().isEmpty()) printed.pieces.append({x, texts[i], &item.font});
            }
        }
    }

    PrintedBand laid(const ReportBand& band, const QStringList* row, qsizetype limit = -1) const {
        PrintedBand made{&band, {}, band.before + band.after};
        for (const ReportLine& line : band.lines) lay(made, line, row, limit);
        for (const PrintedLine& line : made.lines) made.height += line.height;
        if (band.ruled) made.height += ruleGap;
        return made;
    }

    void putLine(const PrintedLine& line) {
        for (const PrintedLine::Piece& piece : line.pieces) {
            printer_.font = *piece.font;
            printer_.printAt(piece.x, printer_.currentY, piece.text);
        }
        printer_.currentY += line.height;
    }

    // Heads that are repeated are never broken.
    void put(const PrintedBand& band, bool breaks = true) {
        printer_.currentY += band.band->before;
        for (const PrintedLine& line : band.lines) {
            if (breaks) needRoom(line.height);
            putLine(line);
        }
        if (band.band->ruled) {
            printer_.line(left_, printer_.currentY, left_ + room_, printer_.currentY);
            printer_.currentY += ruleGap;
        }
        printer_.currentY += band.band->after;
    }

    void pageHead() { put(laid(report_.pageHead, nullptr, linesOfHead), false); }

    void pageFoot() {
        printer_.currentY = footTop_;
        put(laid(report_.pageFoot, nullptr, 1), false);
    }

    void needRoom(double height) {
        if (printer_.currentY + height <= bottom_) return;
        pageFoot();
        printer_.newPage();
        if (begun_) pageHead();
        if (head_) put(*head_, false);
    }

    void row(const QStringList& row) {
        const PrintedBand detail = laid(report_.detail, &row);
        const double together = std::min(detail.height, bottom_ / 2);
        if (group_ >= 0 && (!head_ || row.value(group_) != key_)) {
            PrintedBand head = laid(report_.groupHead, &row, linesOfHead);
            head_.reset();
            needRoom(head.height + together);
            put(head, false);
            key_ = row.value(group_);
            head_ = std::move(head);
        }
        needRoom(together);
        put(detail);
    }

    platform::Printer& printer_;
    const Report& report_;
    double left_, room_, footTop_, bottom_;
    bool begun_ = false;  // the page's head has been on a page
    qsizetype group_;
    QString key_;
    std::optional<PrintedBand> head_;  // of the group that goes on
};

}  // namespace

ReportBand Report::pageNumber() {
    ReportItem number{.text = u"Σελίδα: "_s, .field = u"page"_s, .align = Qt::AlignRight};
    return {.lines = {ReportLine{number}}};
}

ReportLine titleLine(const QString& title) {
    return {ReportItem{.text = title, .font = {.size = 14, .underline = true}, .align = Qt::AlignHCenter}};
}

ReportBand ownerBand(const OwnerDetails& owner, const QString& title) {
    ReportBand band{.after = 240};
    const auto add = [&band](const QString& text, const platform::PrintFont& font) {
        if (!text.isEmpty()) band.lines.append(ReportLine{ReportItem{.text = text, .font = font}});
    };
    add(owner.name, {.size = 14, .bold = true});
    for (const QString& detail : {owner.address, owner.phone, owner.email}) add(detail, {.size = 12});
    if (title.isEmpty()) return band;
    add(u" "_s, {.size = 12});
    band.lines.append(titleLine(title));
    return band;
}

void fillReport(Report& report, data::Recordset rows, const QVector<ReportColumn>& columns) {
    report.fields.clear();
    for (const ReportColumn& column : columns) report.fields.append(column.name);
    for (; !rows.eof(); rows.moveNext()) {
        QStringList row;
        for (const ReportColumn& column : columns) {
            const data::Field field = rows[column.name];
            row.append(column.pattern.isEmpty() ? field.text() : data::format(field.value(), column.pattern));
        }
        report.rows.append(row);
    }
}

void drawReport(platform::Printer& printer, const Report& report, const PrintStep& step) {
    Pages(printer, report).draw(step);
}

bool printReport(MainMod& mod, QWidget* parent, const Report& report) {
    return printOut(mod, parent,
                    {report.title,
                     [report](platform::Printer& printer, const PrintStep& step) { drawReport(printer, report, step); },
                     false, report.about});
}

}  // namespace core
