#pragma once

#include "controls/boxes.h"
#include "core/commands.h"
#include "core/dialog.h"

namespace users {

// Asks for user and password. accepted() comes after gUserName and gUserGroup are set.
class frmLogon : public core::Dialog {
    Q_OBJECT
public:
    explicit frmLogon(core::MainMod& mod);

private:
    QLayout* head() const;
    void logon();
    void refuse();

    controls::TextBox* Text1;
    controls::TextBox* Text2;
    core::Commands commands_;
};

}  // namespace users
