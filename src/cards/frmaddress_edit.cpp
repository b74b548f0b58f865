// Adding, changing and deleting a card, and its photo.
#include "cards/frmaddress.h"
#include "core/photofile.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

void frmAddress::openCarrier() {
    mRsCard.open(mod_.gConn, data::Sql(u"Select * from cards where code=?"_s, CurrentCode.toLongLong()));
}

void frmAddress::startEditing(const QString& title) {
    UnlockCard();
    commands_.refresh();
    confirmedDates_.clear();
    fields_.remember();
    view_->counter()->setText(title);
    if (!view_->isShowing(CardTab::Basic)) return;
    view_->control(u"Text7(0)"_s)->setFocus(Qt::TabFocusReason);
}

void frmAddress::CardAddNew() {
    if (isEditing() || mod_.onlyReads()) return;
    view_->selectTab(CardTab::Basic);
    openCarrier();
    mRsCard.addNew();
    mAdding = true;
    ClearCard();
    startEditing(u"Προσθήκη νέας καρτέλας"_s);
}

void frmAddress::CardEdit() {
    if (mRsCards.isEmpty() || isEditing() || mod_.onlyReads()) return;
    openCarrier();
    if (!refreshFromCarrier()) return;
    mEditing = true;
    startEditing(u"Διόρθωση της καρτέλας"_s);
}

// The focus after a save, a cancel and a delete: on the tabs one more Enter does nothing, where the toolkit would go on
// to the next button, which closes or prints.
void frmAddress::rest() {
    view_->tabs()->setFocus(Qt::OtherFocusReason);
}

// Back to the browsing layout, whatever the next read of the card brings.
void frmAddress::leaveEditing() {
    LockCard();
    commands_.refresh();
    fields_.forget();
    confirmedDates_.clear();
    showCounter();
}

void frmAddress::CancelCard() {
    if (!isEditing()) return;
    const bool wasAdding = mAdding, wasRevived = mRevived;
    mAdding = mEditing = mRevived = false;
    mRsCard.close();
    leaveEditing();
    rest();
    if (wasAdding && !hasCards()) {
        ClearCard();
        showHeader();
        return;
    }
    if (wasRevived) return leaveDeleted();
    if (wasAdding) return showFirst();
    if (!ShowCard(true)) leaveDeleted();
}

// The key set deletes its own current row; it must be the card that the user sees.
void frmAddress::alignKeySet() {
    if (!mRsCards.eof() && !mRsCards.bof() && mRsCards[u"code"].text() == CurrentCode) return;
    mRsCards.moveFirst();
    mRsCards.find(data::Sql(u"code=?"_s, CurrentCode.toLongLong()));
    if (!mRsCards.eof()) return;
    mRsCards.moveFirst();
    throw data::Error(data::ErrorCategory::Conflict, u"Η καρτέλα διαγράφηκε στο μεταξύ."_s);
}

void frmAddress::DeleteCard() {
    if (isEditing() || mod_.onlyReads()) return;
    if (!ask(u"Είστε σίγουρος για διαγραφή;"_s)) return;
    if (!hasCards()) return ClearCard();
    alignKeySet();
    try {
        removeCard();
    } catch (const data::Error& error) {
        if (error.category() == data::ErrorCategory::Conflict) leaveDeleted();
        throw;
    }
    rest();
    if (mRsCards.isEmpty()) {
        CurrentCode = u"0"_s;
        ClearCard();
        showCounter();
    } else {
        showFirst();
    }
    mod_.doors.cardsChanged();
}

void frmAddress::removeCard() {
    data::Transaction transaction(mod_.gConn);
    mod_.gConn.execute(
        data::Sql(u"Insert Into ToBeDeleted (EntryID) Values (?)"_s, mRsCards[u"OutlookEntryID"].text()));
    mRsCards.remove();
    transaction.commit();
}

void frmAddress::loadPhoto() {
    if (const auto bytes = core::choosePhoto(mod_, this)) setPhoto(*bytes);
}

void frmAddress::setPhoto(const QByteArray& bytes) {
    mPhotoBytes = bytes;
    view_->photo()->setBytes(bytes);
    fields_.touch();
}

}  // namespace cards
