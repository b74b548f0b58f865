// The tasks, of one user or of all.
#pragma once

#include "controls/choicebox.h"
#include "core/commands.h"
#include "core/form.h"
#include "core/sortkeys.h"
#include "core/storedlist.h"

namespace diary {

class frmThinksToDoShow : public core::Form {
    Q_OBJECT
public:
    explicit frmThinksToDoShow(core::MainMod& mod);

    void FillList();

protected:
    void onLoad() override;
    void onUnload() override;

private:
    QVector<core::Command> commands();
    void edit();
    void remove();
    bool mayDelete() const;

    core::Commands commands_;
    controls::ChoiceBox* Combo1;
    core::StoredList* ListView1;
    core::SortKeys keys_;
};

}  // namespace diary
