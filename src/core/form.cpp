#include "core/form.h"

namespace core {

Form::Form(MainMod& mod, const QString& name, const QString& caption, Placement placement)
    : mod_(mod), placement_(std::move(placement)) {
    setObjectName(name);
    setWindowTitle(caption);
}

void Form::load() {
    if (loaded_) return;
    loaded_ = true;
    attempt(mod_, this, [this] { onLoad(); });
}

bool Form::unload(bool minimised, QPoint position) {
    if (!queryUnload()) return false;
    attempt(mod_, this, [&] {
        onUnload();
        if (!minimised) storePosition(mod_.services.settings, placement_, position);
    });
    return true;
}

}  // namespace core
