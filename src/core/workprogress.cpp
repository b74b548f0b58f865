#include "core/workprogress.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMutex>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <exception>

#include "controls/layout.h"
#include "controls/names.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

namespace {

constexpr int yieldMs = 15;

// Esc and the frame's button close nothing that can't be stopped.
class ProgressDialog : public QDialog {
public:
    ProgressDialog(QWidget* parent, bool stoppable) : QDialog(parent), stoppable_(stoppable) {
        if (!stoppable) setWindowFlag(Qt::WindowCloseButtonHint, false);
    }
    void reject() override {
        if (stoppable_) QDialog::reject();
    }

private:
    const bool stoppable_;
};

// What the work told last, on its way from one thread to the other.
class Bulletin {
public:
    void write(const QString& what, int percent) {
        const QMutexLocker guard(&mutex_);
        what_ = what, percent_ = percent;
    }
    std::pair<QString, int> read() {
        const QMutexLocker guard(&mutex_);
        return {what_, percent_};
    }

private:
    QMutex mutex_;
    QString what_;
    int percent_ = -1;
};

}  // namespace

WorkProgress::WorkProgress(QWidget* parent, const QString& caption, Stop stop, int patience)
    : parent_(parent), caption_(caption), stop_(stop), patience_(patience), what_(caption) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    sinceStart_.start();
    sinceYield_.start();
}

WorkProgress::~WorkProgress() {
    if (hourglass_) QApplication::restoreOverrideCursor();
}

void WorkProgress::show() {
    const bool stoppable = stop_ == Stop::Offered;
    if (stoppable) {
        QApplication::restoreOverrideCursor();  // the stop button wants a pointer
        hourglass_ = false;
    }
    window_ = std::make_unique<ProgressDialog>(parent_, stoppable);
    window_->setObjectName(workProgressName);
    window_->setWindowTitle(caption_);
    window_->setWindowModality(Qt::ApplicationModal);
    label_ = new QLabel(what_);
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    bar_ = controls::named(new QProgressBar, u"ProgressBar1"_s);
    bar_->setAccessibleName(u"Πρόοδος εργασίας"_s);
    bar_->setRange(0, 1000);
    auto* layout = controls::dialogLayout(window_.get());
    controls::add(layout, {label_, bar_});
    if (stoppable) {
        auto* stop = controls::named(new QPushButton(u"&Διακοπή"_s), u"cmdStop"_s);
        layout->addLayout(controls::row({controls::Item::rest(), stop}));
        QObject::connect(stop, &QPushButton::clicked, window_.get(), &QDialog::reject);
        QObject::connect(window_.get(), &QDialog::rejected, window_.get(), [this] { stopped_ = true; });
    }
    window_->resize(420, window_->sizeHint().height());
    window_->show();
}

bool WorkProgress::step(qint64 done, qint64 total) {
    if (!window_ && sinceStart_.elapsed() >= patience_) show();
    if (!window_ || stopped_ || sinceYield_.elapsed() < yieldMs) return !stopped_;
    bar_->setRange(0, total > 0 ? 1000 : 0);
    bar_->setValue(total > 0 ? int(done * 1000 / total) : 0);
    QCoreApplication::processEvents();
    sinceYield_.restart();
    return !stopped_;
}

void WorkProgress::say(const QString& what) {
    what_ = what;
    if (label_) label_->setText(what);
}

void inBackground(QWidget* parent, const QString& caption, const std::function<void(const Tell&)>& work) {
    Bulletin bulletin;
    std::exception_ptr failure;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            work([&](const QString& what, int percent) { bulletin.write(what, percent); });
        } catch (...) {
            failure = std::current_exception();
        }
    }));
    WorkProgress progress(parent, caption, WorkProgress::Stop::None);
    thread->start();
    while (!thread->wait(yieldMs)) {
        const auto [what, percent] = bulletin.read();
        if (!what.isEmpty()) progress.say(what);
        progress.step(percent, percent < 0 ? 0 : 100);
    }
    if (failure) std::rethrow_exception(failure);
}

}  // namespace core
