#pragma once

#include "controls/boxes.h"
#include "core/commands.h"
#include "core/dialog.h"

namespace users {

// The owner's name, address, telephone and e-mail, which head every printout. Only the name is mandatory.
class frmOwner : public core::Dialog {
    Q_OBJECT
public:
    explicit frmOwner(core::MainMod& mod, QWidget* parent = nullptr);

    void reject() override;

private:
    void store();

    QVector<controls::TextBox*> Text7;
    core::Commands commands_;
};

}  // namespace users
