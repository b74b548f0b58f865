#include "core/form.h"

#include <QApplication>
#include <QTimer>

#include "controls/icons.h"
#include "controls/pagearea.h"

namespace core {

Form::Form(MainMod& mod, const QString& name, const QString& caption, Placement placement, const QString& symbol)
    : Editing(mod, this), placement_(std::move(placement)) {
    setObjectName(name);
    setWindowTitle(caption);
    setWindowIcon(controls::icon(symbol));
}

void Form::load() {
    if (loaded_) return;
    loaded_ = true;
    controls::scrollContents(this);
    beepForRefused();
    attempt(mod_, this, [this] { onLoad(); });
}

void Form::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !event->isAutoRepeat()) {
        event->accept();
        emit closeRequested();
    } else if (!takesEnter(*event)) {
        QWidget::keyPressEvent(event);
    }
}

bool Form::mayLeave() {
    if (!leaving_) attempt(mod_, this, [this] { leaving_ = queryUnload(); });
    return leaving_;
}

void Form::waitFor(Form& editor, QPointer<QWidget> focus) {
    awaited_ = &editor;
    setEnabled(false);
    connect(&editor, &Form::unloading, this, [this, focus] {
        awaited_.clear();
        setEnabled(true);
        // Once the host has chosen who comes to the front.
        QTimer::singleShot(0, this, [this, focus] {
            const QWidget* now = QApplication::focusWidget();
            if (focus && (!now || isAncestorOf(now) || now->isAncestorOf(this))) focus->setFocus(Qt::OtherFocusReason);
        });
    });
}

bool Form::unload(bool awayFromPlace, QPoint position) {
    if (!mayLeave()) return false;
    stay();
    dropDraft();
    emit unloading();
    attempt(mod_, this, [&] {
        onUnload();
        if (!awayFromPlace) storePosition(mod_.services.settings, placement_, position);
    });
    return true;
}

}  // namespace core
