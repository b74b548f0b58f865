#include "cards/historyreport.h"

#include "core/printout.h"
#include "data/recordset.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

constexpr double dateWidth = 1450, amountWidth = 1300, gap = 120;

class Report {
public:
    explicit Report(platform::Printer& printer)
        : printer_(printer),
          left_(core::printMargin(printer)),
          right_(printer.scaleWidth() - left_),
          reason_(left_ + dateWidth),
          debitEnd_(right_ - amountWidth - gap),
          reasonEnd_(debitEnd_ - amountWidth - gap) {
        useText();
        bottom_ = printer.scaleHeight() - 2 * printer.textHeight();
    }

    void header(const HistoryReport& report) {
        printer_.font = {u"Tahoma"_s, 14, true};
        printer_.printWrapped(report.owner.name, left_, right_);
        printer_.font = {u"Tahoma"_s, 12};
        for (const QString& line : {report.owner.address, report.owner.phone, report.owner.email})
            printer_.printWrapped(line, left_, right_);
        printer_.print();
        core::printTitle(printer_, u"ΙΣΤΟΡΙΚΟ ΕΠΑΦΗΣ"_s);
        useText();
        pair(u"ΕΠΩΝΥΜΟ:"_s, report.surname, u"ΤΗΛΕΦΩΝΟ:"_s, report.telephone);
        pair(u"ΟΝΟΜΑ:"_s, report.firstName, u"ΚΙΝΗΤΟ:"_s, report.mobile);
        printer_.print();
    }

    void heads() {
        useText();
        printer_.font.bold = true;
        const double y = printer_.currentY;
        printer_.printAt(left_, y, u"ΗΜΕΡΟΜΗΝΙΑ"_s);
        printer_.printAt(reason_ + gap, y, u"ΑΙΤΙΟΛΟΓΙΑ"_s);
        atRight(debitEnd_, u"ΧΡΕΩΣΗ"_s);
        atRight(right_, u"ΠΙΣΤΩΣΗ"_s);
        printer_.print();
        printer_.line(left_, printer_.currentY, right_, printer_.currentY);
        printer_.currentY += gap / 2;
        useText();
    }

    void movement(const HistoryReport::Movement& movement) {
        useText();
        const QStringList reasons = printer_.wrapped(movement.reason, reasonEnd_ - reason_ - gap);
        useNotes();
        const QStringList notes =
            movement.notes.isEmpty() ? QStringList() : printer_.wrapped(movement.notes, right_ - reason_ - gap);
        const double noteHeight = printer_.textHeight();
        useText();
        // Kept together where a page can hold it.
        needRoom(
            std::min(double(reasons.size()) * printer_.textHeight() + double(notes.size()) * noteHeight, bottom_ / 2));
        printer_.printAt(left_, printer_.currentY, movement.date);
        atRight(debitEnd_, movement.debit);
        atRight(right_, movement.credit);
        for (const QString& line : reasons) textLine(line, &Report::useText);
        for (const QString& line : notes) textLine(line, &Report::useNotes);
        printer_.currentY += gap / 2;
    }

    void footer() {
        printer_.font = {u"Tahoma"_s, 9};
        const QString text = u"Σελίδα: %1"_s.arg(printer_.page());
        printer_.printAt(right_ - printer_.textWidth(text), printer_.scaleHeight() - printer_.textHeight(), text);
    }

private:
    void useText() { printer_.font = {u"Tahoma"_s, 9}; }
    void useNotes() { printer_.font = {u"Tahoma"_s, 8, false, true}; }

    void atRight(double x, const QString& text) {
        printer_.printAt(x - printer_.textWidth(text), printer_.currentY, text);
    }

    void pair(const QString& label, const QString& value, const QString& label2, const QString& value2) {
        const double middle = printer_.scaleWidth() / 2;
        for (const auto& [x, end, caption, text] :
             {std::tuple(left_, middle - gap, label, value), std::tuple(middle, right_, label2, value2)}) {
            printer_.printAt(x, printer_.currentY, caption);
            printer_.font.bold = true;
            printer_.printAt(x + dateWidth, printer_.currentY, printer_.fitted(text, end - x - dateWidth));
            printer_.font.bold = false;
        }
        printer_.print();
    }

    void textLine(const QString& line, void (Report::*use)()) {
        (this->*use)();
        needRoom(printer_.textHeight());
        (this->*use)();
        printer_.currentX = reason_ + gap;
        printer_.print(line);
    }

    void needRoom(double height) {
        if (printer_.currentY + height <= bottom_) return;
        footer();
        printer_.newPage();
        heads();
    }

    platform::Printer& printer_;
    double left_, right_, reason_, debitEnd_, reasonEnd_, bottom_;
};

HistoryReport read(core::MainMod& mod, data::Recordset& card, qint64 code) {
    HistoryReport report{core::ownerDetails(mod.services.settings),
                         card[u"ΕΠΩΝΥΜΟ"].text(),
                         card[u"ΟΝΟΜΑ"].text(),
                         card[u"ΤΗΛΕΦΩΝΟ1"].text(),
                         card[u"ΚΙΝΗΤΟ"].text(),
                         {}};
    for (data::Recordset rows(mod.gConn,
                              data::Sql(u"select ΗΜΕΡΟΜΗΝΙΑ,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ,ΠΙΣΤΩΣΗ,notes from History where "
                                        "codecards=? order by ΗΜΕΡΟΜΗΝΙΑ,aa"_s,
                                        code));
         !rows.eof(); rows.moveNext())
        report.movements.append({data::format(rows[u"ΗΜΕΡΟΜΗΝΙΑ"].value(), u"d/mm/yyyy"), rows[u"ΑΙΤΙΟΛΟΓΙΑ"].text(),
                                 data::format(rows[u"ΧΡΕΩΣΗ"].value(), u"#,##0.00"),
                                 data::format(rows[u"ΠΙΣΤΩΣΗ"].value(), u"#,##0.00"), rows[u"notes"].text()});
    return report;
}

}  // namespace

void drawHistory(platform::Printer& printer, const HistoryReport& report, const core::PrintStep& step) {
    Report pages(printer);
    pages.header(report);
    pages.heads();
    for (int i = 0; i < report.movements.size(); ++i) {
        if (step) step(i, int(report.movements.size()));
        pages.movement(report.movements[i]);
    }
    pages.footer();
}

bool dtpHistory(core::MainMod& mod, QWidget* parent, qint64 cardCode) {
    data::Recordset card(mod.gConn,
                         data::Sql(u"select ΕΠΩΝΥΜΟ,ΟΝΟΜΑ,ΤΗΛΕΦΩΝΟ1,ΚΙΝΗΤΟ from cards where code=?"_s, cardCode));
    if (card.isEmpty()) return false;
    const HistoryReport report = read(mod, card, cardCode);
    const auto draw = [report](platform::Printer& printer, const core::PrintStep& step) {
        drawHistory(printer, report, step);
    };
    return core::printOut(mod, parent, {u"Εκτύπωση Ιστορικού"_s, draw, false, report.surname});
}

}  // namespace cards
