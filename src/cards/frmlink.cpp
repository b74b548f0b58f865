#include "cards/frmlink.h"

#include <QDir>
#include <QFileInfo>

#include "cards/cardbinding.h"
#include "cards/linkopen.h"
#include "controls/layout.h"
#include "controls/names.h"
#include "core/columnsize.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::Item;
using controls::named;

frmLink::frmLink(core::MainMod& mod, QWidget* parent, std::function<void()> saved)
    : Dialog(mod, parent, u"frmLink"_s, u"Δημιουργία Σύνδεσης"_s, u"link"_s),
      saved_(std::move(saved)),
      commands_(mod, this,
                {{u"cmdChoose"_s, u"search"_s, u"Επιλογή Αρχείου..."_s, {}, [this] { chooseFile(); }},
                 {u"Command1"_s,
                  u"card"_s,
                  u"Άνοιγμα Αρχείου"_s,
                  {},
                  [this] { openLink(mod_, this, path_); },
                  [this] { return !path_.isEmpty(); }},
                 {u"Command2"_s, u"save"_s, u"Αποθήκευση Σύνδεσης"_s, {}, [this] { save(); }},
                 {u"Command3"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { reject(); }}}) {
    Text1 = named(new controls::TextBox, u"Text1"_s);
    Text1->setHighlighting(true);
    core::limitToColumn(Text1, u"Links"_s, u"ΠΕΡΙΓΡΑΦΗ"_s);
    File1 = named(new controls::TextBox, u"File1"_s);
    File1->setReadOnly(true);
    choose_ = commands_.button(u"cmdChoose"_s);
    note_ = new QLabel;
    note_->setProperty("role", u"muted"_s);
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    auto* form = controls::formLayout();
    named(controls::addField(form, u" Περιγραφή"_s, Text1), u"Label1"_s);
    controls::addField(form, u" Αρχείο"_s, File1, controls::rowWidget({{File1, 1}, choose_}));
    form->addRow(QString(), note_);
    auto* row = controls::row({commands_.button(u"Command1"_s), Item::rest()});
    commands_.addButtons(row, {u"Command2"_s, u"Command3"_s});
    controls::add(controls::dialogLayout(this), {form, Item::rest(), row});
    resize(680, 220);
    fields_.watch(Text1);
    fields_.watch(File1);
    guardUnsaved(u"Η σύνδεση έχει αλλαγές που δεν αποθηκεύτηκαν."_s, [this] { save(); });
}

bool frmLink::load() {
    setWindowTitle(EditMode ? u" Διόρθωση Σύνδεσης!"_s : u" Καταχώρηση Νέας Σύνδεσης !"_s);
    showPath({});
    bool readable = true;
    if (EditMode && !core::attempt(mod_, this, [&] { readable = readLinkRow(); })) readable = false;
    fields_.remember();
    Text1->setFocus(Qt::TabFocusReason);
    return readable;
}

bool frmLink::readLinkRow() {
    mRsLink.open(mod_.gConn, data::Sql(u"select * from links where aa=?"_s, LinkId));
    if (mRsLink.isEmpty()) {
        complain(u"Η συγκεκριμένη σύνδεση έχει ακυρωθεί !"_s);
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
        tell(u"Δεν υπάρχει πλέον το αρχείο!"_s);
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
    commands_.refresh();
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

void frmLink::save() {
    if (Text1->text().trimmed().isEmpty()) {
        tell(u"Δεν έχετε συμπληρώσει την Περιγραφή του συνδέσμου !"_s);
        return Text1->setFocus(Qt::OtherFocusReason);
    }
    if (path_.isEmpty()) return complain(u"Δεν έχετε επιλέξει αρχείο για τη σύνδεση !"_s, choose_);
    if (!mRsLink.isOpen()) mRsLink.open(mod_.gConn, data::Sql(u"select * from links where aa=?"_s, LinkId));
    if (!EditMode && mRsLink.editMode() != data::EditMode::Add) mRsLink.addNew();
    writeText(mRsLink[u"ΠΕΡΙΓΡΑΦΗ"], Text1->text());
    mRsLink[u"ΣΥΝΔΕΣΗ"].setValue(path_);
    mRsLink[u"codecards"].setValue(CodeCards.toLongLong());
    mRsLink.update();
    accept();
    saved_();
}

}  // namespace cards
