// Lists and reports on paper: drawn, and written as PDF.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPainter>
#include <QTemporaryDir>

#include "controls/theme.h"
#include "core/printlist.h"
#include "core/report.h"
#include "platform/printers.h"

using namespace Qt::Literals::StringLiterals;

namespace {

core::PrintedList printedList(int rows) {
    core::PrintedList list{u"Ημερολόγιο από 01/01/2026 έως 31/12/2026"_s,
                           QDate(2026, 11, 5),
                           core::OwnerDetails{u"Γραφείο"_s, u"Ερμού 12"_s, u"210 1234567"_s, u"info@example.gr"_s},
                           {},
                           {},
                           {}};
    for (const char16_t* header : {u"Ημερομηνία", u"Επώνυμο", u"Όνομα", u"Αιτιολογία", u"Χρέωση", u"Πίστωση"})
        list.columns.append(
            {QString::fromUtf16(header), 1000, list.columns.size() < 4 ? Qt::AlignLeft : Qt::AlignRight});
    for (int i = 0; i < rows; ++i)
        list.rows.append(
            {{u"05/11/2026"_s, u"Παπαδόπουλος %1"_s.arg(i), u"Κωνσταντίνος"_s,
              u"Τακτική επίσκεψη και έλεγχος εγκατάστασης με αλλαγή ανταλλακτικών"_s, u"%1,50"_s.arg(i), u"0,00"_s},
             {},
             {}});
    return list;
}

std::shared_ptr<const platform::PrintDocument> drawn(const core::PrintedList& list) {
    platform::Printer printer({}, list.title, [](const QString& name) { return controls::font(name, 10); });
    core::drawList(printer, list, {});
    return printer.endDoc();
}

void DrawList(benchmark::State& state) {
    const core::PrintedList list = printedList(int(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(drawn(list)->pageCount());
}

void WriteListAsPdf(benchmark::State& state) {
    QTemporaryDir folder;
    const QString file = folder.filePath(u"list.pdf"_s);
    const core::PrintedList list = printedList(int(state.range(0)));
    for (auto _ : state) {
        const auto document = drawn(list);
        platform::SystemPrinters().writePdf(*document, file, {});
        state.counters["pages"] = document->pageCount();
    }
    state.counters["KB"] = double(QFileInfo(file).size()) / 1024;
}

// Appointments by day, each with notes; every fiftieth has a page of them.
core::Report report(int rows) {
    using core::ReportItem;
    core::Report made{.groupBy = u"Day"_s, .fields = {u"Day"_s, u"Subject"_s, u"Start"_s, u"contact"_s, u"notes"_s}};
    made.pageHead.lines = {core::titleLine(u"ΚΑΤΑΣΤΑΣΗ"_s)};
    made.groupHead.lines = {{ReportItem{.field = u"Day"_s, .font = {.bold = true}}}};
    made.detail.lines = {{ReportItem{.width = 40, .field = u"Subject"_s}, ReportItem{.x = 41, .field = u"Start"_s},
                          ReportItem{.x = 60, .width = 40, .field = u"contact"_s}},
                         {ReportItem{.width = 17, .text = u"Σημειώσεις:"_s, .font = {.size = 9, .bold = true}},
                          ReportItem{.x = 17, .width = 83, .field = u"notes"_s}}};
    for (int i = 0; i < rows; ++i)
        made.rows.append({QString::number(i / 6), u"Τακτική επίσκεψη και έλεγχος"_s, u"09:30"_s,
                          u"Παπαδόπουλος Κωνσταντίνος"_s, u"Να φέρει τα χαρτιά. "_s.repeated(i % 50 ? 5 : 200)});
    return made;
}

void WriteReportAsPdf(benchmark::State& state) {
    QTemporaryDir folder;
    const QString file = folder.filePath(u"report.pdf"_s);
    const core::Report made = report(int(state.range(0)));
    for (auto _ : state) {
        platform::Printer printer({}, {}, [](const QString& name) { return controls::font(name, 10); });
        core::drawReport(printer, made, {});
        const auto document = printer.endDoc();
        platform::SystemPrinters().writePdf(*document, file, {});
        state.counters["pages"] = document->pageCount();
    }
}

// What the preview paints for a turn of the page, at the size of a screen.
void ShowPage(benchmark::State& state) {
    const auto document = drawn(printedList(1000));
    QImage screen(1000, 1400, QImage::Format_RGB32);
    int page = 0;
    for (auto _ : state) {
        screen.fill(Qt::white);
        QPainter painter(&screen);
        painter.scale(screen.width() / document->setup().paperTwips().width(),
                      screen.width() / document->setup().paperTwips().width());
        document->paint(painter, page = (page + 1) % document->pageCount());
    }
}

BENCHMARK(DrawList)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteListAsPdf)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteReportAsPdf)->Arg(2'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ShowPage)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    controls::applyTheme(app, controls::ThemeKind::Light);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
