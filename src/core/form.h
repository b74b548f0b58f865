// A child window of the main window and its life: load, show, front, unload.
#pragma once

#include <QWidget>

#include "core/fieldwatch.h"
#include "core/guarded.h"
#include "core/placement.h"

namespace core {

class Form : public QWidget, protected Guarded {
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
    void keyPressEvent(QKeyEvent* event) override;

    virtual void onLoad() = 0;
    // Whether the window may go: asks when a field of fields_ was changed.
    virtual bool queryUnload() { return mayLose(); }
    virtual void onUnload() {}

    // Asks whether what was typed may be lost; true at once when nothing was.
    bool mayLose();

    FieldWatch fields_;        // the fields that are being edited
    QString unsavedQuestion_;  // what is asked then

private:
    Placement placement_;
    bool loaded_ = false;
};

}  // namespace core
