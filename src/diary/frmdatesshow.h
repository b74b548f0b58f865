// The appointments of a period, of one user or of all.
#pragma once

#include "controls/choicebox.h"
#include "controls/period.h"
#include "core/commands.h"
#include "core/form.h"
#include "core/sortkeys.h"
#include "core/storedlist.h"

namespace diary {

class frmDatesShow : public core::Form {
    Q_OBJECT
public:
    explicit frmDatesShow(core::MainMod& mod);

    void FillList();
    void refresh();  // for whoever saved an appointment; not while a date is being typed

protected:
    void onLoad() override;
    void onUnload() override;

private:
    QVector<core::Command> commands();
    void saveList();

    controls::Period* period_;
    controls::ChoiceBox* Combo1;
    core::StoredList* ListView1;
    core::SortKeys keys_;
    core::Commands commands_;
};

}  // namespace diary
