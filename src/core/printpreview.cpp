#include "core/printpreview.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include "controls/choicebox.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/guard.h"
#include "core/printsettings.h"
#include "core/workprogress.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

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
    : QDialog(parent), mod_(mod), job_(job), setup_(pageSetup(mod.services.settings, job.landscape)) {
    document_ = drawn(parent, job_, setup_);
    setObjectName(u"PrintPreview"_s);
    setWindowTitle(u"Προεπισκόπηση εκτύπωσης: "_s + job_.title);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    view_ = named(new PageView, u"PageView"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 10, 12, 10);
    layout->setSpacing(8);
    layout->addLayout(targetRow());
    layout->addLayout(viewRow());
    layout->addWidget(view_, 1);
    listPrinters();
    view_->setDocument(document_);
    wire();
    showPage(0);
    resize((screen()->availableGeometry().size() * 0.85).boundedTo({1060, 900}));
    print_->setFocus();
}

QLabel* PrintPreview::captionOf(const QString& caption, QWidget* field) {
    auto* label = new QLabel(caption);
    controls::tie(label, field);
    return label;
}

QHBoxLayout* PrintPreview::targetRow() {
    print_ = named(new QPushButton(u"&Εκτύπωση"_s), u"cmdPrint"_s);
    print_->setDefault(true);
    pdf_ = named(new QPushButton(controls::icon(u"pdf"_s), u"P&DF..."_s), u"cmdPdf"_s);
    pdf_->setToolTip(u"Αποθήκευση σε αρχείο PDF"_s);
    pdf_->setAccessibleName(u"Αποθήκευση σε αρχείο PDF"_s);
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
    const auto narrow = [this](QComboBox* box, const QString& longest) {
        box->setMaximumWidth(fontMetrics().horizontalAdvance(longest) + 56);
    };
    narrow(paper_, u"Letter"_s);
    narrow(orientation_, u"Κατακόρυφα"_s);

    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(print_);
    row->addWidget(pdf_);
    row->addSpacing(10);
    const std::pair<QString, QWidget*> fields[] = {{u"Εκτυ&πωτής:"_s, printers_},
                                                   {u"&Αντίτυπα:"_s, copies_},
                                                   {u"&Χαρτί:"_s, paper_},
                                                   {u"Προσα&νατολισμός:"_s, orientation_}};
    for (const auto& [caption, field] : fields) {
        row->addWidget(captionOf(caption, field));
        row->addWidget(field, field == printers_);
        row->addSpacing(6);
    }
    return row;
}

QToolButton* PrintPreview::pageButton(const QString& name, const QString& icon, const QString& caption) {
    auto* button = named(new QToolButton, name);
    button->setIcon(controls::icon(icon));
    button->setToolTip(caption);
    button->setAccessibleName(caption);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

QHBoxLayout* PrintPreview::viewRow() {
    first_ = pageButton(u"cmdFirst"_s, u"first"_s, u"Πρώτη σελίδα"_s);
    previous_ = pageButton(u"cmdPrevious"_s, u"prev"_s, u"Προηγούμενη σελίδα"_s);
    next_ = pageButton(u"cmdNext"_s, u"next"_s, u"Επόμενη σελίδα"_s);
    last_ = pageButton(u"cmdLast"_s, u"last"_s, u"Τελευταία σελίδα"_s);
    page_ = named(new QSpinBox, u"Page"_s);
    page_->setKeyboardTracking(false);
    pageCount_ = named(new QLabel, u"PageCount"_s);
    zoom_ = choice(u"Zoom"_s);
    for (const auto& [percent, caption] : zooms) zoom_->addItem(caption, percent);
    direct_ = named(new QCheckBox(u"&Στο εξής χωρίς προεπισκόπηση"_s), u"Direct"_s);
    direct_->setChecked(!previewsPrints(mod_.services.settings));
    direct_->setToolTip(u"Η προεπισκόπηση επανέρχεται από το μενού «Εμφάνιση»."_s);
    close_ = named(new QPushButton(controls::icon(u"exit"_s), u"&Κλείσιμο"_s), u"cmdClose"_s);
    close_->setAutoDefault(false);
    pdf_->setAutoDefault(false);

    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(first_);
    row->addWidget(previous_);
    row->addWidget(captionOf(u"Σε&λίδα:"_s, page_));
    row->addWidget(page_);
    row->addWidget(pageCount_);
    row->addWidget(next_);
    row->addWidget(last_);
    row->addSpacing(10);
    row->addWidget(captionOf(u"&Μεγέθυνση:"_s, zoom_));
    row->addWidget(zoom_);
    row->addStretch(1);
    row->addWidget(direct_);
    row->addSpacing(6);
    row->addWidget(close_);
    return row;
}

void PrintPreview::wire() {
    const auto on = [this](auto* sender, auto signal, auto handler) { onSignal(mod_, this, sender, signal, handler); };
    on(print_, &QPushButton::clicked, [this] { print(); });
    on(pdf_, &QPushButton::clicked, [this] { writePdf(); });
    on(close_, &QPushButton::clicked, [this] { reject(); });
    on(first_, &QToolButton::clicked, [this] { view_->setPage(0); });
    on(previous_, &QToolButton::clicked, [this] { view_->setPage(view_->page() - 1); });
    on(next_, &QToolButton::clicked, [this] { view_->setPage(view_->page() + 1); });
    on(last_, &QToolButton::clicked, [this] { view_->setPage(document_->pageCount() - 1); });
    on(page_, &QSpinBox::valueChanged, [this](int page) { view_->setPage(page - 1); });
    on(view_, &PageView::pageShown, [this](int page) { showPage(page); });
    on(view_, &PageView::zoomWanted, [this](bool larger) { changeZoom(larger); });
    on(zoom_, &QComboBox::currentIndexChanged, [this] { view_->setZoom(zoom_->currentData().toInt()); });
    for (QComboBox* box : {paper_, orientation_}) on(box, &QComboBox::currentIndexChanged, [this] { redraw(); });
    on(direct_, &QCheckBox::toggled, [this](bool direct) { setPreviewsPrints(mod_.services.settings, !direct); });
    const std::pair<QKeySequence, QAbstractButton*> keys[] = {{QKeySequence::Print, print_},
                                                              {QKeySequence(u"Ctrl+PgDown"_s), next_},
                                                              {QKeySequence(u"Ctrl+PgUp"_s), previous_},
                                                              {QKeySequence(u"Ctrl+Home"_s), first_},
                                                              {QKeySequence(u"Ctrl+End"_s), last_}};
    for (const auto& [sequence, button] : keys)
        connect(new QShortcut(sequence, this), &QShortcut::activated, button, &QAbstractButton::click);
}

void PrintPreview::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (auto* button = qobject_cast<QToolButton*>(focusWidget()); enter && button) return button->click();
    if (enter && qobject_cast<QAbstractSpinBox*>(focusWidget())) {
        focusNextChild();
        return;
    }
    QDialog::keyPressEvent(event);
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
    first_->setEnabled(page > 0);
    previous_->setEnabled(page > 0);
    next_->setEnabled(page + 1 < count);
    last_->setEnabled(page + 1 < count);
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
