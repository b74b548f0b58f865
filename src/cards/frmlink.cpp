#include "cards/frmlink.h"

#include <QDir>
#include <QFileInfo>

#include "cards/cardbinding.h"
#include "cards/linkfolders.h"
#include "cards/linkopen.h"
#include "controls/layout.h"
#include "controls/names.h"
#include "core/columnsize.h"
#include "core/conflictdialog.h"

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
                  [this] { openLink(mod_, this, path_, [this] { chooseFile(); }); },
                  [this] { return !path_.isEmpty(); }},
                 {u"Command2"_s, u"save"_s, u"Αποθήκευση Σύνδεσης"_s, {}, [this] { save(); }},
                 {u"Command3"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { reject(); }}}) {
    Text1 = named(new controls::TextBox, u"Text1"_s);
    Text1->setHighlighting(true);
    core::limitToColumn(Text1, u"Links"_s, u"ΠΕΡΙΓΡΑΦΗ"_s);
    File1 = named(new controls::TextBox, u"File1"_s);
    File1->setHighlighting(true);
    choose_ = commands_.button(u"cmdChoose"_s);
    note_ = new QLabel;
    note_->setProperty("role", u"muted"_s);
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    auto* form = controls::formLayout();
    named(controls::addField(form, u" Περιγραφή"_s, Text1), u"Label1"_s);
    controls::addField(form, u" Αρχείο ή διεύθυνση"_s, File1, controls::rowWidget({{File1, 1}, choose_}));
    form->addRow(QString(), note_);
    auto* row = controls::row({commands_.button(u"Command1"_s), Item::rest()});
    commands_.addButtons(row, {u"Command2"_s, u"Command3"_s});
    controls::add(controls::dialogLayout(this), {form, Item::rest(), row});
    resize(680, 220);
    connect(File1, &QLineEdit::textChanged, this, &frmLink::takePath);
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
    showPath(stored);
    if (isMissing() && !KnownMissing) tell(u"Δεν υπάρχει πλέον το αρχείο!"_s);
    return true;
}

// A share that is reached by address, and a place of another computer, can't be looked into from here; the file may
// well be there.
bool frmLink::isMissing() const {
    const LinkTarget target = findLink(path_, linkFolders(mod_.services.settings));
    return target.place == LinkTarget::Nowhere ||
           (target.place == LinkTarget::Here && !mod_.services.shell.exists(target.path));
}

void frmLink::showPath(const QString& path) {
    File1->setText(path);
    File1->setCursorPosition(0);
    takePath(path);
}

void frmLink::takePath(const QString& path) {
    path_ = path.trimmed().isEmpty() ? QString() : path;
    File1->setToolTip(path_.toHtmlEscaped());
    commands_.refresh();
    const QFileInfo file(findLink(path_, linkFolders(mod_.services.settings)).path);
    note_->setText(path_.isEmpty() ? u"Δεν έχει επιλεγεί αρχείο ή διεύθυνση."_s
                   : isMissing() ? u"Το αρχείο δεν υπάρχει. Επιλέξτε το ξανά, αν έχει μεταφερθεί."_s
                   : file.isAbsolute() && file.exists()
                       ? u"«%1», στον φάκελο %2"_s.arg(file.fileName(), QDir::toNativeSeparators(file.absolutePath()))
                       : QString());
}

void frmLink::chooseFile() {
    const QString start = mod_.services.shell.exists(path_) ? path_ : QDir::homePath();
    const QString chosen = mod_.services.prompts.openFile(this, u"Επιλογή Αρχείου"_s, u"Όλα τα αρχεία (*)"_s, start);
    if (!chosen.isEmpty()) showPath(QDir::toNativeSeparators(chosen));
}

bool frmLink::isComplete() {
    if (Text1->text().trimmed().isEmpty()) {
        tell(u"Δεν έχετε συμπληρώσει την Περιγραφή του συνδέσμου !"_s);
        Text1->setFocus(Qt::OtherFocusReason);
        return false;
    }
    if (path_.isEmpty()) {
        complain(u"Δεν έχετε επιλέξει αρχείο για τη σύνδεση !"_s, choose_);
        return false;
    }
    const bool named = !fields_.isChanged(File1) || readLink(path_).place != LinkTarget::Nowhere;
    if (!named)
        complain(u"Γράψτε ολόκληρη τη διαδρομή του αρχείου, ή μια διεύθυνση που αρχίζει με «http://» ή «www.»."_s,
                 File1);
    return named;
}

void frmLink::save() {
    while (isComplete()) {
        try {
            writeLink();
        } catch (const data::Error& error) {
            if (!EditMode || error.category() != data::ErrorCategory::Conflict) throw;
            metChange_ = true;
            if (!settleConflict()) return;
            continue;
        }
        accept();
        return saved_();
    }
}

void frmLink::writeLink() {
    if (!mRsLink.isOpen()) mRsLink.open(mod_.gConn, data::Sql(u"select * from links where aa=?"_s, LinkId));
    if (!EditMode && mRsLink.editMode() != data::EditMode::Add) mRsLink.addNew();
    writeText(mRsLink[u"ΠΕΡΙΓΡΑΦΗ"], Text1->text());
    mRsLink[u"ΣΥΝΔΕΣΗ"].setValue(path_);
    mRsLink[u"codecards"].setValue(CodeCards.toLongLong());
    mRsLink.update();
}

// Shows what differs from what somebody else saved, and takes the choice over. True when the save can be tried again.
bool frmLink::settleConflict() {
    data::Recordset now(mod_.gConn, data::Sql(u"select * from links where aa=?"_s, LinkId));
    mRsLink.cancelUpdate();
    if (now.isEmpty()) {
        EditMode = !ask(u"Η σύνδεση διαγράφηκε στο μεταξύ από άλλον χρήστη.\nΝα αποθηκευτεί ως νέα;"_s);
        return !EditMode;
    }
    const std::pair<controls::TextBox*, QString> bound[] = {{Text1, u"ΠΕΡΙΓΡΑΦΗ"_s}, {File1, u"ΣΥΝΔΕΣΗ"_s}};
    QVector<QWidget*> both;
    QVector<core::ConflictField> shown;
    for (const auto& [box, column] : bound) {
        const QString theirs = now[column].text();
        if (!fields_.isChanged(box) || theirs == mRsLink[column].text()) continue;
        both << box;
        shown.append({box->accessibleName(), box->text(), theirs});
    }
    core::ConflictDialog dialog(mod_, this, u"τη σύνδεση"_s, shown);
    if (!shown.isEmpty() && dialog.exec() != QDialog::Accepted) return false;

    for (const auto& [box, column] : bound) {
        const qsizetype asked = both.indexOf(box);
        if (asked >= 0 ? dialog.keepsMine(int(asked)) : fields_.isChanged(box)) continue;
        box == File1 ? showPath(now[column].text()) : box->setText(now[column].text());
        fields_.remember(box);
    }
    mRsLink = std::move(now);
    return true;
}

}  // namespace cards
