#pragma once

#include "controls/boxes.h"
#include "core/commands.h"
#include "core/form.h"

namespace users {

// Changes the password of the built-in Admin, and closes when it is done.
class frmAdmin : public core::Form {
    Q_OBJECT
public:
    explicit frmAdmin(core::MainMod& mod);

protected:
    void onLoad() override;

private:
    void change();

    controls::TextBox* Text1;  // the old one
    controls::TextBox* Text2;  // the new one
    controls::TextBox* Text3;  // the new one again
    core::Commands commands_;
};

}  // namespace users
