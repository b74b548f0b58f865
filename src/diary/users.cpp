#include "diary/users.h"

#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

void fillUsers(core::MainMod& mod, controls::ChoiceBox& list) {
    data::Recordset users(mod.gConnUsers, u"select * from Users order by UserName"_s);
    const QString chosen = list.currentText();
    list.clear();
    list.addItems({{}, u"Admin"_s});
    for (; !users.eof(); users.moveNext()) list.addItem(users[u"UserName"].text());
    chooseUser(list, chosen);
    list.setEnabled(!mod.onlyReads());
}

void chooseUser(controls::ChoiceBox& list, const QString& user) {
    if (list.findText(user) < 0) list.addItem(user);
    list.setCurrentText(user);
}

}  // namespace diary
