#include "users/windows.h"

#include "users/frmadmin.h"
#include "users/frmlogon.h"
#include "users/frmowner.h"
#include "users/frmusers.h"

using namespace Qt::Literals::StringLiterals;

namespace users {

void addWindows(core::Windows& windows, core::MainMod& mod) {
    windows.add(u"frmAdmin"_s, [&mod] { return new frmAdmin(mod); });
    windows.add(u"frmUsers"_s, [&mod] { return new frmUsers(mod); });
    windows.addDialog(u"frmLogon"_s, [&mod](QWidget*) { return std::make_unique<frmLogon>(mod); });
    windows.addDialog(u"frmOwner"_s, [&mod](QWidget* parent) { return std::make_unique<frmOwner>(mod, parent); });
}

}  // namespace users
