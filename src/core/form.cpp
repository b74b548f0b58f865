#include "core/form.h"

#include <QCheckBox>
#include <QKeyEvent>

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

void Form::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    if (!enter || !button || !button->isEnabled() || event->isAutoRepeat()) return QWidget::keyPressEvent(event);
    event->accept();
    if (qobject_cast<QCheckBox*>(button))
        focusNextChild();
    else
        button->click();
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
