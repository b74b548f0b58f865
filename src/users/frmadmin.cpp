#include "users/frmadmin.h"

#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/names.h"
#include "data/password.h"
#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

namespace users {

using controls::named;

frmAdmin::frmAdmin(core::MainMod& mod) : Form(mod, u"frmAdmin"_s, u"Αλλαγή κωδικού Administrator"_s, {u"Admin"_s}) {
    auto* form = new QFormLayout;
    form->setSpacing(10);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    struct Row {
        QString name;
        QString caption;
        controls::TextBox*& box;
    };
    for (const Row& row : {Row{u"Text1"_s, u" Παλαιός"_s, Text1}, Row{u"Text2"_s, u" Νέος"_s, Text2},
                           Row{u"Text3"_s, u" Επιβεβαίωση"_s, Text3}}) {
        row.box = named(new controls::TextBox, row.name);
        row.box->setEchoMode(QLineEdit::Password);
        row.box->setHighlighting(true);
        auto* label = new QLabel(row.caption);
        controls::tie(label, row.box);
        form->addRow(label, row.box);
    }
    Command1 = named(new QPushButton(u"Επικύρωση"_s), u"Command1"_s);
    Command1->setDefault(true);
    on(Command1, &QPushButton::clicked, [this] { change(); });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(22, 20, 22, 18);
    layout->setSpacing(16);
    layout->addLayout(form);
    layout->addWidget(Command1, 0, Qt::AlignRight);
    layout->addStretch(1);
    setMinimumWidth(380);
}

void frmAdmin::onLoad() {
    Text1->setFocus(Qt::OtherFocusReason);
}

void frmAdmin::change() {
    data::Recordset admin(mod_.gConnUsers, u"select pass from admin"_s);
    if (admin.isEmpty() || !data::verifyPassword(admin[u"Pass"].text(), Text1->text()))
        return core::complain(mod_, this, u"Ο παλιός Κωδικός δεν είναι σωστός !!!"_s, Text1);
    if (Text2->text() != Text3->text() || Text2->text().isEmpty())
        return core::complain(mod_, this, u"Ο καινούργιος Κωδικός δεν συμφωνεί στην επιβεβαίωση ή είναι κενός !!!"_s,
                              Text2);
    admin[u"Pass"].setValue(data::makeVerifier(Text2->text()));
    admin.update();
    mod_.services.prompts.message(this, platform::MessageIcon::Information, core::programTitle(),
                                  u"Η αλλαγή του Κωδικού του Admin έγινε επιτυχώς !!!"_s);
    emit closeRequested();
}

}  // namespace users
