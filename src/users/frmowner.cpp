#include "users/frmowner.h"

#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/names.h"
#include "core/guard.h"

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

frmOwner::frmOwner(core::MainMod& mod, QWidget* parent) : QDialog(parent), mod_(mod) {
    setObjectName(u"frmOwner"_s);
    setWindowTitle(u"Στοιχεία κατόχου"_s);
    auto* form = new QFormLayout;
    form->setSpacing(10);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (const OwnerField& field : ownerFields) {
        auto* box = controls::named(new controls::TextBox, controls::arrayName(u"Text7"_s, Text7.size()));
        box->setHighlighting(true);
        box->setText(mod_.services.settings.value(section, field.key));
        auto* label = new QLabel(field.caption);
        controls::tie(label, box);
        form->addRow(label, box);
        Text7.append(box);
    }
    auto* confirm = controls::named(new QPushButton(u"Επικύρωση"_s), u"Command1"_s);
    confirm->setDefault(true);
    core::onSignal(mod_, this, confirm, &QPushButton::clicked, [this] { store(); });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(22, 20, 22, 18);
    layout->setSpacing(16);
    layout->addLayout(form);
    layout->addWidget(confirm, 0, Qt::AlignRight);
    setMinimumWidth(460);
}

void frmOwner::store() {
    if (Text7.first()->text().isEmpty())
        return core::complain(mod_, this, u" Πρέπει να συμπληρώσετε τα Στοιχεία σας"_s, Text7.first());
    for (int i = 0; i < Text7.size(); ++i)
        mod_.services.settings.setValue(section, ownerFields[i].key, Text7[i]->text());
    accept();
}

}  // namespace users
