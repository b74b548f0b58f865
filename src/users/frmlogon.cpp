#include "users/frmlogon.h"

#include <QKeyEvent>

#include "controls/layout.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "users/credentials.h"

using namespace Qt::Literals::StringLiterals;

namespace users {

using controls::Item;
using controls::named;

frmLogon::frmLogon(core::MainMod& mod)
    : Dialog(mod, nullptr, u"frmLogon"_s, u"Σύνδεση χρήστη"_s),
      Text1(named(new controls::TextBox, u"Text1"_s)),
      Text2(named(new controls::TextBox, u"Text2"_s)),
      hint_(named(new QLabel, u"lblHint"_s)),
      commands_(mod, this,
                {{u"Command1"_s, {}, u"Σύνδεση"_s, {}, [this] { logon(); }},
                 {u"cmdRetry"_s, {}, u"Νέα προσπάθεια"_s, {}, [this] { emit retryWanted(); }},
                 {u"Command2"_s, {}, u"Άκυρο"_s, {}, [this] { reject(); }}}) {
    auto* form = controls::formLayout();
    named(controls::addField(form, u"Όνομα Χρήστη"_s, Text1), u"Label1"_s);
    named(controls::addField(form, u"Κωδικός Εισόδου"_s, Text2), u"Label2"_s);
    // A row of its own that keeps its place, so that nothing moves while a password is typed.
    hint_->setProperty("role", u"accent"_s);
    form->addRow(QString(), hint_);
    auto* logon = commands_.button(u"Command1"_s);
    logon->setDefault(true);
    retry_ = commands_.button(u"cmdRetry"_s);
    status_ = named(new QLabel, u"StatusBar1"_s);
    status_->setProperty("role", u"muted"_s);
    controls::add(
        controls::dialogLayout(this),
        {head(), form, controls::row({retry_, Item::rest(), logon, commands_.button(u"Command2"_s)}), status_});
    setMinimumWidth(400);
    Text2->setEchoMode(QLineEdit::Password);
    Text2->installEventFilter(this);
    connect(Text2, &QLineEdit::textChanged, this, &frmLogon::showHint);
    Text1->setText(mod_.services.settings.value(u"Settings"_s, u"UserName"_s));
    showRetry();
    // Whoever logged on last only types the password.
    (Text1->text().isEmpty() ? Text1 : Text2)->setFocus();
}

bool frmLogon::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Text2 && event->type() == QEvent::KeyPress) {
        passwordHint_.typed(*static_cast<QKeyEvent*>(event));
        showHint();
    }
    return Dialog::eventFilter(watched, event);
}

void frmLogon::showHint() {
    hint_->setText(passwordHint_.text(Text2->text()));
    Text2->setAccessibleDescription(hint_->text());
}

void frmLogon::showRetry() {
    const bool open = mod_.gConn.isOpen() && mod_.gConnUsers.isOpen();
    retry_->setVisible(!open);
    status_->setText(open ? u"Δώστε τον Χρήστη και τον Κώδικό του !!!"_s : u"Τα δεδομένα του γραφείου δεν άνοιξαν."_s);
}

QLayout* frmLogon::head() const {
    auto* title = new QLabel(core::programTitle());
    title->setFont(controls::font(u"Tahoma"_s, 18, true));
    auto* picture = new QLabel;
    picture->setPixmap(controls::icon(u"dorvalist"_s).pixmap(QSize(48, 48), devicePixelRatioF()));
    return controls::row({picture, {title, 1}}, 14);
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
