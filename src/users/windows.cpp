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
    windows.addDrafts({u"frmUsers"_s, u"χρήστης"_s,
                       [&windows, &mod] {
                           const auto* open = qobject_cast<frmUsers*>(windows.find(u"frmUsers"_s));
                           return mod.gUserGroup == core::groupAdministrators && !(open && open->isEditing());
                       },
                       [&windows](const core::Draft& draft) {
                           qobject_cast<frmUsers*>(windows.front(u"frmUsers"_s))->resume(draft);
                       }});
}

}  // namespace users
