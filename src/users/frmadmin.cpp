#include "users/frmadmin.h"

#include "controls/layout.h"
#include "controls/names.h"
#include "data/opening/password.h"
#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

namespace users {

using controls::Item;
using controls::named;

frmAdmin::frmAdmin(core::MainMod& mod)
    : Form(mod, u"frmAdmin"_s, u"Αλλαγή κωδικού Administrator"_s, {u"Admin"_s}, u"lock"_s),
      commands_(mod, this,
                {{u"Command1"_s, {}, u"Επικύρωση"_s, {}, [this] { change(); }},
                 {u"cmdExit"_s, {}, u"Έξοδος"_s, {}, [this] { emit closeRequested(); }}}) {
    auto* form = controls::formLayout();
    const auto addBox = [form](const QString& name, const QString& caption) {
        auto* box = named(new controls::TextBox, name);
        box->setEchoMode(QLineEdit::Password);
        box->setHighlighting(true);
        controls::addField(form, caption, box);
        return box;
    };
    Text1 = addBox(u"Text1"_s, u" Παλαιός"_s);
    Text2 = addBox(u"Text2"_s, u" Νέος"_s);
    Text3 = addBox(u"Text3"_s, u" Επιβεβαίωση"_s);
    auto* change = commands_.button(u"Command1"_s);
    change->setDefault(true);
    controls::add(controls::pageLayout(this),
                  {form, controls::row({Item::rest(), change, commands_.button(u"cmdExit"_s)}), Item::rest()});
    setMinimumWidth(380);
}

void frmAdmin::onLoad() {
    Text1->setFocus(Qt::OtherFocusReason);
}

void frmAdmin::change() {
    data::Recordset admin(mod_.gConnUsers, u"select pass from admin"_s);
    if (admin.isEmpty() || !data::verifyPassword(admin[u"Pass"].text(), Text1->text()))
        return complain(u"Ο παλιός Κωδικός δεν είναι σωστός !!!"_s, Text1);
    if (Text2->text() != Text3->text() || Text2->text().isEmpty())
        return complain(u"Ο καινούργιος Κωδικός δεν συμφωνεί στην επιβεβαίωση ή είναι κενός !!!"_s, Text2);
    admin[u"Pass"].setValue(data::makeVerifier(Text2->text()));
    admin.update();
    tell(u"Η αλλαγή του Κωδικού του Admin έγινε επιτυχώς !!!"_s);
    emit closeRequested();
}

}  // namespace users
