#include "diary/frmthink.h"

#include "controls/layout.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "diary/users.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

using controls::named;

namespace {

const QString gone = u"Η συγκεκριμένη συνάντηση έχει ακυρωθεί !"_s;
const QStringList priorities = {u"5"_s, u"4"_s, u"3"_s, u"2"_s, u"1"_s};

}  // namespace

frmThink::frmThink(core::MainMod& mod)
    : Form(mod, u"frmThink"_s, u"Εργασία"_s, {u"Think"_s, 1000, 0}, u"task"_s),
      Label5(named(new QLabel, u"Label5"_s)),
      txtSubject(named(new controls::TextBox, u"txtSubject"_s)),
      Combo1(named(new controls::ChoiceBox(true), u"Combo1"_s)),
      Combo2(named(new controls::ChoiceBox(false), u"Combo2"_s)),
      txtNotes(named(new controls::MemoBox, u"txtNotes"_s)),
      row_(boundRow()),
      commands_(mod, this, commands()) {
    Label5->setFont(controls::font(u"Tahoma"_s, 11, true));
    Combo1->addItems(priorities);
    txtSubject->setHighlighting(true);
    txtNotes->setHighlighting(true);
    auto* form = controls::formLayout();
    controls::addField(form, u"Θέμα :"_s, txtSubject);
    controls::addField(form, u"Προτεραιότητα :"_s, Combo1);
    named(controls::addField(form, u"Αποδέκτης:"_s, Combo2), u"Label7"_s);
    controls::addField(form, u"Σημειώσεις"_s, txtNotes);
    auto* buttons = controls::row({controls::Item::rest()});
    commands_.addPictures(buttons);
    controls::add(controls::pageLayout(this), {Label5, {form, 1}, buttons});
    setMinimumSize(480, 320);
    commands_.bindKeys(this);
    guardUnsaved(u"Η εργασία έχει αλλαγές που δεν αποθηκεύτηκαν."_s, [this] { save(); });
    keepDraft([this] { return draft(); });
}

QVector<core::Command> frmThink::commands() {
    const auto writable = [this] { return isWritable(); };
    return {{u"lblClick(0)"_s, u"save"_s, u"Ενημέρωση Εργασίας"_s, {Qt::Key_F5}, [this] { save(); }, writable},
            {u"lblClick(1)"_s, u"delete"_s, u"Ακύρωση"_s, {}, [this] { remove(); }, writable},
            {u"lblClick(2)"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { emit closeRequested(); }}};
}

core::BoundRow frmThink::boundRow() {
    return {mod_,
            this,
            fields_,
            u"ThinksToDo"_s,
            u"select * from thinkstodo where aa=?"_s,
            {u"την εργασία"_s, gone},
            {{u"Subject"_s, txtSubject, u"Θέμα"_s},
             {u"Priority"_s, Combo1, u"Προτεραιότητα"_s},
             {.name = u"notes"_s, .field = txtNotes, .caption = u"Σημειώσεις"_s, .keptWhenEmptied = true},
             {u"User"_s, Combo2, u"Αποδέκτης"_s}}};
}

void frmThink::onLoad() {
    fillUsers(mod_, *Combo2);
    startNew();
}

bool frmThink::isWritable() const {
    return mod_.mayChange(owner_);
}

void frmThink::settle() {
    Label5->setText(row_.isNew() ? u" Καταχώρηση Νέας εργασίας !"_s : u" Διόρθωση Συνάντησης !"_s);
    const bool writable = isWritable();
    txtSubject->setReadOnly(!writable);
    Combo1->setReadOnly(!writable);
    txtNotes->setReadOnly(!writable);
    fields_.remember();
    commands_.refresh();
    txtSubject->setFocus(Qt::TabFocusReason);
}

void frmThink::startNew() {
    row_.startNew();
    owner_ = mod_.gUserName;
    txtSubject->clear();
    txtNotes->setText({});
    Combo1->setCurrentText(priorities.first());
    chooseUser(*Combo2, mod_.gUserName);
    settle();
}

void frmThink::edit(qint64 aa) {
    fields_.forget();
    if (!row_.read(aa)) {
        complain(gone);
        emit closeRequested();
        return mod_.doors.tasksChanged();
    }
    owner_ = row_.row()[u"User"].text();
    chooseUser(*Combo2, owner_);
    settle();
}

core::Draft frmThink::draft() {
    core::Draft draft;
    row_.describe(draft);
    draft.title = txtSubject->text();
    return draft;
}

void frmThink::resume(const core::Draft& draft) {
    startNew();
    fields_.forget();
    row_.resume(draft);
    if (!row_.isNew()) {
        owner_ = row_.row()[u"User"].text();
        chooseUser(*Combo2, owner_);
    }
    settle();
    goOnWith(draft);
}

void frmThink::save() {
    if (txtSubject->text().isEmpty()) return complain(u"Δεν έχετε συμπληρώσει το θέμα της εργασίας!"_s, txtSubject);
    if (Combo1->currentText().isEmpty()) return complain(u"Δεν έχετε επιλέξει την προτεραιότητα!"_s, Combo1);
    const bool keepsNotes = !row_.isNew() && fields_.isChanged(txtNotes) && txtNotes->text().isEmpty();
    if (!row_.save([this](data::Recordset& row) { row[u"Entoleas"].setValue(mod_.gUserName); })) return;
    if (keepsNotes) mod_.doors.say(u"Οι παλιές σημειώσεις της εργασίας έμειναν όπως ήταν."_s);
    leave();
}

void frmThink::remove() {
    if (row_.isNew() || askAndDelete(u"Να συνεχίσω με διαγραφή της Εργασίας;"_s, [this] {
            mod_.gConn.execute(data::Sql(u"Delete from thinkstodo where aa=?"_s, row_.aa()));
        }))
        leave();
}

void frmThink::leave() {
    fields_.forget();
    emit closeRequested();
    emit openRequested(u"frmThinksToDoShow"_s);
    mod_.doors.tasksChanged();
}

}  // namespace diary
