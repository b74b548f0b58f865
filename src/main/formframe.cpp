#include "main/formframe.h"

#include <QCloseEvent>
#include <QTimer>

#include "controls/theme.h"

using namespace Qt::Literals::StringLiterals;

namespace entry {

FormFrame::FormFrame(core::Form* form, std::function<void()> close) : form_(form), close_(std::move(close)) {
    setWidget(form);
    setWindowIcon(controls::icon(u"card"_s));
    setAttribute(Qt::WA_DeleteOnClose, false);
}

void FormFrame::closeEvent(QCloseEvent* event) {
    // Unloading may ask, and ends with the deletion of this frame, so it waits until the event is through.
    event->ignore();
    QTimer::singleShot(0, this, close_);
}

}  // namespace entry
