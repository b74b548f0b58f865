#include "core/printout.h"

#include "core/printpreview.h"
#include "core/printsettings.h"
#include "core/workprogress.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

// Without the preview; false when the printer failed, and then it was told.
static bool sendDirectly(MainMod& mod, QWidget* parent, const PrintJob& job, bool& stopped) {
    const auto document = drawn(parent, job, pageSetup(mod.services.settings, job.landscape));
    WorkProgress progress(parent, u"Αποστολή στον εκτυπωτή: "_s + job.title);
    const int pages = document->pageCount();
    try {
        stopped = !mod.services.printers.print(*document, chosenPrinter(mod.services), 1,
                                               [&](int page) { return progress.step(page, pages); });
        return true;
    } catch (const platform::PrintError& error) {
        tellPrinterFailure(mod, parent, error);
        return false;
    }
}

bool printOut(MainMod& mod, QWidget* parent, const PrintJob& job) {
    try {
        bool stopped = false;
        if (!previewsPrints(mod.services.settings) && sendDirectly(mod, parent, job, stopped)) return !stopped;
        PrintPreview preview(mod, parent, job);
        preview.exec();
        return preview.isDelivered();
    } catch (const PrintStopped&) {
        return false;
    }
}

}  // namespace core
