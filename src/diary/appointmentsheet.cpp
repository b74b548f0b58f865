#include "diary/appointmentsheet.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

namespace {

constexpr double margin = 300, inset = 120;  // twips

// Draws inside a frame across the page, from the current place to where `draw` ends on the same page.
template <typename Draw>
void framed(platform::Printer& printer, Draw draw) {
    const double top = printer.currentY;
    const int page = printer.page();
    printer.currentY += inset;
    draw();
    printer.currentY += inset;
    const double from = printer.page() == page ? top : 0;
    printer.box({margin, from, printer.scaleWidth() - 2 * margin, printer.currentY - from});
    printer.currentY += 2 * inset;
}

void letterhead(platform::Printer& printer, const core::OwnerDetails& owner) {
    const std::pair<QString, double> lines[] = {
        {owner.name, 14}, {owner.address, 12}, {owner.phone, 12}, {owner.email, 12}};
    for (const auto& [text, size] : lines) {
        printer.font.size = size;
        printer.font.bold = size > 12;
        printer.printWrapped(text, margin, printer.scaleWidth() - margin);
    }
    printer.font.bold = false;
    printer.font.size = 10;
    printer.print();
}

void labelled(platform::Printer& printer, const QString& label, const QString& text, double at) {
    printer.font.bold = true;
    printer.printAt(margin + inset, printer.currentY, label);
    printer.font.bold = false;
    printer.printWrapped(text, at, printer.scaleWidth() - margin - inset);
}

}  // namespace

void drawAppointment(platform::Printer& printer, const AppointmentSheet& sheet) {
    letterhead(printer, sheet.owner);
    const double right = printer.scaleWidth() - margin - inset;
    framed(printer, [&] {
        printer.printWrapped(u"Πελάτης: "_s + sheet.contact, margin + inset, right);
        printer.printWrapped(u"Τηλέφωνο: "_s + sheet.telephones, margin + inset, right);
    });
    printer.font.bold = true;
    const double at = margin + inset + printer.textWidth(u" Ημερομηνία:  "_s);
    printer.font.bold = false;
    framed(printer, [&] {
        const std::pair<QString, QString> lines[] = {{u"Ημερομηνία:"_s, sheet.day},
                                                     {u"Θέμα:"_s, sheet.subject},
                                                     {u"Θέση:"_s, sheet.location},
                                                     {u"Έναρξη:"_s, sheet.start},
                                                     {u"Λήξη:"_s, sheet.end}};
        for (const auto& [label, text] : lines) labelled(printer, label, text, at);
        printer.font.bold = true;
        printer.printAt(margin + inset, printer.currentY, u"Σημειώσεις:"_s);
        printer.font.bold = false;
        printer.font.size = 9;
        for (const QString& line : QString(sheet.notes).replace(u"\r\n"_s, u"\n"_s).split(u'\n'))
            printer.printWrapped(line, at, right);
    });
}

}  // namespace diary
