#include "main/formarea.h"

#include <QCloseEvent>
#include <QMdiSubWindow>

#include "controls/theme.h"

using namespace Qt::Literals::StringLiterals;

namespace entry {

namespace {

class FormFrame : public QMdiSubWindow {
public:
    explicit FormFrame(core::Form* form) : form_(form) {
        setWidget(form);
        setWindowIcon(form->windowIcon());
        setAttribute(Qt::WA_DeleteOnClose, false);
    }

protected:
    // Unloading may ask, and ends with the deletion of this frame: it follows when the event is through.
    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        emit form_->closeRequested();
    }

private:
    core::Form* form_;
};

QMdiSubWindow* frameOf(core::Form* form) {
    return qobject_cast<QMdiSubWindow*>(form->parentWidget());
}

}  // namespace

FormArea::FormArea(const platform::Settings& settings) : settings_(settings) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // Behind a window that closes comes the one that was at work before.
    setActivationOrder(ActivationHistoryOrder);
    connect(this, &QMdiArea::subWindowActivated, this, &FormArea::bringAwaited, Qt::QueuedConnection);
    followTheme();
}

void FormArea::followTheme() {
    setBackground(controls::theme().window.darker(controls::theme().dark ? 130 : 105));
}

void FormArea::add(core::Form* form) {
    auto* frame = new FormFrame(form);
    addSubWindow(frame);
    // Their sizes before are those of another style.
    for (QWidget* part : form->findChildren<QWidget*>()) part->ensurePolished();
    frame->resize(frame->sizeHint());
    frame->move(freePlace(core::loadPosition(settings_, form->placement())));
    makeRoomFor(frame);
}

// A step beside the windows that stand there already, so that each one's title stays in view.
QPoint FormArea::freePlace(QPoint wanted) const {
    constexpr QPoint step(28, 28);
    const auto frames = subWindowList();
    const auto isTaken = [&](QPoint place) {
        return std::any_of(frames.begin(), frames.end(), [=](const QMdiSubWindow* frame) {
            return frame->isVisible() && (frame->pos() - place).manhattanLength() < step.x();
        });
    };
    while (isTaken(wanted)) wanted += step;
    return wanted;
}

// A window that wouldn't fit makes the main window grow as far as the screen allows, so that nothing is cut off at its
// first opening.
void FormArea::makeRoomFor(QWidget* frame) {
    const QSize wanted = frame->geometry().size().expandedTo(frame->minimumSizeHint());
    const QSize needed = QSize(frame->x(), frame->y()) + wanted;
    const QSize missing = (needed - viewport()->size()).expandedTo({0, 0});
    if (!missing.isNull()) emit roomWanted(missing);
    frame->setGeometry(core::fitInto({frame->pos(), wanted}, viewport()->rect()));
}

void FormArea::bringToFront(core::Form* form) {
    QMdiSubWindow* frame = frameOf(form);
    if (frame->isMinimized())
        frame->showNormal();
    else
        frame->show();
    setActiveSubWindow(frame);
}

// A window that takes no input would only puzzle: its editor may lie behind it.
void FormArea::bringAwaited() {
    const QMdiSubWindow* frame = activeSubWindow();
    const auto* form = frame ? qobject_cast<core::Form*>(frame->widget()) : nullptr;
    if (form && form->awaited()) bringToFront(form->awaited());
}

bool FormArea::isAtItsPlace(core::Form* form) const {
    return !frameOf(form)->isMinimized() && !frameOf(form)->isMaximized();
}

QPoint FormArea::position(core::Form* form) const {
    return frameOf(form)->pos();
}

void FormArea::remove(core::Form* form) {
    QMdiSubWindow* frame = frameOf(form);
    removeSubWindow(frame);
    frame->deleteLater();
}

}  // namespace entry
