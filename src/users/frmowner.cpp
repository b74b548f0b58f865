#include "users/frmowner.h"

#include "controls/layout.h"
#include "controls/names.h"

using namespace Qt::Literals::StringLiterals;

namespace users {

namespace {

struct OwnerField {
    QString caption;
    QString key;  // in section "Settings"
};

const OwnerField ownerFields[] = {{u" Ονοματεπώνυμο"_s, u"Name"_s},
                                  {u" Διεύθυνση"_s, u"Address"_s},
                                  {u" Τηλέφωνο"_s, u"Phone"_s},
                                  {u" Email"_s, u"Email"_s}};

const QString section = u"Settings"_s;

}  // namespace

frmOwner::frmOwner(core::MainMod& mod, QWidget* parent)
    : Dialog(mod, parent, u"frmOwner"_s, u"Στοιχεία κατόχου"_s, u"office"_s),
      commands_(mod, this, {{u"Command1"_s, {}, u"Επικύρωση"_s, {}, [this] { store(); }}}) {
    auto* form = controls::formLayout();
    for (const OwnerField& field : ownerFields) {
        auto* box = controls::named(new controls::TextBox, controls::arrayName(u"Text7"_s, int(Text7.size())));
        box->setHighlighting(true);
        box->setText(mod_.services.settings.value(section, field.key));
        controls::addField(form, field.caption, box);
        Text7.append(box);
    }
    auto* confirm = commands_.button(u"Command1"_s);
    confirm->setDefault(true);
    controls::add(controls::dialogLayout(this), {form, controls::row({controls::Item::rest(), confirm})});
    setMinimumWidth(460);
}

// Every printout begins with the name, so the first start doesn't go on without it.
void frmOwner::reject() {
    if (mod_.services.settings.value(section, ownerFields[0].key).isEmpty())
        complain(u" Πρέπει να συμπληρώσετε τα Στοιχεία σας"_s, Text7.first());
    else
        Dialog::reject();
}

void frmOwner::store() {
    if (Text7.first()->text().isEmpty()) return complain(u" Πρέπει να συμπληρώσετε τα Στοιχεία σας"_s, Text7.first());
    for (int i = 0; i < Text7.size(); ++i)
        mod_.services.settings.setValue(section, ownerFields[i].key, Text7[i]->text());
    accept();
}

}  // namespace users
