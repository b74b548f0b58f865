#include "cards/frmlink.h"

#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "cards/cardbinding.h"
#include "cards/linkopen.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/guard.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::named;

frmLink::frmLink(core::MainMod& mod, QWidget* parent, std::function<void()> saved)
    : QDialog(parent), mod_(mod), saved_(std::move(saved)) {
    setObjectName(u"frmLink"_s);
    setWindowTitle(u"Δημιουργία Σύνδεσης"_s);
    build();
}

QPushButton* frmLink::button(const QString& name, const QString& icon, const QString& caption, void (frmLink::*run)()) {
    auto* made = named(new QPushButton(controls::icon(icon), caption), name);
    made->setAutoDefault(false);
    core::onSignal(mod_, this, made, &QPushButton::clicked, [this, run] { (this->*run)(); });
    return made;
}

void frmLink::build() {
    Text1 = named(new controls::TextBox, u"Text1"_s);
    Text1->setHighlighting(true);
    File1 = named(new controls::TextBox, u"File1"_s);
    File1->setReadOnly(true);
    choose_ = button(u"cmdChoose"_s, u"search"_s, u"Επιλογή Αρχείου..."_s, &frmLink::chooseFile);
    Command1 = button(u"Command1"_s, u"card"_s, u"Άνοιγμα Αρχείου"_s, &frmLink::openFile);
    Command2 = button(u"Command2"_s, u"save"_s, u"Αποθήκευση Σύνδεσης"_s, &frmLink::save);
    Command3 = button(u"Command3"_s, u"exit"_s, u"Έξοδος"_s, &frmLink::leave);
    note_ = new QLabel;
    note_->setProperty("role", u"muted"_s);
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);

    auto* form = new QFormLayout;
    form->setSpacing(10);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* caption = named(new QLabel(u" Περιγραφή"_s), u"Label1"_s);
    controls::tie(caption, Text1);
    form->addRow(caption, Text1);
    auto* pathCaption = new QLabel(u" Αρχείο"_s);
    controls::tie(pathCaption, File1);
    auto* pathRow = new QHBoxLayout;
    pathRow->addWidget(File1, 1);
    pathRow->addWidget(choose_);
    form->addRow(pathCaption, pathRow);
    form->addRow(QString(), note_);
    auto* row = new QHBoxLayout;
    row->addWidget(Command1);
    row->addStretch(1);
    row->addWidget(Command2);
    row->addWidget(Command3);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(14);
    layout->addLayout(form);
    layout->addStretch(1);
    layout->addLayout(row);
    resize(680, 220);
}

bool frmLink::load() {
    setWindowTitle(EditMode ? u" Διόρθωση Σύνδεσης!"_s : u" Καταχώρηση Νέας Σύνδεσης !"_s);
    showPath({});
    bool readable = true;
    if (EditMode && !core::attempt(mod_, this, [&] { readable = readLinkRow(); })) readable = false;
    untouched_ = {Text1->text(), path_};
    Text1->setFocus(Qt::TabFocusReason);
    return readable;
}

bool frmLink::readLinkRow() {
    mRsLink.open(mod_.gConn, data::Sql(u"select * from links where aa=?"_s, LinkId));
    if (mRsLink.isEmpty()) {
        core::complain(mod_, this, u"Η συγκεκριμένη σύνδεση έχει ακυρωθεί !"_s);
        return false;
    }
    Text1->setText(mRsLink[u"ΠΕΡΙΓΡΑΦΗ"].text());
    CodeCards = mRsLink[u"codecards"].text();
    const QString stored = mRsLink[u"ΣΥΝΔΕΣΗ"].text();
    // A share that is reached by address can't be looked into from here; it may well be there.
    const LinkTarget target = readLink(stored);
    // One of another kind of computer can be pointed elsewhere.
    const bool elsewhere = target.place == LinkTarget::Network || target.place == LinkTarget::Foreign;
    if (!elsewhere && !mod_.services.shell.exists(target.path)) {
        mod_.services.prompts.message(this, platform::MessageIcon::Plain, core::programTitle(),
                                      u"Δεν υπάρχει πλέον το αρχείο!"_s);
        return false;
    }
    showPath(stored);
    return true;
}

void frmLink::showPath(const QString& path) {
    path_ = path;
    File1->setText(path);
    File1->setCursorPosition(0);
    File1->setToolTip(path);
    Command1->setEnabled(!path.isEmpty());
    const QFileInfo file(path);
    note_->setText(path.isEmpty() ? u"Δεν έχει επιλεγεί αρχείο."_s
                   : file.exists()
                       ? u"«%1», στον φάκελο %2"_s.arg(file.fileName(), QDir::toNativeSeparators(file.absolutePath()))
                       : QString());
}

void frmLink::chooseFile() {
    const QString start = mod_.services.shell.exists(path_) ? path_ : QDir::homePath();
    const QString chosen = mod_.services.prompts.openFile(this, u"Επιλογή Αρχείου"_s, u"Όλα τα αρχεία (*)"_s, start);
    if (!chosen.isEmpty()) showPath(QDir::toNativeSeparators(chosen));
}

void frmLink::openFile() {
    openLink(mod_, this, path_);
}

void frmLink::save() {
    if (Text1->text().isEmpty()) {
        mod_.services.prompts.message(this, platform::MessageIcon::Plain, core::programTitle(),
                                      u"Δεν έχετε συμπληρώσει την Περιγραφή του συνδέσμου !"_s);
        return Text1->setFocus(Qt::OtherFocusReason);
    }
    if (path_.isEmpty()) return core::complain(mod_, this, u"Δεν έχετε επιλέξει αρχείο για τη σύνδεση !"_s, choose_);
    if (!mRsLink.isOpen()) mRsLink.open(mod_.gConn, data::Sql(u"select * from links where aa=?"_s, LinkId));
    if (!EditMode && mRsLink.editMode() != data::EditMode::Add) mRsLink.addNew();
    writeText(mRsLink[u"ΠΕΡΙΓΡΑΦΗ"], Text1->text());
    mRsLink[u"ΣΥΝΔΕΣΗ"].setValue(path_);
    mRsLink[u"codecards"].setValue(CodeCards.toLongLong());
    mRsLink.update();
    mRsLink.close();
    accept();
    saved_();
}

void frmLink::reject() {
    const bool changed = QStringList{Text1->text(), path_} != untouched_;
    if (changed && !mod_.services.prompts.question(
                       this, core::programTitle(),
                       u"Η σύνδεση έχει αλλαγές που δεν αποθηκεύτηκαν.\nΝα κλείσει χωρίς αποθήκευση;"_s))
        return;
    mRsLink.close();
    QDialog::reject();
}

}  // namespace cards
