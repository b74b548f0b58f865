#include "cards/frmaddress.h"

#include <QApplication>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

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

}  // namespace

frmAddress::frmAddress(core::MainMod& mod)
    : Form(mod, u"frmAddress"_s, u"Καρτέλα"_s, {u"Address"_s, 0, 0}),
      history_(new HistoryTab(mod)),
      links_(new LinksTab(mod)),
      appointments_(new AppointmentsTab(mod)),
      view_(new CardView({history_, links_, appointments_})),
      buttons_(new ButtonRow(mod)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 10, 12, 10);
    layout->setSpacing(8);
    layout->addWidget(view_, 1);
    layout->addWidget(buttons_);
    wire();
}

void frmAddress::wire() {
    on(buttons_, &ButtonRow::pressed, [this](CardButton id) { dispatch(id); });
    on(view_->loadPhoto(), &QPushButton::clicked, [this] { loadPhoto(); });
    on(view_->categories(), &QToolButton::clicked, [this] { emit openRequested(u"frmCategory"_s); });
    on(view_->clearPhoto(), &QPushButton::clicked, [this] { clearPhoto(); });
    on(view_->today(), &QPushButton::clicked, [this] { setLastVisit(*view_, mod_.services.clock.today()); });
    on(history_, &HistoryTab::written, [this] { ShowCard(true); });
    on(links_, &LinksTab::written, [this] { ShowCard(true); });
    on(history_, &HistoryTab::printRequested, [this] { printMovements(); });
    wireAddresses();
    for (const CardField& field : cardFields())
        if (controls::DateBox* box = view_->date(field)) on(box, &controls::DateBox::refused, [this] { mod_.beep(); });
    addShortcut(Qt::Key_F5, [this] {
        if (isEditing()) SaveCard();
    });
    // The boxes that F3 searches from: surname, first name, first telephone, e-mail.
    for (int index : {0, 1, 9, 13}) {
        auto* shortcut = new QShortcut(Qt::Key_F3, view_->control(controls::arrayName(u"Text7"_s, index)), nullptr,
                                       nullptr, Qt::WidgetShortcut);
        on(shortcut, &QShortcut::activated, [this] {
            if (!isEditing()) openFind();
        });
    }
    using enum CardButton;
    struct Keys {
        QKeySequence keys;
        CardButton id;
    };
    for (const Keys& row : {Keys{QKeySequence(u"Ctrl+PgUp"_s), Previous},
                            {QKeySequence(u"Ctrl+PgDown"_s), Next},
                            {QKeySequence(u"Ctrl+F"_s), Search},
                            {QKeySequence(u"Ctrl+N"_s), AddNew},
                            {Qt::Key_F2, Edit},
                            {QKeySequence(u"Ctrl+Del"_s), Delete},
                            {QKeySequence(u"Ctrl+P"_s), Print}})
        addShortcut(row.keys, [this, id = row.id] {
            if (buttons_->button(id)->isEnabled()) dispatch(id);
        });
    // One key alone takes nothing back that was typed.
    addShortcut(Qt::Key_Escape, [this] {
        if (isEditing() && mayDiscard(u"Να ακυρωθούν;"_s)) CancelCard();
    });
}

void frmAddress::wireAddresses() {
    on(view_->mail(), &QToolButton::clicked, [this] { SendMail(shownText(mailBox)); });
    on(view_->web(), &QToolButton::clicked, [this] { openAddress(mod_, this, webAddress(shownText(webBox))); });
    struct Address {
        int box;
        int shortest;
        QToolButton* button;
    };
    for (const Address& address :
         {Address{mailBox, shortestMail, view_->mail()}, Address{webBox, shortestWeb, view_->web()}}) {
        address.button->setEnabled(false);
        connect(view_->text(*cardField(u"Text7"_s, address.box)), &QLineEdit::textChanged, this,
                [address](const QString& text) { address.button->setEnabled(text.size() >= address.shortest); });
    }
}

void frmAddress::addShortcut(const QKeySequence& keys, std::function<void()> action) {
    auto* shortcut = new QShortcut(keys, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    on(shortcut, &QShortcut::activated, std::move(action));
}

void frmAddress::dispatch(CardButton id) {
    using enum CardButton;
    switch (id) {
        case Previous:
            return PreviousCard();
        case Next:
            return NextCard();
        case AddNew:
            return CardAddNew();
        case Edit:
            return CardEdit();
        case Delete:
            return DeleteCard();
        case Save:
            return SaveCard();
        case Cancel:
            return CancelCard();
        case Exit:
            emit closeRequested();
            return;
        case Search:
            return openFind();
        case Print:
            return printCard();
    }
}

void frmAddress::onLoad() {
    const BusyCursor busy;
    mod_.gAddressOpen = true;
    view_->categories()->setEnabled(mod_.gUserGroup != core::groupRestricted);
    history_->load();
    links_->load();
    appointments_->load();
    // Locked before anything can fail, so that a card that can't be read can't be typed into.
    ClearCard();
    LockCard();
    showCounter();
    openKeySet();
    ClearCard();
    LockCard();
    buttons_->setBrowsing(mod_.gUserGroup == core::groupRestricted);
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
    const QVariant code = isEditing() && mRsCard.isOpen() && !mAdding
                              ? mRsCard[u"category"].value()
                              : data::Recordset(mod_.gConn, data::Sql(u"select category from cards where code=?"_s,
                                                                      CurrentCode.toLongLong()))
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
        fill(controls::arrayName(u"Combo4"_s, n - 1),
             data::Sql(u"select Description from ? order by Description"_s, data::Sql::name(u"combo%1"_s.arg(n))),
             description);
}

void frmAddress::ClearCard() {
    clearControls(*view_, mod_.services.clock.today());
    for (QLabel* label : {view_->surname(), view_->firstName(), view_->telephone()}) label->clear();
    mPhotoBytes.clear();
    view_->photo()->setBytes({});
    view_->showText(0);
    history_->clear();
    links_->clear();
    appointments_->clear();
    if (mod_.gUserGroup == core::groupRestricted) buttons_->setBrowsing(true);
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
        data::Recordset row(mod_.gConn, data::Sql(u"Select * from cards where code=?"_s, CurrentCode.toLongLong()));
        if (row.isEmpty()) {
            mod_.beep();
            return;
        }
        if (!Reload) {
            mPhotoBytes = photoOnShow;
            view_->photo()->setBytes(mPhotoBytes);
        }
        showRow(row, Reload);
        CurrentCode = row[u"code"].text();
        showBrowsing();
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
    data::Recordset category(
        mod_.gConn, data::Sql(u"select description,Payable from cardKategory where code=?"_s, code.toLongLong()));
    return category.isEmpty() ? QString() : category[u"description"].text();
}

void frmAddress::readPhoto(data::Recordset& row) {
    data::Field photo = row[u"Photo"];
    mPhotoBytes = photo.isNull() ? QByteArray() : photo.getChunk(photo.actualSize());
    view_->photo()->setBytes(mPhotoBytes);
}

void frmAddress::showBrowsing() {
    buttons_->setBrowsing(mod_.gUserGroup == core::groupRestricted);
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
    CurrentCode = mRsCards[u"code"].text();
    ShowCard(true);
}

void frmAddress::PreviousCard() {
    if (!hasCards()) return;
    if (mRsCards.absolutePosition() < 2 || mRsCards.bof()) return mod_.beep();
    mRsCards.movePrevious();
    CurrentCode = mRsCards[u"code"].text();
    ShowCard(true);
}

void frmAddress::GoToRec(double Code) {
    mRsCards.find(data::Sql(u"code=?"_s, static_cast<qint64>(Code)));
    CurrentCode = mRsCards[u"code"].text();
    ShowCard(true);
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
        return core::complain(mod_, this,
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
    // Nothing sets the find layout any more; windows that jump to a card still leave it first.
    mFinding = false;
    view_->tabs()->setEnabled(true);
}

bool frmAddress::mayDiscard(const QString& question) {
    return mod_.services.prompts.question(this, core::programTitle(),
                                          u"Η καρτέλα έχει αλλαγές που δεν αποθηκεύτηκαν.\n"_s + question);
}

bool frmAddress::queryUnload() {
    return !isEditing() || mayDiscard(u"Να κλείσει χωρίς αποθήκευση;"_s);
}

void frmAddress::onUnload() {
    mod_.gAddressOpen = false;
    links_->storeWidths();
    mRsCard.close();
    mRsCards.close();
}

}  // namespace cards
