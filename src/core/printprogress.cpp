#include "core/printprogress.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/names.h"
#include "controls/theme.h"

namespace core {

namespace {

constexpr int patienceMs = 250;  // a window for less would only flicker
constexpr int yieldMs = 15;

}  // namespace

PrintProgress::PrintProgress(QWidget* parent, const QString& caption) : parent_(parent), caption_(caption) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    sinceStart_.start();
    sinceYield_.start();
}

PrintProgress::~PrintProgress() {
    if (hourglass_) QApplication::restoreOverrideCursor();
}

void PrintProgress::show() {
    QApplication::restoreOverrideCursor();  // the stop button wants a pointer
    hourglass_ = false;
    window_ = std::make_unique<QDialog>(parent_);
    window_->setObjectName(QStringLiteral("PrintProgress"));
    window_->setWindowTitle(caption_);
    window_->setWindowModality(Qt::ApplicationModal);
    auto* label = new QLabel(caption_);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    bar_ = controls::named(new QProgressBar, QStringLiteral("ProgressBar1"));
    bar_->setAccessibleName(QStringLiteral("Πρόοδος εκτύπωσης"));
    bar_->setRange(0, 1000);
    auto* stop = controls::named(new QPushButton(QStringLiteral("&Διακοπή")), QStringLiteral("cmdStop"));
    auto* layout = new QVBoxLayout(window_.get());
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(10);
    layout->addWidget(label);
    layout->addWidget(bar_);
    layout->addWidget(stop, 0, Qt::AlignRight);
    QObject::connect(stop, &QPushButton::clicked, window_.get(), &QDialog::reject);
    QObject::connect(window_.get(), &QDialog::rejected, window_.get(), [this] { stopped_ = true; });
    window_->resize(420, window_->sizeHint().height());
    window_->show();
}

bool PrintProgress::step(qint64 done, qint64 total) {
    if (!window_ && sinceStart_.elapsed() >= patienceMs) show();
    if (!window_ || stopped_ || sinceYield_.elapsed() < yieldMs) return !stopped_;
    bar_->setValue(total > 0 ? int(done * 1000 / total) : 0);
    QCoreApplication::processEvents();
    sinceYield_.restart();
    return !stopped_;
}

}  // namespace core
