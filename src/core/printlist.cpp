#include "core/printlist.h"

#include "core/guard.h"
#include "core/printout.h"
#include "data/error.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

namespace {

// The look of the list on screen, carried over to paper.
constexpr double pixel = 15;  // twips
constexpr double rowHeight = 17 * pixel;
constexpr double padding = 5 * pixel;
constexpr double iconSize = 16 * pixel;
const QColor buttonShadow(160, 160, 160), buttonFace(240, 240, 240), buttonLight(245, 245, 245);
const QColor ruling = QColor::fromRgb(1, 0, 0);

// Draws one table; keeps where it stands on the page.
class Table {
public:
    Table(platform::Printer& printer, const PrintedList& list)
        : printer_(printer), list_(list), left_(printMargin(printer)), top_(printer.currentY), y_(top_) {
        double sum = 0;
        for (const PrintColumn& column : list.columns) sum += column.width;
        const double ratio = sum > 0 ? printer.scaleWidth() * 0.9 / sum : 0;
        for (const PrintColumn& column : list.columns) widths_.append(column.width * ratio);
        shareRoom();
        bottom_ = printer.scaleHeight() - 5 * rowHeight;
        pages_ = countPages();
    }

    void heading() {
        printer_.font.bold = true;
        double x = left_;
        for (int i = 0; i < list_.columns.size(); ++i) {
            const double right = rightOf(x, i);
            button(x, right);
            put(printer_.fitted(list_.columns[i].header, widths_[i] - padding), x, i, 0);
            x = right;
        }
        printer_.font.bold = false;
    }

    void row(const controls::ListRow& row) {
        if (isFull(y_)) {
            pageNumber();
            printer_.newPage();
            continuation();
            printer_.currentY = y_ = top_;
        } else {
            y_ += rowHeight;
        }
        double x = left_;
        for (int i = 0; i < list_.columns.size(); ++i) {
            const double right = rightOf(x, i);
            double icon = 0;
            if (i == 0 && !row.icon.isNull()) {
                icon = iconSize;
                printer_.paintPicture(picture(row.icon), {x + pixel, y_ + pixel / 2, iconSize, iconSize});
            }
            const double room = std::floor(widths_[i]) - padding - icon;
            const QString text = printer_.fitted(row.cells.value(i), room);
            printer_.box({QPointF(x, y_), QPointF(right, y_ + rowHeight)}, ruling);
            put(text, x, i, icon);
            x = right;
        }
    }

    void pageNumber() {
        const QString text = u"Σελίδα %1"_s.arg(++page_);
        printer_.printAt(printer_.scaleWidth() / 2 - printer_.textWidth(text) / 2, bottom_ - rowHeight, text);
    }

private:
    double rightOf(double x, int column) const { return std::floor(x + widths_[column]); }
    bool isFull(double y) const { return y + rowHeight > bottom_ - 2 * rowHeight; }

    int countPages() const {
        int pages = 1;
        double y = top_;
        for (qsizetype i = 0; i < list_.rows.size(); ++i) {
            const bool full = isFull(y);
            pages += full;
            y = full ? top_ : y + rowHeight;
        }
        return pages;
    }

    // What the page goes on with, small, where the heading stands on the first one.
    void continuation() {
        const platform::PrintFont font = std::exchange(printer_.font, {u"Tahoma"_s, 8});
        QString text = list_.title;
        if (list_.card && !list_.card->surname.isEmpty()) text += u"  -  "_s + list_.card->surname;
        const QString page = u"  -  σελίδα %1 από %2"_s.arg(page_ + 1).arg(pages_);
        const double room = printer_.scaleWidth() - 2 * left_ - printer_.textWidth(page);
        if (!list_.title.isEmpty() && printer_.textHeight() < top_)
            printer_.printAt(left_, 0, printer_.fitted(text, room) + page);
        printer_.font = font;
    }

    // The room that the texts of a column want. Only the longest are measured.
    double wanted(int column) const {
        constexpr int about = 2, enough = 100;  // letters, texts
        qsizetype longest = 0;
        for (const controls::ListRow& row : list_.rows) longest = std::max(longest, row.cells.value(column).size());
        double widest = printer_.textWidth(list_.columns[column].header) * 1.15;  // it is bold
        int measured = 0;
        for (const controls::ListRow& row : list_.rows) {
            const QString text = row.cells.value(column).left(500);
            if (text.size() + about < longest || measured == enough) continue;
            widest = std::max(widest, printer_.textWidth(text));
            ++measured;
        }
        const bool icon = column == 0 && !list_.rows.isEmpty() && !list_.rows[0].icon.isNull();
        return widest + 3 * padding + (icon ? iconSize : 0);
    }

    // A column whose texts would be cut gets what the texts of others leave free, figures before texts. A hidden one
    // stays hidden.
    void shareRoom() {
        QVector<double> lacks;
        double lacking = 0, free = 0;
        for (int i = 0; i < widths_.size(); ++i) {
            lacks.append(widths_[i] > 0 ? wanted(i) - widths_[i] : 0);
            lacking += std::max(0.0, lacks[i]);
            free += std::max(0.0, -lacks[i]);
        }
        if (lacking <= 0 || free <= 0) return;
        const double given = std::min(free, lacking);
        for (int i = 0; i < widths_.size(); ++i)
            if (lacks[i] < 0) widths_[i] += lacks[i] / free * given;
        double left = given;
        for (const bool figures : {true, false}) {
            double sum = 0;
            for (int i = 0; i < widths_.size(); ++i)
                if (lacks[i] > 0 && isFigures(i) == figures) sum += lacks[i];
            const double share = sum > 0 ? std::min(1.0, left / sum) : 0;
            for (int i = 0; i < widths_.size(); ++i)
                if (lacks[i] > 0 && isFigures(i) == figures) widths_[i] += lacks[i] * share;
            left -= sum * share;
        }
    }

    bool isFigures(int column) const { return list_.columns[column].alignment & Qt::AlignRight; }

    // Four boxes, one within the other, look like a raised button.
    void button(double x, double right) {
        const double bottom = y_ + rowHeight;
        printer_.fillBox({QPointF(x, y_), QPointF(right, bottom)}, buttonShadow);
        printer_.fillBox({QPointF(x, y_), QPointF(right - pixel, bottom)}, buttonLight);
        printer_.fillBox({QPointF(x + pixel, y_ + pixel), QPointF(right, bottom)}, buttonShadow);
        printer_.fillBox({QPointF(x + pixel, y_ + pixel), QPointF(right - pixel, bottom - pixel)}, buttonFace);
    }

    void put(const QString& text, double x, int column, double icon) {
        if (text.isEmpty()) return;
        const double width = widths_[column];
        double place = x + icon + padding;
        if (isFigures(column))
            place = x + width - icon - printer_.textWidth(text) - padding;
        else if (list_.columns[column].alignment & Qt::AlignHCenter)
            place = x + icon + (width - printer_.textWidth(text)) / 2;
        printer_.printAt(place, y_ + pixel + (rowHeight - printer_.textHeight()) / 2, text);
    }

    // Each picture once, so that ten thousand rows share it.
    QImage picture(const QIcon& icon) {
        QImage& known = pictures_[icon.cacheKey()];
        if (known.isNull()) known = icon.pixmap(QSize(64, 64)).toImage();
        return known;
    }

    platform::Printer& printer_;
    const PrintedList& list_;
    double left_, top_, y_, bottom_;
    QVector<double> widths_;
    int page_ = 0, pages_ = 0;
    QHash<qint64, QImage> pictures_;
};

void drawCard(platform::Printer& printer, const PrintedCard& card) {
    printer.font.size = 10;
    printer.font.bold = false;
    const double left = printMargin(printer), middle = printer.scaleWidth() / 2, tab = headingTab(printer);
    const double gap = printer.textWidth(u"  "_s);
    const auto part = [&](double x, double end, const QString& label, const QString& value) {
        printer.printAt(x, printer.currentY, label);
        printer.font.bold = true;
        printer.printAt(x + tab, printer.currentY, printer.fitted(value, end - x - tab));
        printer.font.bold = false;
    };
    const auto line = [&](const QString& label, const QString& value, const QString& label2, const QString& value2) {
        part(left, middle + tab - gap, label, value);
        part(middle + tab, printer.scaleWidth() - left, label2, value2);
        printer.print();
    };
    line(u"EΠΩΝΥΜΟ: "_s, card.surname, u"ΤΗΛΕΦΩΝΟ: "_s, card.telephone);
    line(u"ONOMA: "_s, card.firstName, u"ΚΙΝΗΤΟ: "_s, card.mobile);
    printer.print();
}

PrintedList contents(MainMod& mod, const controls::ListView& list, const QString& title) {
    PrintedList printed{title, mod.services.clock.today(), {}, {}, {}, list.rows()};
    for (int i = 0; i < list.columns().size(); ++i)
        printed.columns.append({list.columns()[i].header, double(list.columnTwips(i)),
                                list.columns()[i].number ? Qt::AlignRight : Qt::AlignLeft});
    return printed;
}

bool printList(MainMod& mod, QWidget* parent, const PrintedList& list) {
    try {
        return printOut(
            mod, parent,
            {list.title, [list](platform::Printer& printer, const PrintStep& step) { drawList(printer, list, step); },
             false, list.card ? list.card->surname : QString()});
    } catch (const std::exception& error) {
        const auto* known = dynamic_cast<const data::Error*>(&error);
        constexpr int printerError = 482;  // the number that users know it by
        complain(mod, parent,
                 u"gPrintListView() failed with the following error:-\nError Number: %1\nDescription:%2"_s
                     .arg(known ? known->number() : printerError)
                     .arg(known ? known->text() : data::sentenceOf(error)));
        return false;
    }
}

}  // namespace

void drawList(platform::Printer& printer, const PrintedList& list, const PrintStep& step) {
    if (!list.title.isEmpty()) {
        printOwnerAndDate(printer, list.owner, list.today);
        printTitle(printer, list.title);
        if (list.card) drawCard(printer, *list.card);
        printer.font = {u"MS Sans Serif"_s, 7.8};
    }
    Table table(printer, list);
    table.heading();
    for (int i = 0; i < list.rows.size(); ++i) {
        if (step) step(i, int(list.rows.size()));
        table.row(list.rows[i]);
    }
    table.pageNumber();
}

bool gPrintListView(MainMod& mod, QWidget* parent, const controls::ListView& list, const QString& title,
                    ListHeading heading) {
    PrintedList printed = contents(mod, list, title);
    if (heading == ListHeading::Owner) printed.owner = ownerDetails(mod.services.settings);
    return printList(mod, parent, printed);
}

bool gPrintListView(MainMod& mod, QWidget* parent, const controls::ListView& list, const QString& title,
                    const PrintedCard& card) {
    PrintedList printed = contents(mod, list, title);
    printed.owner = ownerDetails(mod.services.settings);
    printed.card = card;
    return printList(mod, parent, printed);
}

}  // namespace core
