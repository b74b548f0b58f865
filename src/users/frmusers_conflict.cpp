// What a save of a user does about somebody else's save meanwhile.
#include "core/conflictdialog.h"
#include "users/accounts.h"
#include "users/frmusers.h"

using namespace Qt::Literals::StringLiterals;

namespace users {

bool frmUsers::settleConflict() {
    mRs.cancelUpdate();
    data::Recordset now(mod_.gConnUsers, data::Sql(u"select * from users where aa=?"_s, mRs[u"aa"].toLong()));
    if (now.isEmpty()) return addAgain();

    struct Choice {
        QString column;
        bool changed;  // here
        core::ConflictField shown;
        std::function<void()> takeTheirs;
    };
    const QString theirName = now[u"UserName"].text(), theirGroup = groupName(mod_.gConnUsers, now[u"Group"].value());
    const Choice choices[] = {
        {u"UserName"_s,
         fields_.isChanged(Text1),
         {u"Όνομα Χρήστη"_s, Text1->text(), theirName},
         [&] { Text1->setText(theirName); }},
        {u"Group"_s,
         fields_.isChanged(Combo1),
         {u"Δικαιώματα"_s, Combo1->currentText(), theirGroup},
         [&] { Combo1->setCurrentIndex(Combo1->findText(theirGroup)); }},
        {u"Password"_s, !passwordStands_, {u"Κωδικός"_s, u"αυτός που γράψατε"_s, u"άλλος κωδικός"_s}, [&] {
             showStoredPassword();
         }}};
    QVector<core::ConflictField> shown;
    QVector<const Choice*> both;
    for (const Choice& choice : choices) {
        if (!choice.changed || now[choice.column].value() == mRs[choice.column].value()) continue;
        both << &choice;
        shown << choice.shown;
    }
    core::ConflictDialog dialog(mod_, this, u"τον χρήστη"_s, shown);
    if (!shown.isEmpty() && dialog.exec() != QDialog::Accepted) return false;
    for (const Choice& choice : choices) {
        const qsizetype asked = both.indexOf(&choice);
        if (asked >= 0 ? !dialog.keepsMine(int(asked)) : !choice.changed) choice.takeTheirs();
    }
    editedName_ = theirName;
    mRs = std::move(now);
    return true;
}

// A stored password went with the row, and has to be typed.
bool frmUsers::addAgain() {
    if (!ask(u"Ο χρήστης έχει διαγραφεί στο μεταξύ.\nΝα αποθηκευτεί ως νέος;"_s)) return false;
    mRs.open(mod_.gConnUsers, u"select * from users "_s);
    mRs.addNew();
    editedName_ = QString();
    if (passwordStands_) Text2->clear();
    passwordStands_ = false;
    return true;
}

}  // namespace users
