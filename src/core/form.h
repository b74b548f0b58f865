// A child window of the main window and its life: load, show, front, unload.
#pragma once

#include <QWidget>

#include "core/guard.h"
#include "core/mainmod.h"
#include "core/placement.h"

namespace core {

class Form : public QWidget {
    Q_OBJECT
public:
    Form(MainMod& mod, const QString& name, const QString& caption, Placement placement);

    const Placement& placement() const { return placement_; }

    // Once, before the first showing. Throws nothing: a failure ends in the general box.
    void load();
    // Before closing; false keeps the window. After true the window is deleted by its host.
    bool unload(bool minimised, QPoint position);

signals:
    void closeRequested();                    // the window wants to go; the host unloads it
    void openRequested(const QString& form);  // the window wants another one in front

protected:
    // Enter on a button presses it and on a check box moves on, as everywhere in the program.
    void keyPressEvent(QKeyEvent* event) override;

    virtual void onLoad() = 0;
    virtual bool queryUnload() { return true; }
    virtual void onUnload() {}

    // Handlers connected through here run under the general error box.
    template <typename Sender, typename Signal, typename Handler>
    void on(Sender* sender, Signal signal, Handler handler) {
        onSignal(mod_, this, sender, signal, std::move(handler));
    }

    MainMod& mod_;

private:
    Placement placement_;
    bool loaded_ = false;
};

}  // namespace core
