#include "cards/frmaddress.h"

#include <QApplication>

#include "cards/cardbinding.h"
#include "cards/frmfind.h"
#include "controls/choicebox.h"
#include "controls/names.h"
#include "core/categories.h"
#include "core/customfields.h"
#include "core/dialog.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

// The hourglass, for as long as it lives.
struct BusyCursor {
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
};

}  // namespace

frmAddress::frmAddress(core::MainMod& mod)
    : Form(mod, u"frmAddress"_s, u"Καρτέλα"_s, {u"Address"_s, 0, 0}, u"card"_s),
      history_(new HistoryTab(mod)),
      links_(new LinksTab(mod)),
      appointments_(new AppointmentsTab(mod, [this] { return (shownText(0) + u' ' + shownText(1)).trimmed(); })),
      view_(new CardView),
      commands_(mod, this, commands()) {
    view_->build(commands_, {history_, links_, appointments_});
    controls::add(controls::pageLayout(this), {{view_, 1}, buttons()});
    watchFields();
    on(qobject_cast<controls::ChoiceBox*>(categories()), &controls::ChoiceBox::opening,
       [this] { core::fillCategories(mod_.gConn, *categories()); });
    wire();
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
    core::CustomFields custom(mod_.gConn);
    if (custom.isEmpty()) return;
    for (const CardField& field : cardFields())
        if (!field.captionColumn.isEmpty())
            view_->dress(field, custom.caption(field.captionColumn),
                         field.visibleColumn.isEmpty() || custom.isShown(field.visibleColumn));
    view_->showSpecialHint();
    view_->showText(0);
}

QComboBox* frmAddress::categories() const {
    return qobject_cast<QComboBox*>(view_->control(u"Combo1"_s));
}

void frmAddress::FillCombo() {
    const auto fill = [this](const QString& control, const QStringList& choices) {
        auto* combo = qobject_cast<QComboBox*>(view_->control(control));
        const QString shown = combo->currentText();
        const QStringList lines = QStringList{QString()} + choices;
        combo->clear();
        combo->addItems(lines);
        // A list refilled under an open card keeps what the card shows.
        combo->setCurrentIndex(std::max<int>(0, lines.indexOf(shown)));
        if (combo->isEditable()) combo->setEditText(shown);
    };
    const auto read = [this](const QString& sql, const std::function<QString(data::Recordset&)>& line) {
        QStringList lines;
        for (data::Recordset rows(mod_.gConn, sql); !rows.eof(); rows.moveNext()) lines << line(rows);
        return lines;
    };
    core::fillCategories(mod_.gConn, *categories());
    fill(u"Combo3"_s, read(u"select ONOMA,HMERA from NameDay order by onoma"_s, [](data::Recordset& row) {
             return nameDayLine(row[u"ONOMA"].text(), row[u"HMERA"].toDate());
         }));
    for (int n = 1; n <= 4; ++n)
        fill(controls::arrayName(u"Combo4"_s, n - 1),
             read(data::Sql(u"select Description from ? order by Description"_s, data::Sql::name(u"combo%1"_s.arg(n))),
                  [](data::Recordset& row) { return row[u"Description"].text(); }));
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

bool frmAddress::ShowCard(bool Reload) {
    const QByteArray photoOnShow = mPhotoBytes;
    ClearCard();
    try {
        const BusyCursor busy;  // gone before any box
        data::Recordset row(mod_.gConn, data::Sql(u"Select * from cards where code=?"_s, CurrentCode.toLongLong()));
        if (row.isEmpty()) {
            mod_.beep();
            return false;
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
    return true;
}

void frmAddress::showRow(data::Recordset& row, bool reload) {
    for (const CardField& field : cardFields()) {
        const QVariant value = row[field.column].value();
        showField(*view_, field, value, field.kind == CardKind::Category ? categoryName(value) : QString());
    }
    if (reload) readPhoto(row);
    shownValues_ = savedValues(row);
}

// On show as a default, or as the date that new cards have for an unknown birthday.
bool frmAddress::isUnknownDate(const CardField& field) const {
    if (field.kind == CardKind::BirthDate && view_->date(field)->date() == noBirthDate) return true;
    return view_->dateField(field) && !isToWrite(field) && !shownValues_.isEmpty() &&
           !shownValues_[&field - cardFields().constData()].isValid();
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

QString frmAddress::categoryName(const QVariant& code) {
    return code.isValid() ? core::categoryName(mod_.gConn, code.toLongLong()) : QString();
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
    mRsCards.find(data::Sql(u"code=?"_s, static_cast<qint64>(Code)));
    showCurrent();
}

void frmAddress::openFind() {
    frmFind find(mod_, this, [this](const FoundCard& card) { goToFound(card.code); });
    core::placeOver(find, this, {480, 2880});
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
    const QString criterion = data::Sql(u"code=?"_s, code);
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
    // Nothing locks the card for a search any more; windows that jump to a card still unlock it first.
    view_->tabs()->setEnabled(true);
}

void frmAddress::onUnload() {
    mod_.gAddressOpen = false;
    mRsCard.close();
    mRsCards.close();
}

}  // namespace cards
