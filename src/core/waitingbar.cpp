#include "core/waitingbar.h"

#include <QApplication>
#include <QTimer>

#include "core/guard.h"

using namespace Qt::Literals::StringLiterals;

namespace core {
namespace {

constexpr int patienceMs = 500;

// A timer whose ring is held back rings again after its interval, a single one, too.
bool isTimerOfOthers(const QObject* receiver) {
    const bool rings =
        qobject_cast<const QTimer*>(receiver) || receiver->inherits("QSingleShotTimer") || receiver->isWidgetType();
    for (const QObject* above = receiver; above; above = above->parent())
        if (above->objectName() == workProgressName) return false;
    return rings;
}

}  // namespace

WaitingBar::WaitingBar() {
    listenHere(this);
}

WaitingBar::~WaitingBar() {
    listenHere(nullptr);
}

bool WaitingBar::goOn(qint64 milliseconds) {
    if (milliseconds < patienceMs) return true;
    if (!bar_)
        bar_ = std::make_unique<WorkProgress>(frontWindow(QApplication::activeWindow()),
                                              u"Αναμονή για τη βάση δεδομένων"_s, WorkProgress::Stop::Offered, 0);
    qApp->installEventFilter(this);
    const bool goesOn = bar_->step(0, 0);
    qApp->removeEventFilter(this);
    return goesOn;
}

void WaitingBar::over() {
    bar_.reset();
}

bool WaitingBar::eventFilter(QObject* receiver, QEvent* event) {
    return event->type() == QEvent::Timer && isTimerOfOthers(receiver);
}

}  // namespace core
