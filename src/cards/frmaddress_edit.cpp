// Adding, changing, saving and deleting a card, and its photo.
#include "cards/cardbinding.h"
#include "cards/frmaddress.h"
#include "controls/fieldvalue.h"
#include "core/categories.h"
#include "core/photofile.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

void frmAddress::openCarrier() {
    mRsCard.open(mod_.gConn, data::Sql(u"Select * from cards where code=?"_s, CurrentCode.toLongLong()));
}

void frmAddress::startEditing(const QString& title) {
    UnlockCard();
    commands_.refresh();
    fields_.remember();
    view_->counter()->setText(title);
    if (!view_->isShowing(CardTab::Basic)) return;
    view_->control(u"Text7(0)"_s)->setFocus(Qt::TabFocusReason);
}

void frmAddress::CardAddNew() {
    if (isEditing() || mod_.gUserGroup == core::groupRestricted) return;
    view_->selectTab(CardTab::Basic);
    openCarrier();
    mRsCard.addNew();
    mAdding = true;
    ClearCard();
    startEditing(u"Προσθήκη νέας καρτέλας"_s);
}

void frmAddress::CardEdit() {
    if (mRsCards.isEmpty() || isEditing() || mod_.gUserGroup == core::groupRestricted) return;
    openCarrier();
    if (!refreshFromCarrier()) return;
    mEditing = true;
    startEditing(u"Διόρθωση της καρτέλας"_s);
}

// Back to the browsing layout, whatever the next read of the card brings.
void frmAddress::leaveEditing() {
    LockCard();
    commands_.refresh();
    fields_.forget();
    showCounter();
}

// The row is read again for the change. If somebody saved it since it came on show, the newer values come on
// show first: otherwise the save would put the older ones back over them without anybody noticing.
bool frmAddress::refreshFromCarrier() {
    if (mRsCard.isEmpty()) {
        complain(u"Η καρτέλα έχει διαγραφεί από άλλον χρήστη."_s);
        return false;
    }
    if (savedValues(mRsCard) != shownValues_) {
        ClearCard();
        showRow(mRsCard, true);
        showHeader();
        fillLists();
    }
    return true;
}

bool frmAddress::isComplete() {
    struct Needed {
        QString control;
        QString text;
    };
    static const Needed needed[] = {
        {u"Combo1"_s, u"Δεν έχετε συμπληρώσει την Κατηγορία!"_s},
        {u"Text7(0)"_s, u"Δεν έχετε συμπληρώσει το Επώνυμο!"_s},
        {u"Text7(1)"_s, u"Δεν έχετε συμπληρώσει το Όνομα!"_s},
    };
    for (const Needed& need : needed) {
        QWidget* control = view_->control(need.control);
        if (!controls::fieldValue(control).toString().isEmpty()) continue;
        view_->selectTab(CardTab::Basic);
        complain(need.text, control);
        return false;
    }
    // One that the card has had is the office's own matter.
    QWidget* const nameDay = view_->control(u"Combo3"_s);
    const QString line = controls::fieldValue(nameDay).toString();
    if (line.isEmpty() || !fields_.isChanged(nameDay) || isNameDayLine(line)) return true;
    view_->selectTab(CardTab::Basic);
    complain(u"Το «%1» δεν είναι εορτή της λίστας."_s.arg(line.left(60)), nameDay);
    return false;
}

void frmAddress::SaveCard() {
    if (!isEditing() || !isComplete()) return;
    try {
        writeCard();
    } catch (const data::Error& error) {
        core::showFailure(
            mod_, this, error,
            u"Πρόβλημα κατά την αποθήκευση των δεμένων! \nΕλέγχετε τα αριθμητικά πεδία οτι είναι αριθμοι! \n"_s);
        // The typed values stay on screen and can be mended and saved again.
        if (mRsCard.isOpen()) mRsCard.cancelUpdate();
        return;
    }
    afterSave();
}

void frmAddress::writeCard() {
    if (!mRsCard.isOpen()) openCarrier();
    const QString name = qobject_cast<QComboBox*>(view_->control(u"Combo1"_s))->currentText();
    const qint64 category = core::categoryCode(mod_.gConn, name);
    if (mAdding && mRsCard.editMode() != data::EditMode::Add) mRsCard.addNew();
    const int year = mod_.services.clock.today().year();
    for (const CardField& field : cardFields()) writeField(*view_, field, mRsCard, category, year);
    data::Field photo = mRsCard[u"Photo"];
    if (!photo.isNull() || !mPhotoBytes.isEmpty()) photo.appendChunk(mPhotoBytes);
    mRsCard.update();
}

void frmAddress::afterSave() {
    mAdding = mEditing = false;
    CurrentCode = mRsCard[u"code"].text();
    leaveEditing();
    ClearCard();
    view_->selectTab(CardTab::Basic);
    mRsCard.close();
    mRsCards.requery();
    mRsCards.find(data::Sql(u"code=?"_s, CurrentCode.toLongLong()));
    if (mRsCards.eof() && !mRsCards.isEmpty()) mRsCards.moveFirst();  // deleted again meanwhile
    ShowCard(true);
}

void frmAddress::CancelCard() {
    if (!isEditing()) return;
    const bool wasAdding = mAdding;
    mAdding = mEditing = false;
    mRsCard.close();
    leaveEditing();
    if (wasAdding && !hasCards()) {
        ClearCard();
        showHeader();
        return;
    }
    if (wasAdding) return showFirst();
    ShowCard(true);
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
    if (isEditing() || mod_.gUserGroup == core::groupRestricted) return;
    if (!ask(u"Είστε σίγουρος για διαγραφή;"_s)) return;
    if (!hasCards()) return ClearCard();
    alignKeySet();
    data::Transaction transaction(mod_.gConn);
    mod_.gConn.execute(
        data::Sql(u"Insert Into ToBeDeleted (EntryID) Values (?)"_s, mRsCards[u"OutlookEntryID"].text()));
    mRsCards.remove();
    transaction.commit();
    if (!mRsCards.isEmpty()) return showFirst();
    CurrentCode = u"0"_s;
    ClearCard();
    showCounter();
}

void frmAddress::loadPhoto() {
    if (const auto bytes = core::choosePhoto(mod_, this)) setPhoto(*bytes);
}

void frmAddress::setPhoto(const QByteArray& bytes) {
    mPhotoBytes = bytes;
    view_->photo()->setBytes(bytes);
}

}  // namespace cards
