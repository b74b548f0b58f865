#include "core/printheading.h"

#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

OwnerDetails ownerDetails(const platform::Settings& settings) {
    const auto value = [&settings](const QString& key) { return settings.value(u"Settings"_s, key); };
    return {value(u"Name"_s), value(u"Address"_s), value(u"Phone"_s), value(u"Email"_s)};
}

double printMargin(const platform::Printer& printer) {
    return (printer.scaleWidth() - printer.scaleWidth() * 0.95) / 2;
}

double headingTab(const platform::Printer& printer) {
    return printer.textWidth(u"EΠΩΝΥΜΟ:     "_s);  // the first letter is a Latin one
}

void printOwnerAndDate(platform::Printer& printer, const std::optional<OwnerDetails>& owner, QDate today) {
    const double left = printMargin(printer), right = printer.scaleWidth() - left;
    const QString date = data::format(QDateTime(today, QTime(0, 0), Qt::UTC), u"dddd, dd/mm/yyyy");
    printer.font = {u"Tahoma"_s, 10};
    double dateX = printer.scaleWidth() / 2 + headingTab(printer);
    printer.font.size = 12;
    dateX = std::min(dateX, right - printer.textWidth(date));
    if (owner) {
        printer.font.size = 14;
        printer.font.bold = true;
        printer.printWrapped(owner->name, left, right);
        printer.font.bold = false;
        printer.font.size = 12;
        printer.printWrapped(owner->address, left, right);
        printer.printWrapped(owner->phone, left, right);
        printer.currentX = left;
        // The date shares the last line, unless that one is long.
        if (left + printer.textWidth(owner->email) < dateX)
            printer.printInline(owner->email);
        else
            printer.printWrapped(owner->email, left, right);
    }
    printer.currentX = dateX;
    printer.print(date);
    printer.print();
}

void printTitle(platform::Printer& printer, const QString& title, bool underlined) {
    printer.font.size = 14;
    printer.font.underline = underlined;
    const double left = printMargin(printer);
    for (const QString& line : printer.wrapped(title, printer.scaleWidth() - 2 * left)) {
        printer.currentX = printer.scaleWidth() / 2 - printer.textWidth(line) / 2;
        printer.print(line);
    }
    printer.print();
    printer.font.underline = false;
}

}  // namespace core
