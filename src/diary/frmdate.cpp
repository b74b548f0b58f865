#include "diary/frmdate.h"

#include "controls/layout.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/printout.h"
#include "data/values/format.h"
#include "diary/appointmentsheet.h"
#include "diary/planner.h"
#include "diary/users.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

using controls::Item;
using controls::named;

namespace {

const QString gone = u"Η συγκεκριμένη συνάντηση έχει ακυρωθεί !"_s;

QVariant storedTime(const QString& text) {
    const auto time = typedTime(text);
    return time ? QVariant(data::wallClock(QDate(1899, 12, 30), *time)) : QVariant();
}

controls::TextBox* textBox(const QString& name) {
    auto* box = named(new controls::TextBox, name);
    box->setHighlighting(true);
    return box;
}

controls::ChoiceBox* timeBox(const QString& name) {
    auto* box = named(new controls::ChoiceBox(true), name);
    box->setHighlighting(true);
    return box;
}

}  // namespace

frmDate::frmDate(core::MainMod& mod)
    : Form(mod, u"frmDate"_s, u"Συνάντηση"_s, {u"Date"_s, 1000, 0}, u"appointment"_s),
      Frame1(named(new QGroupBox, u"Frame1"_s)),
      lblDate(named(new QLabel, u"lblDate"_s)),
      txtContact(textBox(u"txtContact"_s)),
      txtSubject(textBox(u"txtSubject"_s)),
      txtLocation(textBox(u"txtLocation"_s)),
      txtStart(timeBox(u"txtStart"_s)),
      txtEnd(timeBox(u"txtEnd"_s)),
      txtRemind(timeBox(u"txtRemind"_s)),
      Combo1(named(new controls::ChoiceBox(false), u"Combo1"_s)),
      txtNotes(named(new controls::MemoBox, u"txtNotes"_s)),
      row_(boundRow()),
      commands_(mod, this, commands()) {
    lblDate->setFont(controls::font(u"Tahoma"_s, 11, true));
    txtNotes->setHighlighting(true);
    txtNotes->setMinimumHeight(90);
    auto* notes = named(new QGroupBox(u"Σημειώσεις"_s), u"Frame2"_s);
    txtNotes->setAccessibleName(notes->title());
    controls::add(controls::tabLayout(notes), {txtNotes});
    controls::add(controls::tabLayout(Frame1), {form()});
    controls::add(controls::pageLayout(this), {Frame1, {notes, 1}, buttons()});
    setMinimumSize(560, 460);
    commands_.bindKeys(this);
    FillCombo();
    fields_.watch(
        u"codecard"_s, [this] { return mCodeCard; }, [this](const QVariant& card) { mCodeCard = card.toLongLong(); });
    guardUnsaved(u"Η συνάντηση έχει αλλαγές που δεν αποθηκεύτηκαν."_s, [this] { SaveAppointment(); });
    keepDraft([this] { return draft(); });
}

QVector<core::Command> frmDate::commands() {
    const auto writable = [this] { return isWritable(); };
    return {
        {u"CmdSearch"_s, u"search"_s, u"Αναζήτηση επαφής"_s, {}, [this] { chooseContact(); }, writable},
        {u"cmdCard"_s,
         u"card"_s,
         u"Εμφάνιση καρτέλας επαφής"_s,
         {},
         [this] { mod_.doors.openCardAt(mCodeCard, 1); },
         [this] { return mCodeCard != 0; }},
        {u"cmdPrint"_s, u"print"_s, u"Εκτύπωση"_s, {}, [this] { printSheet(); }},
        {u"lblClick(0)"_s, u"save"_s, u"Αποθήκευση συνάτησης"_s, {Qt::Key_F5}, [this] { SaveAppointment(); }, writable},
        {u"lblClick(1)"_s, u"delete"_s, u"Ακύρωση συνάτησης"_s, {}, [this] { DeleteAppointment(); }, writable},
        {u"lblClick(2)"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { emit closeRequested(); }}};
}

core::BoundRow frmDate::boundRow() {
    return {mod_,
            this,
            fields_,
            u"Dates"_s,
            u"select * from dates where aa=?"_s,
            {u"τη συνάντηση"_s, gone},
            {{u"contact"_s, txtContact, u"Επαφή"_s},
             {u"Subject"_s, txtSubject, u"Θέμα"_s},
             {u"Location"_s, txtLocation, u"Τόπος"_s},
             {u"Start"_s, txtStart, u"Έναρξη"_s, timeText, storedTime},
             {u"End"_s, txtEnd, u"Τέλος"_s, timeText, storedTime},
             {u"Remind"_s, txtRemind, u"Ωρα Υπενθύμισης"_s, timeText, storedTime},
             {.name = u"notes"_s, .field = txtNotes, .caption = u"Σημειώσεις"_s, .keptWhenEmptied = true},
             {u"User"_s, Combo1, u"Αποδέκτης"_s}}};
}

QLayout* frmDate::form() {
    auto* form = controls::formLayout();
    controls::addField(form, u"Ημερομηνία :"_s, lblDate);
    controls::addField(
        form, u"Επαφή :"_s, txtContact,
        controls::rowWidget(
            {{txtContact, 1}, commands_.toolButton(u"CmdSearch"_s), commands_.toolButton(u"cmdCard"_s)}));
    controls::addField(form, u"Θέμα :"_s, txtSubject);
    controls::addField(form, u"Τόπος :"_s, txtLocation);
    controls::addField(
        form, u"Έναρξη :"_s, txtStart,
        controls::rowWidget({txtStart, controls::captionOf(u"Τέλος :"_s, txtEnd), txtEnd,
                             controls::captionOf(u"Ωρα Υπενθύμισης:"_s, txtRemind), txtRemind, Item::rest()}));
    named(controls::addField(form, u"Αποδέκτης:"_s, Combo1), u"Label7"_s);
    return form;
}

QLayout* frmDate::buttons() {
    auto* row = controls::row({commands_.button(u"cmdPrint"_s), Item::rest()});
    commands_.addPictures(row, {u"lblClick(0)"_s, u"lblClick(1)"_s});
    auto* exit = commands_.picture(u"lblClick(2)"_s);
    // Too long to stand under a picture.
    exit->setToolTip(u"Έξοδος από την καταχώρηση συνάντησης"_s);
    exit->setAccessibleName(exit->toolTip());
    row->addWidget(exit);
    return row;
}

void frmDate::FillCombo() {
    QStringList times;
    for (int slot = 0; slot < slotsOfDay; ++slot) times << slotText(slot);
    for (controls::ChoiceBox* box : {txtStart, txtEnd, txtRemind}) {
        box->addItems(times);
        box->setCurrentIndex(-1);
    }
}

void frmDate::onLoad() {
    fillUsers(mod_, *Combo1);
    startNew({mod_.services.clock.today(), slotText(18), slotText(19), slotText(17), 0, {}});
}

bool frmDate::isWritable() const {
    return mod_.mayChange(owner_);
}

// The window as it stands for one who may change the row, or may not.
void frmDate::settle() {
    Frame1->setTitle(row_.isNew() ? u" Καταχώρηση Νέας Συνάντησης !"_s : u" Διόρθωση Συνάντησης !"_s);
    lblDate->setText(fullDay(day_));
    const bool writable = isWritable();
    for (controls::TextBox* box : {txtContact, txtSubject, txtLocation}) box->setReadOnly(!writable);
    for (controls::ChoiceBox* box : {txtStart, txtEnd, txtRemind}) box->setReadOnly(!writable);
    txtNotes->setReadOnly(!writable);
    shownCard_ = mCodeCard;
    fields_.remember();
    commands_.refresh();
    (txtContact->text().isEmpty() ? txtContact : txtSubject)->setFocus(Qt::TabFocusReason);
}

void frmDate::startNew(const NewAppointment& start) {
    row_.startNew();
    start_ = start;
    day_ = start.day;
    mCodeCard = start.card;
    owner_ = mod_.gUserName;
    txtContact->setText(start.contact);
    for (controls::TextBox* box : {txtSubject, txtLocation}) box->clear();
    txtNotes->setText({});
    txtStart->setCurrentText(start.start);
    txtEnd->setCurrentText(start.end);
    txtRemind->setCurrentText(start.remind);
    chooseUser(*Combo1, mod_.gUserName);
    settle();
}

void frmDate::edit(qint64 aa) {
    fields_.forget();
    if (!row_.read(aa)) {
        complain(gone);
        emit closeRequested();
        return mod_.doors.appointmentsChanged();
    }
    show(row_.row());
    settle();
}

// What no box shows, and the user, who may be none of the list.
void frmDate::show(data::Recordset& row) {
    day_ = row[u"Day"].toDate().date();
    mCodeCard = row[u"codecard"].toLong();
    owner_ = row[u"User"].text();
    chooseUser(*Combo1, owner_);
}

core::Draft frmDate::draft() {
    core::Draft draft;
    row_.describe(draft);
    draft.title = txtContact->text();
    draft.key.insert(u"day"_s, day_);
    // What it began with, which nobody typed.
    draft.key.insert(u"card"_s, start_.card);
    const QStringList texts{start_.start, start_.end, start_.remind, start_.contact};
    if (row_.isNew()) draft.key.insert(u"start"_s, texts);
    return draft;
}

void frmDate::resume(const core::Draft& draft) {
    const QStringList texts = draft.key[u"start"_s].toStringList();
    startNew({draft.key[u"day"_s].toDate(), texts.value(0), texts.value(1), texts.value(2),
              draft.key[u"card"_s].toLongLong(), texts.value(3)});
    fields_.forget();
    row_.resume(draft);
    if (!row_.isNew())
        show(row_.row());
    else if (!draft.isNew)
        mCodeCard = draft.row[u"codecard"_s].toLongLong();  // somebody else deleted it
    settle();
    goOnWith(draft);
}

// The first box that holds what can't be saved, with what is said about it.
QWidget* frmDate::firstFault(QString& text) const {
    struct Test {
        bool passed;
        QString text;
        QWidget* field;
    };
    const auto isTime = [](const controls::ChoiceBox* box) { return typedTime(box->currentText()).has_value(); };
    const Test tests[] = {
        {!txtContact->text().isEmpty(), u"Δεν έχετε συμπληρώσει την επαφή της συνάντησης!"_s, txtContact},
        {!txtSubject->text().isEmpty(), u"Δεν έχετε συμπληρώσει το θέμα της συνάντησης!"_s, txtSubject},
        {isTime(txtStart), u"Δεν έχετε συμπληρώσει σωστά την ώρα έναρξης συνάντησης!"_s, txtStart},
        {isTime(txtEnd), u"Δεν έχετε συμπληρώσει σωστά την ώρα τέλους συνάντησης!"_s, txtEnd},
        {isTime(txtRemind), u"Δεν έχετε συμπληρώσει σωστά την ώρα υπενθύμησης συνάντησης!"_s, txtRemind},
        // As texts: 9:00 has to be 09:00 before it may stand beside 10:00.
        {txtEnd->currentText() >= txtStart->currentText(),
         u"Η ώρα τέλους συνάντησης δεν πρέπει να είναι πριν την ώρα έναρξης συνάντησης!"_s, txtRemind}};
    for (const Test& test : tests) {
        if (test.passed) continue;
        text = test.text;
        return test.field;
    }
    return nullptr;
}

// The card goes with the contact: after a conflict that left theirs, their card stays, too.
bool frmDate::writesCard(data::Recordset& row) const {
    const bool leftTheirs = row[u"codecard"].toLong() != shownCard_ && !fields_.isChanged(txtContact);
    return row_.isNew() || (mCodeCard != shownCard_ && !leftTheirs);
}

void frmDate::SaveAppointment() {
    QString fault;
    if (QWidget* field = firstFault(fault)) return complain(fault, field);
    if (clashes(mod_.gConn, day_, *typedTime(txtStart->currentText()), *typedTime(txtEnd->currentText()), row_.aa()) &&
        !ask(u"Υπάρχει και άλλη συνάντηση στο συγκεκριμένο διάστημα, να συνεχίση η καταχώρηση;"_s))
        return;
    const bool keepsNotes = !row_.isNew() && fields_.isChanged(txtNotes) && txtNotes->text().isEmpty();
    if (!row_.save([this](data::Recordset& row) {
            if (row_.isNew()) row[u"Day"].setValue(data::wallClock(day_));
            if (writesCard(row)) row[u"codecard"].setValue(mCodeCard);
            row[u"Entoleas"].setValue(mod_.gUserName);
        }))
        return;
    fields_.forget();
    if (keepsNotes) mod_.doors.say(u"Οι παλιές σημειώσεις της συνάντησης έμειναν όπως ήταν."_s);
    emit closeRequested();
    emit saved(day_);
}

void frmDate::DeleteAppointment() {
    if (!row_.isNew() && !askAndDelete(u"Να συνεχίσω με διαγραφή της Συνάντησης;"_s, [this] {
            mod_.gConn.execute(data::Sql(u"Delete from dates where aa=?"_s, row_.aa()));
        }))
        return;
    fields_.forget();
    emit closeRequested();
    emit deleted(day_);
}

void frmDate::chooseContact() {
    mod_.doors.findCard(this, [this](qint64 code, const QString& contact) {
        mCodeCard = code;
        txtContact->setText(contact);
        commands_.refresh();
        txtSubject->setFocus(Qt::TabFocusReason);
    });
}

void frmDate::printSheet() {
    const AppointmentSheet sheet{core::ownerDetails(mod_.services.settings),
                                 txtContact->text(),
                                 mCodeCard ? mod_.GetPhones(mCodeCard) : QString(),
                                 lblDate->text(),
                                 txtSubject->text(),
                                 txtLocation->text(),
                                 txtStart->currentText(),
                                 txtEnd->currentText(),
                                 txtNotes->text()};
    core::printOut(mod_, this, {windowTitle(), [sheet](platform::Printer& printer, const core::PrintStep&) {
                                    drawAppointment(printer, sheet);
                                }});
}

}  // namespace diary
