#include "platform/printers.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>

#include "platform/filefault.h"

using namespace Qt::Literals::StringLiterals;

namespace platform {

namespace {

QPageLayout::Orientation orientationOf(const PageSetup& setup) {
    return setup.landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
}

// The whole paper, since the document has its own margin. One by one: a printer that can't reach the edge refuses a
// layout without margins as a whole, and quietly keeps its own.
void takePaper(QPrinter& device, const PageSetup& setup) {
    device.setFullPage(true);
    if (!device.setPageSize(setup.paper) || !device.setPageOrientation(orientationOf(setup)))
        throw PrintError(
            u"Ο εκτυπωτής «%1» δεν έχει χαρτί %2."_s.arg(device.printerName(), QPageSize::key(setup.paper.id())));
    device.setPageMargins(QMarginsF());
}

// All pages onto a device that stands on its first one; false when stopped.
template <typename Device>
bool paintPages(const PrintDocument& document, QPainter& painter, Device& device, const PageStep& step) {
    const double margin = document.setup().margin;
    for (int page = 0; page < document.pageCount(); ++page) {
        if (step && !step(page)) return false;
        if (page > 0 && !device.newPage()) throw PrintError(u"Ο εκτυπωτής δεν δέχτηκε νέα σελίδα."_s);
        painter.save();
        painter.scale(device.logicalDpiX() / 1440.0, device.logicalDpiY() / 1440.0);
        painter.translate(margin, margin);
        document.paint(painter, page);
        painter.restore();
    }
    return true;
}

PrintError gone(const QString& name) {
    return PrintError(name.isEmpty() ? u"Δεν υπάρχει εκτυπωτής στο σύστημα."_s
                                     : u"Ο εκτυπωτής «%1» δεν βρέθηκε ή δεν αποκρίνεται."_s.arg(name));
}

}  // namespace

QStringList SystemPrinters::names() const {
    return QPrinterInfo::availablePrinterNames();
}

QString SystemPrinters::defaultName() const {
    const QString name = QPrinterInfo::defaultPrinterName();
    return name.isEmpty() ? names().value(0) : name;
}

bool SystemPrinters::print(const PrintDocument& document, const QString& printer, int copies, const PageStep& step) {
    // The toolkit would quietly write a file of its own for a printer that isn't there.
    const QPrinterInfo info = QPrinterInfo::printerInfo(printer);
    if (printer.isEmpty() || info.isNull() || info.state() == QPrinter::Error) throw gone(printer);
    QPrinter device(info, QPrinter::HighResolution);
    takePaper(device, document.setup());
    device.setDocName(document.title());
    device.setCreator(QCoreApplication::applicationName());
    device.setCopyCount(std::max(1, copies));
    QPainter painter;
    if (!painter.begin(&device)) throw gone(printer);
    if (!paintPages(document, painter, device, step)) {
        device.abort();
        return false;
    }
    if (!painter.end() || device.printerState() == QPrinter::Error)
        throw PrintError(u"Η αποστολή στον εκτυπωτή «%1» απέτυχε."_s.arg(printer));
    return true;
}

bool SystemPrinters::writePdf(const PrintDocument& document, const QString& file, const PageStep& step) {
    const auto failure = [&file](const QString& why) {
        return PrintError(u"Δεν γράφτηκε το αρχείο «%1»: %2"_s.arg(file, why));
    };
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly)) throw failure(fileFault(target));
    {
        QPdfWriter device(&target);
        device.setResolution(1440);
        device.setPageLayout({document.setup().paper, orientationOf(document.setup()), QMarginsF()});
        device.setTitle(document.title());
        device.setCreator(QCoreApplication::applicationName());
        QPainter painter;
        if (!painter.begin(&device)) throw failure(u"Δεν ξεκινά η σελίδα."_s);
        if (!paintPages(document, painter, device, step)) {
            target.cancelWriting();
            painter.end();
            return false;
        }
        painter.end();
    }
    if (!target.commit()) throw failure(fileFault(target));
    return true;
}

}  // namespace platform
