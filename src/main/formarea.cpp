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
        setWindowIcon(controls::icon(u"card"_s));
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
    followTheme();
}

void FormArea::followTheme() {
    setBackground(controls::theme().window.darker(controls::theme().dark ? 130 : 105));
}

void FormArea::add(core::Form* form) {
    auto* frame = new FormFrame(form);
    addSubWindow(frame);
    frame->resize(frame->sizeHint());
    frame->move(core::loadPosition(settings_, form->placement()));
    makeRoomFor(frame);
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

bool FormArea::isMinimised(core::Form* form) const {
    return frameOf(form)->isMinimized();
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
