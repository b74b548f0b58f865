#include "core/form.h"

namespace core {

Form::Form(MainMod& mod, const QString& name, const QString& caption, Placement placement)
    : Editing(mod, this), placement_(std::move(placement)) {
    setObjectName(name);
    setWindowTitle(caption);
}

void Form::load() {
    if (loaded_) return;
    loaded_ = true;
    beepForRefusedDates();
    attempt(mod_, this, [this] { onLoad(); });
}

void Form::keyPressEvent(QKeyEvent* event) {
    if (!takesEnter(*event)) QWidget::keyPressEvent(event);
}

bool Form::mayLeave() {
    if (!leaving_) attempt(mod_, this, [this] { leaving_ = queryUnload(); });
    return leaving_;
}

bool Form::unload(bool minimised, QPoint position) {
    if (!mayLeave()) return false;
    stay();
    attempt(mod_, this, [&] {
        onUnload();
        if (!minimised) storePosition(mod_.services.settings, placement_, position);
    });
    return true;
}

}  // namespace core
