#include "cards/kartela.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

constexpr int longestNote = 120;  // characters of a line

// A line across the page and an underlined heading below it.
void section(platform::Printer& printer, double left, const QString& heading) {
    printer.font.bold = true;
    printer.line(left, printer.currentY, printer.scaleWidth() - left, printer.currentY);
    printer.currentY += 60;
    if (!heading.isEmpty()) {
        printer.currentX = left;
        printer.font.underline = true;
        printer.print(heading);
        printer.font.underline = false;
    }
    printer.font.bold = false;
}

// The part of a note that goes on one line; the rest stays in `text`.
QString firstLine(QString& text) {
    if (text.size() <= longestNote) return std::exchange(text, QString());
    const qsizetype blank = text.lastIndexOf(u' ', longestNote - 1);
    qsizetype count = blank >= 0 ? blank : longestNote;
    if (blank < 0 && text[count - 1].isHighSurrogate()) --count;
    const QString line = text.left(count);
    text.remove(0, blank >= 0 ? count + 1 : count);
    return line;
}

}  // namespace

void gPrintLine(platform::Printer& printer, double left, double right, const QString& label, const QString& value) {
    constexpr double narrowest = 1500;
    printer.currentX = left;
    printer.font.bold = false;
    double x = left + printer.textWidth(label + u' ');
    if (x + narrowest > right) {
        // An office may name its fields as long as it likes.
        printer.printWrapped(label, left, right);
        x = left;
    } else {
        printer.printInline(label);
    }
    printer.font.bold = true;
    printer.printWrapped(value, x, right);
    printer.font.bold = false;
}

void PrintNotes(platform::Printer& printer, const QString& text) {
    constexpr double indent = 300;
    const double before = printer.scaleLeft;
    printer.scaleLeft = -indent;
    printer.print();
    printer.font.bold = false;
    printer.font.size = 9;
    printer.font.italic = true;
    const double right = printer.scaleWidth() - core::printMargin(printer) - indent;
    for (QString note : QString(text).replace(u"\r\n"_s, u"\n"_s).split(u'\n')) {
        do {
            const QString whole = note;
            const QString line = firstLine(note);
            // Wide letters may not leave room for all that a line may hold; the rest flows on.
            const QString fitting = printer.wrapped(line, right - indent).value(0);
            const bool cut = !fitting.isEmpty() && fitting.size() < line.size();
            if (cut) note = whole.mid(fitting.size() + (whole[fitting.size()] == u' ' ? 1 : 0));
            printer.currentX = indent;
            printer.print(cut ? fitting : line);
        } while (!note.isEmpty());
    }
    printer.font.italic = false;
    printer.scaleLeft = before;
    printer.print();
}

void drawKartela(platform::Printer& printer, const Kartela& card) {
    const double left = std::floor(core::printMargin(printer)), right = printer.scaleWidth() - left;
    const double middle = printer.scaleWidth() / 2;
    const auto heading = [&](const QString& title, bool underlined) {
        core::printOwnerAndDate(printer, card.owner, card.today);
        printer.font.bold = !underlined;
        core::printTitle(printer, title, underlined);
        printer.font.bold = false;
    };
    if (!card.title.isEmpty()) heading(card.title, true);
    printer.font.size = 10;
    section(printer, left, u"Βασικά Στοιχεία"_s);
    const double photoTop = printer.currentY, photoSide = middle - 1000;
    const auto lines = [&](const QVector<Kartela::Line>& all) {
        for (const auto& [label, value] : all) {
            // Beside the photo values keep to their half of the page.
            const bool beside = !card.photo.isNull() && printer.page() == 1 && printer.currentY < photoTop + photoSide;
            gPrintLine(printer, left, beside ? middle - 150 : right, label, value);
        }
    };
    // Before the lines, which may run on to further pages.
    printer.paintPicture(card.photo, {middle, photoTop, photoSide, photoSide});
    lines(card.basic);
    if (!card.special.isEmpty()) {
        printer.print();
        section(printer, left, u"Ειδικά Στοιχεία"_s);
        lines(card.special);
    }

    printer.newPage();
    if (!card.title.isEmpty()) heading(u"ΣΧΟΛΙΑ ΚΑΡΤΕΛΑΣ"_s, false);
    printer.font.size = 10;
    section(printer, left, {});
    gPrintLine(printer, left, right, u"Επώνυμο:"_s, card.surname);
    PrintNotes(printer, card.notes);
}

}  // namespace cards
