#include "cards/frmaddress.h"

#include <QApplication>

#include "cards/cardbinding.h"
#include "cards/dialogplace.h"
#include "cards/frmfind.h"
#include "cards/linkopen.h"
#include "controls/names.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

// The hourglass, for as long as it lives.
struct BusyCursor {
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
};

// Addresses shorter than this lead nowhere.
constexpr int shortestMail = 5, shortestWeb = 4;
constexpr int mailBox = 13, webBox = 14;  // of Text7

QStringList pictures(std::initializer_list<int> indexes) {
    QStringList names;
    for (int index : indexes) names << controls::arrayName(u"lblClick"_s, index);
    return names;
}

const QString unsaved = u"Η καρτέλα έχει αλλαγές που δεν αποθηκεύτηκαν.\n"_s;

}  // namespace

frmAddress::frmAddress(core::MainMod& mod)
    : Form(mod, u"frmAddress"_s, u"Καρτέλα"_s, {u"Address"_s, 0, 0}),
      history_(new HistoryTab(mod)),
      links_(new LinksTab(mod)),
      appointments_(new AppointmentsTab(mod)),
      view_(new CardView),
      commands_(mod, this, commands()) {
    view_->build(commands_, {history_, links_, appointments_});
    controls::add(controls::pageLayout(this), {{view_, 1}, buttons()});
    for (const CardField& field : cardFields()) fields_.watch(view_->control(field));
    fields_.watch([this] { return mPhotoBytes; });
    unsavedQuestion_ = unsaved + u"Να κλείσει χωρίς αποθήκευση;"_s;
    wire();
}

QVector<core::Command> frmAddress::commands() {
    const auto browsing = [this] { return !isEditing(); };
    const auto editing = [this] { return isEditing(); };
    const auto trusted = [this] { return mod_.gUserGroup != core::groupRestricted; };
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
        {u"cmdΣήμερα"_s, {}, u"Σήμερα"_s, {}, [this] { setLastVisit(*view_, mod_.services.clock.today()); }, editing},
        {u"Command2"_s,
         u"category"_s,
         u"Κατηγορίες Καρτέλας"_s,
         {},
         [this] { emit openRequested(u"frmCategory"_s); },
         trusted},
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
         [this] { openAddress(mod_, this, webAddress(shownText(webBox))); },
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
    onKey(Qt::Key_Escape, this, [this] {
        if (isEditing() && (!fields_.isChanged() || ask(unsaved + u"Να ακυρωθούν;"_s))) CancelCard();
    });
    // The boxes that F3 searches from: surname, first name, first telephone, e-mail.
    for (int box : {0, 1, 9, 13})
        onKey(Qt::Key_F3, view_->text(*cardField(u"Text7"_s, box)), [this] { commands_.run(u"lblClick(2)"_s); });
}

void frmAddress::onLoad() {
    const BusyCursor busy;
    mod_.gAddressOpen = true;
    // Locked before anything can fail, so that a card that can't be read can't be typed into.
    ClearCard();
    LockCard();
    showCounter();
    openKeySet();
    ClearCard();
    LockCard();
    if (mRsCards.isEmpty())
        showCounter();
    else
        showFirst();
}

void frmAddress::openKeySet() {
    FillCombo();
    mRsCards.open(mod_.gConn, u"select code,OutlookEntryID from cards order by ΕΠΩΝΥΜΟ"_s);
    dress();
}

// A window whose database was away when it opened takes up its work as soon as it is back.
bool frmAddress::hasCards() {
    if (!mRsCards.isOpen()) openKeySet();
    return !mRsCards.isEmpty();
}

void frmAddress::showFirst() {
    mRsCards.moveFirst();
    showCurrent();
}

void frmAddress::showCurrent() {
    CurrentCode = mRsCards[u"code"].text();
    ShowCard(true);
}

void frmAddress::dress() {
    data::Recordset custom(mod_.gConn, u"Select * from customfields where id=1"_s);
    if (custom.isEmpty()) return;
    for (const CardField& field : cardFields())
        if (!field.captionColumn.isEmpty())
            view_->dress(field, custom[field.captionColumn].text(),
                         field.visibleColumn.isEmpty() || custom[field.visibleColumn].toBool());
    view_->showSpecialHint();
    view_->showText(0);
}

// A renamed category is still the card's own.
void frmAddress::refillLists() {
    auto* const categories = qobject_cast<QComboBox*>(view_->control(u"Combo1"_s));
    const QString shown = categories->currentText();
    FillCombo();
    if (categories->currentText() == shown) return;
    const QVariant code =
        isEditing() && mRsCard.isOpen() && !mAdding
            ? mRsCard[u"category"].value()
            : data::Recordset(mod_.gConn, u"select category from cards where code=%1"_s.arg(CurrentCode.toLongLong()))
                  .field(0)
                  .value();
    if (!mAdding) categories->setCurrentIndex(std::max(0, categories->findText(categoryName(code))));
}

void frmAddress::FillCombo() {
    const auto fill = [this](const QString& control, const QString& sql,
                             const std::function<QString(data::Recordset&)>& line) {
        auto* combo = qobject_cast<QComboBox*>(view_->control(control));
        const QString shown = combo->currentText();
        QStringList lines{QString()};
        for (data::Recordset rows(mod_.gConn, sql); !rows.eof(); rows.moveNext()) lines << line(rows);
        combo->clear();
        combo->addItems(lines);
        // A list refilled under an open card keeps what the card shows.
        combo->setCurrentIndex(std::max<int>(0, lines.indexOf(shown)));
        if (combo->isEditable()) combo->setEditText(shown);
    };
    const auto description = [](data::Recordset& row) { return row[u"Description"].text(); };
    fill(u"Combo1"_s, u"select description,code,PAYABLE from cardKategory order by description"_s, description);
    fill(u"Combo3"_s, u"select ONOMA,HMERA from NameDay order by onoma"_s,
         [](data::Recordset& row) { return nameDayLine(row[u"ONOMA"].text(), row[u"HMERA"].toDate()); });
    for (int n = 1; n <= 4; ++n)
        fill(controls::arrayName(u"Combo4"_s, n - 1), u"select Description from combo%1 order by Description"_s.arg(n),
             description);
}

void frmAddress::ClearCard() {
    clearControls(*view_, mod_.services.clock.today());
    for (QLabel* label : {view_->surname(), view_->firstName(), view_->telephone()}) label->clear();
    setPhoto({});
    view_->showText(0);
    history_->clear();
    links_->clear();
    appointments_->clear();
}

void frmAddress::LockCard() {
    setEditable(*view_, false);
    history_->setBrowsing(true);
    links_->setEnabled(true);
}

void frmAddress::UnlockCard() {
    setEditable(*view_, true);
    history_->setBrowsing(false);
    links_->setEnabled(false);
}

void frmAddress::ShowCard(bool Reload) {
    const QByteArray photoOnShow = mPhotoBytes;
    ClearCard();
    try {
        const BusyCursor busy;  // gone before any box
        data::Recordset row(mod_.gConn, u"Select * from cards where code=%1 "_s.arg(CurrentCode));
        if (row.isEmpty()) {
            mod_.beep();
            return;
        }
        if (!Reload) setPhoto(photoOnShow);
        showRow(row, Reload);
        CurrentCode = row[u"code"].text();
        showHeader();
        LockCard();
        showCounter();
        fillLists();
    } catch (const data::Error& error) {
        core::showFailure(mod_, this, error, u"Πρόβλημα κατά την ανάκτηση των δεμένων! \n"_s);
    }
}

void frmAddress::showRow(data::Recordset& row, bool reload) {
    for (const CardField& field : cardFields()) {
        const QVariant value = row[field.column].value();
        showField(*view_, field, value, field.kind == CardKind::Category ? categoryName(value) : QString());
    }
    if (reload) readPhoto(row);
    shownValues_ = savedValues(row);
}

// What a save writes; the balance isn't among it and changes whenever a card is shown.
QVector<QVariant> frmAddress::savedValues(data::Recordset& row) {
    QVector<QVariant> values;
    for (const CardField& field : cardFields()) values.append(row[field.column].value());
    values.append(row[u"Photo"].value());
    return values;
}

void frmAddress::FillList() {
    history_->fill(CurrentCode);
    history_->storeBalance();
}

// The movements come last, since their period may be none, and behind them the balance: neither that nor a lock held by
// somebody else hides anything of the card.
void frmAddress::fillLists() {
    FillListLinks();
    FillListAppoiment();
    FillList();
}

void frmAddress::FillListLinks() {
    links_->fill(CurrentCode);
}

void frmAddress::FillListAppoiment() {
    appointments_->fill(CurrentCode);
}

void frmAddress::SendMail(const QString& to) {
    if (to.size() >= shortestMail) openAddress(mod_, this, mailAddress(to));
}

QString frmAddress::categoryName(const QVariant& code) {
    if (!code.isValid()) return {};
    data::Recordset category(mod_.gConn,
                             u"select description,Payable from cardKategory where code=%1"_s.arg(code.toLongLong()));
    return category.isEmpty() ? QString() : category[u"description"].text();
}

void frmAddress::readPhoto(data::Recordset& row) {
    data::Field photo = row[u"Photo"];
    setPhoto(photo.isNull() ? QByteArray() : photo.getChunk(photo.actualSize()));
}

QString frmAddress::shownText(int box) const {
    return view_->text(*cardField(u"Text7"_s, box))->text();
}

void frmAddress::showHeader() {
    view_->surname()->setText(shownText(0));
    view_->firstName()->setText(shownText(1));
    view_->telephone()->setText(shownText(9));
}

void frmAddress::showCounter() {
    if (!mRsCards.isOpen() || mRsCards.isEmpty() || mRsCards.eof())
        view_->counter()->setText(u"Καρτέλα (0/0)"_s);
    else
        view_->counter()->setText(
            u"Εμφάνιση Καρτέλας (%1/%2)"_s.arg(mRsCards.absolutePosition()).arg(mRsCards.recordCount()));
}

void frmAddress::NextCard() {
    if (!hasCards()) return;
    if (mRsCards.absolutePosition() >= mRsCards.recordCount() || mRsCards.eof()) return mod_.beep();
    mRsCards.moveNext();
    showCurrent();
}

void frmAddress::PreviousCard() {
    if (!hasCards()) return;
    if (mRsCards.absolutePosition() < 2 || mRsCards.bof()) return mod_.beep();
    mRsCards.movePrevious();
    showCurrent();
}

void frmAddress::GoToRec(double Code) {
    mRsCards.find(u"code=%1"_s.arg(static_cast<qint64>(Code)));
    showCurrent();
}

void frmAddress::openFind() {
    frmFind find(mod_, this, [this](const FoundCard& card) { goToFound(card.code); });
    placeOver(find, this, {480, 2880});
    find.exec();
}

void frmAddress::goToFound(qint64 code) {
    goTo(code);
    view_->selectTab(CardTab::Basic);
}

void frmAddress::goTo(qint64 code) {
    if (isEditing())
        return complain(
            u"Η καρτέλα που φαίνεται είναι σε διόρθωση.\nΑποθηκεύστε ή "
            "ακυρώστε πρώτα τις αλλαγές."_s);
    const QString criterion = u"code=%1"_s.arg(code);
    if (hasCards()) mRsCards.moveFirst();
    mRsCards.find(criterion);
    if (mRsCards.eof()) {
        // Added by somebody else since the key set was read.
        mRsCards.requery();
        mRsCards.find(criterion);
        // Or deleted: the walk goes on from somewhere.
        if (mRsCards.eof() && !mRsCards.isEmpty()) mRsCards.moveFirst();
    }
    CurrentCode = QString::number(code);
    FindUnLock();
    ShowCard(true);
}

void frmAddress::FindUnLock() {
    // Nothing sets the find layout any more; windows that jump to a card still leave it first.
    view_->tabs()->setEnabled(true);
}

void frmAddress::onUnload() {
    mod_.gAddressOpen = false;
    mRsCard.close();
    mRsCards.close();
}

}  // namespace cards
