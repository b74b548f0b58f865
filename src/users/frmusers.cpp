#include "users/frmusers.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "controls/names.h"
#include "core/columnsize.h"
#include "data/opening/password.h"
#include "data/values/fold.h"

using namespace Qt::Literals::StringLiterals;

namespace users {

using controls::named;

namespace {

// Stands in the password's box for the stored one. Nobody types this character, so that what is typed beside it can be
// told apart.
constexpr QChar maskCharacter(0xE000);
const QString passwordMask(8, maskCharacter);

}  // namespace

frmUsers::frmUsers(core::MainMod& mod) : Form(mod, u"frmUsers"_s, u"Χρήστες και Δικαιώματα"_s, {u"Users"_s}) {
    buildList();
    buildFrame();
    buildMenu();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 14, 14, 12);
    layout->setSpacing(10);
    layout->addWidget(ListView1, 1);
    layout->addWidget(hint_);
    layout->addWidget(Frame1, 0, Qt::AlignTop);
    setMinimumSize(480, 320);
    wire();
}

void frmUsers::buildList() {
    ListView1 = named(new controls::ListView, u"ListView1"_s);
    ListView1->setAccessibleName(windowTitle());
    ListView1->setColumns({{u"UserName"_s, u"Όνομα Χρήστη"_s, 3300}, {u"Group"_s, u"Δικαιώματα"_s, 3300}});
    hint_ = new QLabel(u"Δεξί κλικ ή πλήκτρο μενού: νέος χρήστης, ενημέρωση, διαγραφή"_s);
    hint_->setProperty("role", u"muted"_s);
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
    auto* form = new QFormLayout;
    form->setSpacing(10);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    struct Row {
        QString caption;
        QWidget* box;
    };
    for (const Row& row : {Row{u" Όνομα Χρήστη"_s, Text1}, Row{u" Κωδικός"_s, Text2}, Row{u" Δικαιώματα"_s, Combo1}}) {
        auto* label = new QLabel(row.caption);
        controls::tie(label, row.box);
        form->addRow(label, row.box);
    }
    Command1 = named(new QPushButton(u"Επικύρωση"_s), u"Command1"_s);
    Command2 = named(new QPushButton(u"Άκυρο"_s), u"Command2"_s);
    Command1->setDefault(true);
    Command2->setAutoDefault(true);  // Enter presses it when it has the focus
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Command1);
    buttons->addWidget(Command2);
    auto* layout = new QVBoxLayout(Frame1);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(16);
    layout->addLayout(form);
    layout->addLayout(buttons);
    Frame1->hide();
}

void frmUsers::buildMenu() {
    mnu1 = named(new QMenu(this), u"mnu1"_s);
    struct Entry {
        QString name;
        QString caption;
        QAction*& action;
    };
    for (const Entry& entry : {Entry{u"mnuNewUser"_s, u"Νέος Χρήστης"_s, mnuNewUser},
                               Entry{u"mnuEditUser"_s, u"Ενημέρωση Χρήστη"_s, mnuEditUser},
                               Entry{u"mnuDeleteUser"_s, u"Διαγραφή Χρήστη"_s, mnuDeleteUser}}) {
        entry.action = mnu1->addAction(entry.caption);
        entry.action->setObjectName(entry.name);
    }
}

void frmUsers::wire() {
    on(mnuNewUser, &QAction::triggered, [this] { newUser(); });
    on(mnuEditUser, &QAction::triggered, [this] { editUser(); });
    on(mnuDeleteUser, &QAction::triggered, [this] { deleteUser(); });
    on(ListView1, &controls::ListView::rowActivated, [this] { editUser(); });
    connect(ListView1, &controls::ListView::menuRequested, this, &frmUsers::popUp);
    const auto key = [this](Qt::Key key, QWidget* where, void (frmUsers::*action)()) {
        on(new QShortcut(key, where, nullptr, nullptr, Qt::WidgetWithChildrenShortcut), &QShortcut::activated,
           [this, action] { (this->*action)(); });
    };
    key(Qt::Key_Insert, ListView1, &frmUsers::newUser);
    key(Qt::Key_Delete, ListView1, &frmUsers::deleteUser);
    key(Qt::Key_Escape, Frame1, &frmUsers::cancel);
    connect(Text2, &QLineEdit::textEdited, this, &frmUsers::dropMask);
    on(Command1, &QPushButton::clicked, [this] { save(); });
    on(Command2, &QPushButton::clicked, [this] { cancel(); });
}

void frmUsers::popUp(int row, QPoint position) {
    mnuEditUser->setEnabled(row >= 0);
    mnuDeleteUser->setEnabled(row >= 0);
    mnu1->popup(position);
}

void frmUsers::onLoad() {
    ListView1->setFocus(Qt::OtherFocusReason);
    Combo1->addItems(groupNames(mod_.gConnUsers));
    refresh();
}

// With the user `selected` selected, or the first one.
void frmUsers::refresh(qint64 selected) {
    accounts_ = accounts(mod_.gConnUsers);
    QVector<controls::ListRow> rows;
    for (const Account& account : accounts_) rows.append({{account.userName, account.groupName}, account.aa, {}});
    ListView1->setRows(std::move(rows));
    for (int i = 0; i < accounts_.size(); ++i)
        if (i == 0 || accounts_[i].aa == selected) ListView1->selectRow(i);
}

void frmUsers::newUser() {
    mRs.open(mod_.gConnUsers, u"select * from users "_s);
    mRs.addNew();
    editedName_ = QString();
    passwordStands_ = false;
    Text1->clear();
    Text2->clear();
    Combo1->setCurrentIndex(-1);
    showFrame();
}

// False when there is no such user, or no longer.
bool frmUsers::openSelected() {
    const int row = ListView1->currentRow();
    if (row < 0) return false;
    mRs.open(mod_.gConnUsers, data::Sql(u"select * from users where aa=?"_s, accounts_[row].aa));
    if (!mRs.isEmpty()) return true;
    core::complain(mod_, this, u"Ο χρήστης έχει διαγραφεί στο μεταξύ."_s, ListView1);
    refresh();
    return false;
}

void frmUsers::editUser() {
    if (!openSelected()) return;
    const QString group = groupName(mod_.gConnUsers, mRs[u"Group"].value());
    editedName_ = mRs[u"UserName"].text();
    passwordStands_ = !mRs[u"Password"].text().isEmpty();
    Text1->setText(editedName_);
    Text2->setText(passwordStands_ ? passwordMask : QString());
    Combo1->setCurrentIndex(group.isEmpty() ? -1 : Combo1->findText(group));
    showFrame();
}

void frmUsers::deleteUser() {
    if (!openSelected()) return;
    if (!mod_.services.prompts.question(this, core::programTitle(),
                                        u"Είστε σίγουρος για διαγραφή του χρήστη: "_s + mRs[u"UserName"].text()))
        return mRs.close();
    // A failure shows what the list holds by now, too.
    core::attempt(mod_, this, [this] { mRs.remove(); });
    mRs.close();
    refresh();
}

void frmUsers::showFrame() {
    shown_ = typed();
    ListView1->hide();
    hint_->hide();
    Frame1->show();
    Text1->setFocus(Qt::OtherFocusReason);
}

void frmUsers::showList(qint64 selected) {
    mRs.close();
    passwordStands_ = false;
    Text1->clear();
    Text2->clear();
    Combo1->setCurrentIndex(-1);
    Frame1->hide();
    hint_->show();
    ListView1->show();
    ListView1->setFocus(Qt::OtherFocusReason);
    refresh(selected);
}

QStringList frmUsers::typed() const {
    return {Text1->text(), Text2->text(), Combo1->currentText()};
}

// The first change to a stored password starts a new one.
void frmUsers::dropMask() {
    if (!passwordStands_) return;
    passwordStands_ = false;
    Text2->setText(Text2->text().remove(maskCharacter));
}

bool frmUsers::isComplete() {
    const QString name = Text1->text();
    const auto wrong = [this](const QString& text, QWidget* box) {
        core::complain(mod_, this, text, box);
        return false;
    };
    if (Combo1->currentText().isEmpty())
        return wrong(u"Δεν έχετε επιλέξει ομάδα δικαιωμάτων\n για τον χρήστη "_s + name, Combo1);
    if (name.isEmpty()) return wrong(u"Το όνομα Χρήστη δεν μπορεί να είναι κενό !!!"_s, Text1);
    // Of two users by the same name only one could log on, so a change of name is looked at as well.
    const bool isNew = mRs.editMode() == data::EditMode::Add;
    const bool renamed = isNew || data::fold(name) != data::fold(editedName_);
    if (renamed && isTaken(accounts(mod_.gConnUsers), name, isNew ? 0 : mRs[u"aa"].toLong()))
        return wrong(u"Το όνομα Χρήστη %1 υπάρχει ήδη !!!"_s.arg(name), Text1);
    if (Text2->text().isEmpty()) return wrong(u"Για λόγους ασφαλείας ο Κωδικός δεν μπορεί να είναι κενό !!!"_s, Text2);
    return true;
}

void frmUsers::save() {
    if (!isComplete()) return;
    const QString groupText = Combo1->currentText();
    const auto group = groupNumber(mod_.gConnUsers, groupText);
    if (!group)
        return core::complain(mod_, this,
                              u"Υπάρχει πρόβλημα με την συγκεκριμένη ομάδα Δικαιωμάτων (%1)"_s.arg(groupText), Combo1);
    mRs[u"Group"].setValue(*group);
    mRs[u"UserName"].setValue(Text1->text());
    if (!passwordStands_) mRs[u"Password"].setValue(data::makeVerifier(Text2->text()));
    mRs.update();
    showList(mRs[u"aa"].toLong());
}

void frmUsers::cancel() {
    showList(mRs.editMode() == data::EditMode::Add ? 0 : mRs[u"aa"].toLong());
}

bool frmUsers::queryUnload() {
    return Frame1->isHidden() || typed() == shown_ ||
           mod_.services.prompts.question(
               this, core::programTitle(),
               u"Ο χρήστης έχει αλλαγές που δεν αποθηκεύτηκαν.\nΝα κλείσει χωρίς αποθήκευση;"_s);
}

void frmUsers::onUnload() {
    mRs.close();
}

}  // namespace users
