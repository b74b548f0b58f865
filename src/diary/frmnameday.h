// Who celebrates today: names, and cards by their birthday or name day.
#pragma once

#include <QCheckBox>

#include "core/commands.h"
#include "core/form.h"
#include "core/storedlist.h"

namespace diary {

class frmNameDay : public core::Form {
    Q_OBJECT
public:
    explicit frmNameDay(core::MainMod& mod);

protected:
    void onLoad() override;
    void onUnload() override;

private:
    void fillNames(QDate today);
    void fillCards(QDate today);

    core::StoredList *ListView1, *ListView2;
    core::Commands commands_;
    QCheckBox* Check1;
};

}  // namespace diary
