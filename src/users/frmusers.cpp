#include "users/frmusers.h"

#include "controls/layout.h"
#include "controls/names.h"
#include "core/columnsize.h"
#include "data/opening/password.h"
#include "data/values/fold.h"
#include "users/accounts.h"

using namespace Qt::Literals::StringLiterals;

namespace users {

using controls::Item;
using controls::named;

namespace {

// Stands in the password's box for the stored one. Nobody types this character, so that what is typed beside it can be
// told apart.
constexpr QChar maskCharacter(0xE000);
const QString passwordMask(8, maskCharacter);

}  // namespace

frmUsers::frmUsers(core::MainMod& mod)
    : Form(mod, u"frmUsers"_s, u"Χρήστες και Δικαιώματα"_s, {u"Users"_s}, u"user"_s),
      ListView1(new core::StoredList(mod.services.settings, u"ListView1"_s, windowTitle(), u"lvUsers"_s,
                                     {{u"UserName"_s, u"Όνομα Χρήστη"_s, 3300}, {u"Group"_s, u"Δικαιώματα"_s, 3300}})),
      commands_(mod, this, commands()) {
    keepDraft([this] { return draft(); });
    guardUnsaved(u"Ο χρήστης έχει αλλαγές που δεν αποθηκεύτηκαν."_s, [this] { save(); });
    hint_ = new QLabel(u"Δεξί κλικ ή πλήκτρο μενού: νέος χρήστης, ενημέρωση, διαγραφή"_s);
    hint_->setProperty("role", u"muted"_s);
    buildFrame();
    controls::add(controls::pageLayout(this),
                  {{ListView1, 1}, {Frame1, 1}, controls::row({hint_, Item::rest(), commands_.button(u"cmdExit"_s)})});
    setMinimumSize(480, 320);
    wire();
}

QVector<core::Command> frmUsers::commands() {
    return {
        {u"mnuNewUser"_s, {}, u"Νέος Χρήστης"_s, {Qt::Key_Insert}, [this] { newUser(); }},
        {u"mnuEditUser"_s, {}, u"Ενημέρωση Χρήστη"_s, {}, [this] { editUser(); }, {}, true},
        {u"mnuDeleteUser"_s, {}, u"Διαγραφή Χρήστη"_s, {Qt::Key_Delete}, [this] { deleteUser(); }, {}, true},
        {u"cmdExit"_s, {}, u"Έξοδος"_s, {}, [this] { emit closeRequested(); }},
        {u"Command1"_s, {}, u"Επικύρωση"_s, {}, [this] { save(); }},
        {u"Command2"_s, {}, u"Άκυρο"_s, {Qt::Key_Escape}, [this] { cancel(); }},
    };
}

void frmUsers::buildFrame() {
    Frame1 = named(new QGroupBox(u"Ενημέρωση Χρήστη"_s), u"Frame1"_s);
    Text1 = named(new controls::TextBox, u"Text1"_s);
    Text2 = named(new controls::TextBox, u"Text2"_s);
    core::limitToColumn(Text1, u"Users"_s, u"UserName"_s);
    Text2->setEchoMode(QLineEdit::Password);
    Combo1 = named(new controls::ChoiceBox(false), u"Combo1"_s);
    Text1->setHighlighting(true);
    Text2->setHighlighting(true);
    Combo1->setHighlighting(true);
    auto* form = controls::formLayout();
    controls::addField(form, u" Όνομα Χρήστη"_s, Text1);
    controls::addField(form, u" Κωδικός"_s, Text2);
    controls::addField(form, u" Δικαιώματα"_s, Combo1);
    auto* confirm = commands_.button(u"Command1"_s);
    confirm->setDefault(true);
    controls::add(controls::tabLayout(Frame1),
                  {form, controls::row({Item::rest(), confirm, commands_.button(u"Command2"_s)}), Item::rest()});
    fields_.watchAll(Frame1);
    Frame1->hide();
}

void frmUsers::wire() {
    commands_.bindKeys(ListView1, {u"mnuNewUser"_s, u"mnuDeleteUser"_s});
    commands_.bindKeys(Frame1, {u"Command2"_s});
    on(ListView1, &controls::ListView::rowActivated, [this] { editUser(); });
    auto* menu = commands_.menu(u"mnu1"_s, {u"mnuNewUser"_s, u"mnuEditUser"_s, u"mnuDeleteUser"_s});
    on(ListView1, &controls::ListView::menuRequested,
       [this, menu](int row, QPoint position) { commands_.popUp(menu, row, position); });
    connect(Text2, &QLineEdit::textEdited, this, &frmUsers::dropMask);
}

void frmUsers::onLoad() {
    ListView1->setFocus(Qt::OtherFocusReason);
    Combo1->addItems(groupNames(mod_.gConnUsers));
    refresh();
}

// With the user `selected` selected, or the first one.
void frmUsers::refresh(qint64 selected) {
    QVector<controls::ListRow> rows;
    for (const Account& account : accounts(mod_.gConnUsers))
        rows.append({{account.userName, account.groupName}, account.aa, {}});
    ListView1->setRows(std::move(rows));
    if (!ListView1->selectTag(selected)) ListView1->selectRow(0);
}

void frmUsers::newUser() {
    mRs.open(mod_.gConnUsers, u"select * from users "_s);
    mRs.addNew();
    editedName_ = QString();
    fill({}, {}, {});
    showFrame(true);
}

// False when there is no such user, or no longer.
bool frmUsers::openSelected() {
    const QVariant user = ListView1->currentTag();
    if (!user.isValid()) return false;
    mRs.open(mod_.gConnUsers, data::Sql(u"select * from users where aa=?"_s, user.toLongLong()));
    if (!mRs.isEmpty()) return true;
    complain(u"Ο χρήστης έχει διαγραφεί στο μεταξύ."_s, ListView1);
    refresh();
    return false;
}

void frmUsers::editUser() {
    if (openSelected()) showUser();
}

void frmUsers::showUser() {
    const QString group = groupName(mod_.gConnUsers, mRs[u"Group"].value());
    editedName_ = mRs[u"UserName"].text();
    fill(editedName_, mRs[u"Password"].text().isEmpty() ? QString() : passwordMask, group);
    showFrame(true);
}

// A password isn't in a draft, neither the typed one nor the stored one.
core::Draft frmUsers::draft() {
    core::Draft draft;
    draft.title = Text1->text();
    draft.isNew = mRs.editMode() == data::EditMode::Add;
    if (draft.isNew) return draft;
    draft.key = {{u"aa"_s, mRs[u"aa"].toLong()}};
    draft.row = core::draftRow(mRs, {u"UserName"_s, u"Group"_s});
    return draft;
}

// A user that somebody else deleted is added anew, without a password.
void frmUsers::resume(const core::Draft& draft) {
    if (draft.isNew || !ListView1->selectTag(draft.key[u"aa"_s])) {
        newUser();
        const QVariant group = draft.row.value(u"Group"_s);
        Text1->setText(draft.row.value(u"UserName"_s).toString());
        if (group.isValid()) Combo1->setCurrentIndex(Combo1->findText(groupName(mod_.gConnUsers, group)));
    } else {
        if (!openSelected()) return;
        core::readAsDrafted(mRs, draft.row);
        showUser();
    }
    goOnWith(draft);
}

void frmUsers::deleteUser() {
    if (!openSelected()) return;
    const auto remove = [this] {
        // A failure shows what the list holds by now, too.
        core::attempt(mod_, this, [this] { mRs.remove(); });
        refresh();
    };
    askAndDelete(u"Είστε σίγουρος για διαγραφή του χρήστη: "_s + mRs[u"UserName"].text(), remove);
    mRs.close();
}

void frmUsers::fill(const QString& name, const QString& password, const QString& group) {
    Text1->setText(name);
    Text2->setText(password);
    Combo1->setCurrentIndex(group.isEmpty() ? -1 : Combo1->findText(group));
    passwordStands_ = password == passwordMask;
    fields_.remember();
}

void frmUsers::showFrame(bool shown) {
    ListView1->setVisible(!shown);
    hint_->setVisible(!shown);
    Frame1->setVisible(shown);
    (shown ? static_cast<QWidget*>(Text1) : ListView1)->setFocus(Qt::OtherFocusReason);
}

void frmUsers::showList(qint64 selected) {
    mRs.close();
    fill({}, {}, {});
    showFrame(false);
    refresh(selected);
}

void frmUsers::showStoredPassword() {
    Text2->setText(passwordMask);
    passwordStands_ = true;
}

// The first change to a stored password starts a new one.
void frmUsers::dropMask() {
    if (!passwordStands_) return;
    passwordStands_ = false;
    Text2->setText(Text2->text().remove(maskCharacter));
}

frmUsers::Fault frmUsers::fault() {
    const QString name = Text1->text(), group = Combo1->currentText();
    if (group.isEmpty()) return {u"Δεν έχετε επιλέξει ομάδα δικαιωμάτων\n για τον χρήστη "_s + name, Combo1};
    if (name.isEmpty()) return {u"Το όνομα Χρήστη δεν μπορεί να είναι κενό !!!"_s, Text1};
    // Of two users by the same name only one could log on, so a change of name is looked at as well.
    const bool isNew = mRs.editMode() == data::EditMode::Add;
    const bool renamed = isNew || data::fold(name) != data::fold(editedName_);
    if (renamed && isTaken(accounts(mod_.gConnUsers), name, isNew ? 0 : mRs[u"aa"].toLong()))
        return {u"Το όνομα Χρήστη %1 υπάρχει ήδη !!!"_s.arg(name), Text1};
    if (Text2->text().isEmpty()) return {u"Για λόγους ασφαλείας ο Κωδικός δεν μπορεί να είναι κενό !!!"_s, Text2};
    return {};
}

void frmUsers::save() {
    for (;;) {
        if (const Fault found = fault(); !found.text.isEmpty()) return complain(found.text, found.field);
        const QString groupText = Combo1->currentText();
        const auto group = groupNumber(mod_.gConnUsers, groupText);
        if (!group)
            return complain(u"Υπάρχει πρόβλημα με την συγκεκριμένη ομάδα Δικαιωμάτων (%1)"_s.arg(groupText), Combo1);
        try {
            write(*group);
            return showList(mRs[u"aa"].toLong());
        } catch (const data::Error& error) {
            const bool isNew = mRs.editMode() == data::EditMode::Add;
            if (isNew || error.category() != data::ErrorCategory::Conflict) throw;
        }
        if (!settleConflict()) return;
    }
}

void frmUsers::write(qint64 group) {
    mRs[u"Group"].setValue(group);
    mRs[u"UserName"].setValue(Text1->text());
    if (!passwordStands_) mRs[u"Password"].setValue(data::makeVerifier(Text2->text()));
    mRs.update();
}

void frmUsers::cancel() {
    if (!mayLose() || !mRs.isOpen()) return;
    showList(mRs.editMode() == data::EditMode::Add ? 0 : mRs[u"aa"].toLong());
}

}  // namespace users
