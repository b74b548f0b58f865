#include "core/printpreview.h"

#include <QScreen>

#include "controls/choicebox.h"
#include "controls/layout.h"
#include "controls/names.h"
#include "controls/walk.h"
#include "core/printsettings.h"
#include "core/workprogress.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

using controls::captionOf;
using controls::Item;
using controls::named;

namespace {

const std::pair<int, QString> zooms[] = {{PageView::fitWidth, u"Στο πλάτος"_s},
                                         {PageView::fitPage, u"Ολόκληρη σελίδα"_s},
                                         {50, u"50 %"_s},
                                         {75, u"75 %"_s},
                                         {100, u"100 %"_s},
                                         {150, u"150 %"_s},
                                         {200, u"200 %"_s},
                                         {300, u"300 %"_s},
                                         {400, u"400 %"_s}};
constexpr int firstRealZoom = 2;

// What a title becomes as a file's name.
QString fileNameOf(QString title) {
    static const QRegularExpression unfit(u"[\\x00-\\x1f/\\\\:*?\"<>|]+"_s);
    title = title.replace(unfit, u"-"_s).simplified().left(100);
    return (title.isEmpty() ? u"Εκτύπωση"_s : title) + u".pdf"_s;
}

QComboBox* choice(const QString& name) {
    return named<QComboBox>(new controls::ChoiceBox(false), name);
}

}  // namespace

PrintPreview::PrintPreview(MainMod& mod, QWidget* parent, const PrintJob& job)
    : Dialog(mod, parent, u"PrintPreview"_s, u"Προεπισκόπηση εκτύπωσης: "_s + job.title, u"print"_s),
      job_(job),
      setup_(pageSetup(mod.services.settings, job.landscape)),
      document_(drawn(parent, job_, setup_)),
      view_(named(new PageView, u"PageView"_s)),
      commands_(mod, this, commands()) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* print = commands_.button(u"cmdPrint"_s);
    print->setDefault(true);
    controls::add(controls::dialogLayout(this), {targetRow(print), viewRow(), {view_, 1}});
    listPrinters();
    view_->setDocument(document_);
    wire();
    showPage(0);
    resize((screen()->availableGeometry().size() * 0.85).boundedTo({1060, 900}));
    print->setFocus();
}

QVector<Command> PrintPreview::commands() {
    const auto before = [this] { return view_->page() > 0; };
    const auto after = [this] { return view_->page() + 1 < document_->pageCount(); };
    const auto turn = [this](int pages) { return [this, pages] { view_->setPage(view_->page() + pages); }; };
    const auto last = [this] { view_->setPage(document_->pageCount() - 1); };
    return {{u"cmdPrint"_s, {}, u"&Εκτύπωση"_s, {}, [this] { print(); }},
            {u"cmdPdf"_s, u"pdf"_s, u"P&DF..."_s, {}, [this] { writePdf(); }},
            {u"cmdFirst"_s, u"first"_s, u"Πρώτη σελίδα"_s, {}, [this] { view_->setPage(0); }, before},
            {u"cmdPrevious"_s, u"prev"_s, u"Προηγούμενη σελίδα"_s, {}, turn(-1), before},
            {u"cmdNext"_s, u"next"_s, u"Επόμενη σελίδα"_s, {}, turn(1), after},
            {u"cmdLast"_s, u"last"_s, u"Τελευταία σελίδα"_s, {}, last, after},
            {u"cmdClose"_s, u"exit"_s, u"&Κλείσιμο"_s, {}, [this] { reject(); }}};
}

QLayout* PrintPreview::targetRow(QWidget* print) {
    auto* pdf = commands_.button(u"cmdPdf"_s);
    pdf->setToolTip(u"Αποθήκευση σε αρχείο PDF"_s);
    pdf->setAccessibleName(pdf->toolTip());
    printers_ = choice(u"Printer"_s);
    printers_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    printers_->setMinimumContentsLength(10);
    printers_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    copies_ = named(new QSpinBox, u"Copies"_s);
    copies_->setRange(1, 99);
    paper_ = choice(u"Paper"_s);
    for (const QPageSize::PageSizeId id : papers) paper_->addItem(QPageSize::key(id), int(id));
    paper_->setCurrentIndex(paper_->findData(int(setup_.paper.id())));
    orientation_ = choice(u"Orientation"_s);
    orientation_->addItems({u"Κατακόρυφα"_s, u"Οριζόντια"_s});
    orientation_->setCurrentIndex(setup_.landscape);
    // The whole row stays narrower than a small screen.
    for (const auto& [box, longest] : {std::pair(paper_, u"Letter"_s), std::pair(orientation_, u"Κατακόρυφα"_s)})
        box->setMaximumWidth(fontMetrics().horizontalAdvance(longest) + 56);
    using controls::row;
    return controls::flow({row({print, pdf}), row({captionOf(u"Εκτυ&πωτής:"_s, printers_), {printers_, 1}}),
                           row({captionOf(u"&Αντίτυπα:"_s, copies_), copies_}),
                           row({captionOf(u"&Χαρτί:"_s, paper_), paper_}),
                           row({captionOf(u"Προσα&νατολισμός:"_s, orientation_), orientation_})},
                          12);
}

QLayout* PrintPreview::viewRow() {
    page_ = named(new QSpinBox, u"Page"_s);
    page_->setKeyboardTracking(false);
    pageCount_ = named(new QLabel, u"PageCount"_s);
    zoom_ = choice(u"Zoom"_s);
    for (const auto& [percent, caption] : zooms) zoom_->addItem(caption, percent);
    direct_ = named(new QCheckBox(u"&Στο εξής χωρίς προεπισκόπηση"_s), u"Direct"_s);
    direct_->setChecked(!previewsPrints(mod_.services.settings));
    direct_->setToolTip(u"Η προεπισκόπηση επανέρχεται από το μενού «Εμφάνιση»."_s);
    const auto button = [this](const QString& name) {
        QToolButton* made = commands_.toolButton(name);
        controls::standBeside(made, false);
        made->setFocusPolicy(Qt::StrongFocus);  // after a click Enter goes on turning pages
        return made;
    };
    using controls::row;
    return controls::flow({row({button(u"cmdFirst"_s), button(u"cmdPrevious"_s), captionOf(u"Σε&λίδα:"_s, page_), page_,
                                pageCount_, button(u"cmdNext"_s), button(u"cmdLast"_s)}),
                           row({captionOf(u"&Μεγέθυνση:"_s, zoom_), zoom_}),
                           row({Item::rest(), direct_, commands_.button(u"cmdClose"_s)}, 12)},
                          12);
}

void PrintPreview::wire() {
    on(page_, &QSpinBox::valueChanged, [this](int page) { view_->setPage(page - 1); });
    on(view_, &PageView::pageShown, [this](int page) { showPage(page); });
    on(view_, &PageView::zoomWanted, [this](bool larger) { changeZoom(larger); });
    on(zoom_, &QComboBox::currentIndexChanged, [this] { view_->setZoom(zoom_->currentData().toInt()); });
    for (QComboBox* box : {paper_, orientation_}) on(box, &QComboBox::currentIndexChanged, [this] { redraw(); });
    on(direct_, &QCheckBox::toggled, [this](bool direct) { setPreviewsPrints(mod_.services.settings, !direct); });
    // Also where there is no such page, or the box with the focus would take the key for its own value.
    const std::pair<QKeySequence, QString> keys[] = {{QKeySequence::Print, u"cmdPrint"_s},
                                                     {Qt::CTRL | Qt::Key_PageDown, u"cmdNext"_s},
                                                     {Qt::CTRL | Qt::Key_PageUp, u"cmdPrevious"_s},
                                                     {Qt::CTRL | Qt::Key_Home, u"cmdFirst"_s},
                                                     {Qt::CTRL | Qt::Key_End, u"cmdLast"_s}};
    for (const auto& [key, command] : keys) onKey(key, this, [this, command = command] { commands_.run(command); });
}

// As the system has them now, on the one chosen before if it is still there.
void PrintPreview::listPrinters() {
    const QStringList names = mod_.services.printers.names();
    QString wanted = printers_->currentText();
    if (!names.contains(wanted)) wanted = chosenPrinter(mod_.services);
    printers_->clear();
    printers_->addItems(names);
    printers_->setEnabled(!names.isEmpty());
    if (names.isEmpty()) printers_->addItem(u"(κανένας εκτυπωτής)"_s);
    printers_->setCurrentIndex(std::max(0, printers_->findText(wanted)));
}

void PrintPreview::redraw() {
    platform::PageSetup wanted = setup_;
    wanted.paper = QPageSize(static_cast<QPageSize::PageSizeId>(paper_->currentData().toInt()));
    wanted.landscape = orientation_->currentIndex() == 1;
    if (wanted == setup_) return;
    try {
        document_ = drawn(this, job_, wanted);
        setup_ = wanted;
        storePaper(mod_.services.settings, setup_);
        view_->setDocument(document_);
    } catch (...) {
        // The pages on show stay, under the paper that they are drawn for.
        const QSignalBlocker paper(paper_), orientation(orientation_);
        paper_->setCurrentIndex(paper_->findData(int(setup_.paper.id())));
        orientation_->setCurrentIndex(setup_.landscape);
        try {
            throw;
        } catch (const PrintStopped&) {
        }
    }
}

void PrintPreview::showPage(int page) {
    const int count = document_->pageCount();
    const QSignalBlocker blocker(page_);
    page_->setRange(1, count);
    page_->setValue(page + 1);
    pageCount_->setText(u"από %1"_s.arg(count));
    commands_.refresh();
}

// To the next step of the list from the size on screen, whatever fitted it.
void PrintPreview::changeZoom(bool larger) {
    const double shown = view_->pagePixels().width() * 1440.0 / logicalDpiX() / setup_.paperTwips().width() * 100;
    int wanted = -1;
    for (int i = firstRealZoom; i < zoom_->count(); ++i) {
        const int percent = zoom_->itemData(i).toInt();
        if (larger && percent > shown + 1 && wanted < 0) wanted = i;
        if (!larger && percent < shown - 1) wanted = i;
    }
    if (wanted >= 0) zoom_->setCurrentIndex(wanted);
}

void PrintPreview::deliver(const QString& caption, const std::function<bool(const platform::PageStep&)>& work) {
    WorkProgress progress(this, caption);
    const int pages = document_->pageCount();
    if (!work([&](int page) { return progress.step(page, pages); })) return;
    delivered_ = true;
}

void PrintPreview::print() {
    const QString printer = printers_->isEnabled() ? printers_->currentText() : QString();
    try {
        deliver(u"Αποστολή στον εκτυπωτή: "_s + job_.title, [&](const platform::PageStep& step) {
            return mod_.services.printers.print(*document_, printer, copies_->value(), step);
        });
    } catch (const platform::PrintError& error) {
        tellPrinterFailure(mod_, this, error);
        listPrinters();
        return;
    }
    if (!delivered_) return;
    storePrinter(mod_.services.settings, printer);
    accept();
}

void PrintPreview::writePdf() {
    const QString file =
        mod_.services.prompts.saveFile(this, u"Αποθήκευση σε PDF"_s, fileNameOf(job_.title), u"Αρχεία PDF (*.pdf)"_s);
    if (file.isEmpty()) return;
    deliver(u"Εγγραφή σε PDF: "_s + job_.title,
            [&](const platform::PageStep& step) { return mod_.services.printers.writePdf(*document_, file, step); });
    if (delivered_) accept();
}

}  // namespace core
