// The cards that fall due in a period.
#pragma once

#include <QLabel>

#include "controls/period.h"
#include "core/commands.h"
#include "core/form.h"
#include "core/sortkeys.h"
#include "core/storedlist.h"

namespace diary {

class frmLigounShow : public core::Form {
    Q_OBJECT
public:
    explicit frmLigounShow(core::MainMod& mod);

    void FillList();

protected:
    void onLoad() override;
    void onUnload() override;

private:
    QVector<core::Command> commands();

    core::Commands commands_;
    controls::Period* period_;
    core::StoredList* ListView1;
    QLabel* lblYpoloipo;
    core::SortKeys keys_;
};

}  // namespace diary
