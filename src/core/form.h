// A child window of the main window and its life: load, show, front, unload.
#pragma once

#include <QPointer>
#include <QWidget>

#include "core/editing.h"
#include "core/placement.h"

namespace core {

class Form : public QWidget, protected Editing {
    Q_OBJECT
public:
    // `symbol` is the icon of its frame, a name of assets/icons.
    Form(MainMod& mod, const QString& name, const QString& caption, Placement placement,
         const QString& symbol = usualSymbol);

    const Placement& placement() const { return placement_; }

    // Once, before the first showing. Throws nothing: a failure ends in the general box.
    void load();
    // Asks what must be asked before the window closes, once; false when it stays. stay() takes the answer back, for a
    // closing that another window refused.
    bool mayLeave();
    void stay() { leaving_ = false; }
    // Closing; false keeps the window. A minimised or maximised one is away from its place and keeps the stored one.
    // After true the window is deleted by its host.
    bool unload(bool awayFromPlace, QPoint position);
    // Takes no input until the editor goes; the host brings that one to the front instead. Then the keys go on at
    // `focus`, where they were before the editor opened, unless they went elsewhere.
    void waitFor(Form& editor, QPointer<QWidget> focus);
    Form* awaited() const { return awaited_; }  // null while it waits for none

signals:
    void closeRequested();                    // the window wants to go; the host unloads it
    void unloading();                         // it goes, and still stands
    void openRequested(const QString& form);  // the window wants another one in front

protected:
    // Esc, when nothing in the window takes it, closes the window.
    void keyPressEvent(QKeyEvent* event) override;

    virtual void onLoad() = 0;
    // Whether the window may go: asks when a field was changed.
    virtual bool queryUnload() { return mayLose(); }
    virtual void onUnload() {}

private:
    Placement placement_;
    bool loaded_ = false;
    bool leaving_ = false;  // it was asked, and may go
    QPointer<Form> awaited_;
};

}  // namespace core
