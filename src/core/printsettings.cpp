#include "core/printsettings.h"

#include "controls/theme.h"
#include "core/workprogress.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

namespace {

const QString section = u"Options"_s;
const QString previewKey = u"PrintPreview"_s;
const QString printerKey = u"Printer"_s;
const QString paperKey = u"PrintPaper"_s;

}  // namespace

bool previewsPrints(const platform::Settings& settings) {
    return settings.number(section, previewKey, 1) != 0;
}

void setPreviewsPrints(platform::Settings& settings, bool on) {
    settings.setNumber(section, previewKey, on);
}

platform::PageSetup pageSetup(const platform::Settings& settings, bool landscape) {
    platform::PageSetup setup;
    setup.landscape = landscape;
    const QString key = settings.value(section, paperKey);
    for (const QPageSize::PageSizeId id : papers)
        if (QPageSize::key(id) == key) setup.paper = QPageSize(id);
    return setup;
}

void storePaper(platform::Settings& settings, const platform::PageSetup& setup) {
    settings.setValue(section, paperKey, setup.paper.key());
}

QString chosenPrinter(const platform::Services& services) {
    const QString last = services.settings.value(section, printerKey);
    return !last.isEmpty() && services.printers.names().contains(last) ? last : services.printers.defaultName();
}

void storePrinter(platform::Settings& settings, const QString& printer) {
    settings.setValue(section, printerKey, printer);
}

std::shared_ptr<const platform::PrintDocument> drawn(QWidget* parent, const PrintJob& job,
                                                     const platform::PageSetup& setup) {
    WorkProgress progress(parent, u"Σχεδίαση σελίδων: "_s + job.title);
    platform::Printer printer(setup, job.title, [](const QString& name) { return controls::font(name, 10); });
    job.draw(printer, [&progress](int done, int total) {
        if (!progress.step(done, total)) throw PrintStopped();
    });
    return printer.endDoc();
}

void tellPrinterFailure(MainMod& mod, QWidget* parent, const platform::PrintError& error) {
    mod.services.prompts.message(parent, platform::MessageIcon::Critical, u"Μήνυμα λάθους"_s,
                                 programTitle() + u" Error: "_s + error.text() +
                                     u"\nΟι σελίδες μένουν στην προεπισκόπηση: επιλέξτε άλλον εκτυπωτή ή αποθηκεύστε "
                                     "τες σε PDF."_s);
}

}  // namespace core
