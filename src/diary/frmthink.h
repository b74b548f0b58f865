// One task: made, changed, deleted.
#pragma once

#include "controls/boxes.h"
#include "controls/choicebox.h"
#include "core/boundrow.h"
#include "core/commands.h"
#include "core/form.h"

namespace diary {

class frmThink : public core::Form {
    Q_OBJECT
public:
    explicit frmThink(core::MainMod& mod);

    // One of the two, right after the window was loaded.
    void startNew();
    void edit(qint64 aa);  // a task that is gone is told, and the window closes
    void resume(const core::Draft& draft);

protected:
    void onLoad() override;

private:
    QVector<core::Command> commands();
    core::BoundRow boundRow();
    void settle();
    core::Draft draft();
    void save();
    void remove();
    void leave();
    bool isWritable() const;

    QLabel* Label5;
    controls::TextBox* txtSubject;
    controls::ChoiceBox *Combo1, *Combo2;
    controls::MemoBox* txtNotes;
    core::BoundRow row_;
    QString owner_;
    core::Commands commands_;
};

}  // namespace diary
