#include "users/frmlogon.h"

#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/names.h"
#include "controls/theme.h"
#include "core/guard.h"
#include "users/credentials.h"

using namespace Qt::Literals::StringLiterals;

namespace users {

using controls::named;

frmLogon::frmLogon(core::MainMod& mod) : mod_(mod) {
    setObjectName(u"frmLogon"_s);
    setWindowTitle(u"Σύνδεση χρήστη"_s);
    build();
    Text1->setText(mod_.services.settings.value(u"Settings"_s, u"UserName"_s));
    core::onSignal(mod_, this, Command1, &QPushButton::clicked, [this] { logon(); });
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    // Whoever logged on last only types the password.
    (Text1->text().isEmpty() ? Text1 : Text2)->setFocus();
}

void frmLogon::build() {
    Text1 = named(new controls::TextBox, u"Text1"_s);
    Text2 = named(new controls::TextBox, u"Text2"_s);
    Text2->setEchoMode(QLineEdit::Password);
    Command1 = named(new QPushButton(u"Σύνδεση"_s), u"Command1"_s);
    Command2 = named(new QPushButton(u"Άκυρο"_s), u"Command2"_s);
    Command1->setDefault(true);
    for (QPushButton* button : {Command1, Command2}) button->setAutoDefault(true);
    status_ = named(new QLabel(u"Δώστε τον Χρήστη και τον Κώδικό του !!!"_s), u"StatusBar1"_s);
    status_->setProperty("role", u"muted"_s);

    auto* title = new QLabel(core::programTitle());
    title->setFont(controls::font(u"Tahoma"_s, 18, true));
    auto* picture = new QLabel;
    picture->setPixmap(controls::icon(u"dorvalist"_s).pixmap(QSize(48, 48), devicePixelRatioF()));
    auto* head = new QHBoxLayout;
    head->setSpacing(14);
    head->addWidget(picture);
    head->addWidget(title, 1);

    auto* form = new QFormLayout;
    form->setSpacing(10);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    struct Row {
        QString caption;
        QString name;
        QWidget* box;
    };
    for (const Row& row : {Row{u"Όνομα Χρήστη"_s, u"Label1"_s, Text1}, Row{u"Κωδικός Εισόδου"_s, u"Label2"_s, Text2}}) {
        auto* label = named(new QLabel(row.caption), row.name);
        controls::tie(label, row.box);
        form->addRow(label, row.box);
    }

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Command1);
    buttons->addWidget(Command2);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(26, 22, 26, 16);
    layout->setSpacing(16);
    layout->addLayout(head);
    layout->addLayout(form);
    layout->addLayout(buttons);
    layout->addWidget(status_);
    setMinimumWidth(400);
}

void frmLogon::logon() {
    if (Text1->text().isEmpty()) return mod_.beep();
    const QDateTime now = mod_.services.clock.now();
    if (mod_.logonDelay.isWaiting(now)) return refuse();
    const auto session = authenticate(mod_.gConnUsers, Text1->text(), Text2->text());
    if (!session) {
        mod_.logonDelay.failed(now);
        return refuse();
    }
    mod_.logonDelay.succeeded();
    mod_.gUserName = session->userName;
    mod_.gUserGroup = session->group;
    mod_.services.settings.setValue(u"Settings"_s, u"UserName"_s, mod_.gUserName);
    accept();
}

// No word on what was wrong, nor on a wait.
void frmLogon::refuse() {
    mod_.beep();
    Text2->clear();
    Text2->setFocus();
}

}  // namespace users
