// The card's commands: its buttons, their keys, and what else can be pressed on it.
#include "cards/cardbinding.h"
#include "cards/frmaddress.h"
#include "cards/linkopen.h"
#include "controls/names.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

// Addresses shorter than this lead nowhere.
constexpr int shortestMail = 5, shortestWeb = 4;
constexpr int mailBox = 13, webBox = 14;  // of Text7

QStringList pictures(std::initializer_list<int> indexes) {
    QStringList names;
    for (int index : indexes) names << controls::arrayName(u"lblClick"_s, index);
    return names;
}

}  // namespace

QVector<core::Command> frmAddress::commands() {
    const auto browsing = [this] { return !isEditing(); };
    const auto editing = [this] { return isEditing(); };
    const auto trusted = [this] { return !mod_.onlyReads(); };
    const auto writing = [=] { return browsing() && trusted(); };
    const auto key = [](const QString& text) { return QList<QKeySequence>{QKeySequence(text)}; };
    return {
        {u"lblClick(1)"_s, u"prev"_s, u"Προηγούμενος"_s, key(u"Ctrl+PgUp"_s), [this] { PreviousCard(); }, browsing},
        {u"lblClick(2)"_s, u"search"_s, u"Αναζήτηση"_s, key(u"Ctrl+F"_s), [this] { openFind(); }, browsing},
        {u"lblClick(3)"_s, u"next"_s, u"Επόμενος"_s, key(u"Ctrl+PgDown"_s), [this] { NextCard(); }, browsing},
        {u"lblClick(5)"_s, u"add"_s, u"Προσθήκη Νέου"_s, key(u"Ctrl+N"_s), [this] { CardAddNew(); }, writing},
        {u"lblClick(6)"_s, u"edit"_s, u"Διόρθωση Στοιχείων"_s, key(u"F2"_s), [this] { CardEdit(); }, writing},
        {u"lblClick(7)"_s, u"delete"_s, u"Διαγράφη"_s, key(u"Ctrl+Del"_s), [this] { DeleteCard(); }, writing},
        {u"lblClick(9)"_s, u"save"_s, u"Ενήμερωση"_s, key(u"F5"_s), [this] { SaveCard(); }, editing},
        {u"lblClick(10)"_s, u"cancel"_s, u"Ακύρωση"_s, key(u"Esc"_s), [this] { CancelCard(); }, editing},
        {u"lblClick(11)"_s, u"exit"_s, u"Έξοδος"_s, key(u"Ctrl+F4"_s), [this] { emit closeRequested(); }, browsing},
        {u"lblClick(12)"_s, u"print"_s, u"Εκτύπωση Καρτέλας"_s, key(u"Ctrl+P"_s), [this] { printCard(); }},
        {u"Command1"_s, u"photo-add"_s, u"Εισαγωγή Φωτογραφίας"_s, {}, [this] { loadPhoto(); }, editing},
        {u"Command3"_s, u"photo-remove"_s, u"Διαγραφή Φωτογραφίας"_s, {}, [this] { setPhoto({}); }, editing},
        {u"cmdΣήμερα"_s, {}, u"Σήμερα"_s, {}, [this] { setToday(); }, editing},
        {u"Command2"_s,
         u"category"_s,
         u"Κατηγορίες Καρτέλας"_s,
         {},
         [this] { emit openRequested(u"frmCategory"_s); },
         [this] { return mod_.gUserGroup == core::groupAdministrators; }},
        {u"Command5"_s,
         u"mail"_s,
         u"Συνταξή και αποστολή e-mail"_s,
         {},
         [this] { SendMail(shownText(mailBox)); },
         [this] { return shownText(mailBox).size() >= shortestMail; }},
        {u"Command6"_s,
         u"web"_s,
         u"Μετάβαση στη σελίδα"_s,
         {},
         [this] { openWeb(); },
         [this] { return shownText(webBox).size() >= shortestWeb; }},
    };
}

QLayout* frmAddress::buttons() {
    commands_.soundPictures();
    auto* row = controls::row({}, 4);
    commands_.addPictures(row, pictures({1, 2, 3, 5, 6, 7, 9, 10}));
    row->addStretch(1);
    commands_.addPictures(row, pictures({11, 12}));
    return row;
}

void frmAddress::wire() {
    on(history_, &HistoryTab::written, [this] { ShowCard(true); });
    on(links_, &LinksTab::written, [this] { ShowCard(true); });
    on(history_, &HistoryTab::printRequested, [this] { printMovements(); });
    for (int box : {mailBox, webBox})
        on(view_->text(*cardField(u"Text7"_s, box)), &QLineEdit::textChanged, [this] { commands_.refresh(); });
    // Where the main window has a key of its own, and where a key alone would take back what was typed, a command has
    // its key in the tool tip alone.
    commands_.bindKeys(this, pictures({1, 2, 3, 5, 6, 7, 9, 12}));
    guardUnsaved(u"Η καρτέλα έχει αλλαγές που δεν αποθηκεύτηκαν."_s, [this] { SaveCard(); });
    onKey(Qt::Key_Escape, this, [this] {
        if (isEditing() && mayLose()) CancelCard();
    });
    // The boxes that F3 searches from: surname, first name, first telephone, e-mail.
    for (int box : {0, 1, 9, 13})
        onKey(Qt::Key_F3, view_->text(*cardField(u"Text7"_s, box)), [this] { commands_.run(u"lblClick(2)"_s); });
}

void frmAddress::setToday() {
    setLastVisit(*view_, mod_.services.clock.today());
    confirmedDates_ << u"txtΤελευταία"_s;
}

void frmAddress::SendMail(const QString& to) {
    if (to.size() < shortestMail) return;
    const Addresses addresses = mailAddresses(to);
    nameBad(addresses, u"Δεν είναι διεύθυνση e-mail:"_s);
    if (!addresses.good.isEmpty()) openAddress(mod_, this, mailAddress(addresses.good));
}

void frmAddress::nameBad(const Addresses& addresses, const QString& what) {
    if (!addresses.bad.isEmpty()) complain(u"%1\n%2"_s.arg(what, addresses.bad.join(u'\n')));
}

void frmAddress::openWeb() {
    const Addresses addresses = webAddresses(shownText(webBox));
    nameBad(addresses, u"Δεν είναι διεύθυνση σελίδας:"_s);
    if (addresses.good.size() == 1) return openAddress(mod_, this, webAddress(addresses.good.first()));
    if (addresses.good.isEmpty()) return;
    auto* menu = controls::named(new QMenu(this), u"mnuPages"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const QString& each : addresses.good)
        on(menu->addAction(QString(each).replace(u'&', u"&&"_s)), &QAction::triggered,
           [this, each] { openAddress(mod_, this, webAddress(each)); });
    const QWidget* box = view_->text(*cardField(u"Text7"_s, webBox));
    menu->popup(box->mapToGlobal(QPoint(0, box->height())));
}

}  // namespace cards
