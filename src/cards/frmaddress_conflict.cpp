// A change that meets what somebody else did with the card meanwhile.
#include "cards/cardbinding.h"
#include "cards/frmaddress.h"
#include "core/conflictdialog.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

// The row is read again for the change. If somebody saved it since it came on show, the newer values come on
// show first: otherwise the save would put the older ones back over them without anybody noticing.
bool frmAddress::refreshFromCarrier() {
    if (mRsCard.isEmpty()) {
        complain(u"Η καρτέλα έχει διαγραφεί από άλλον χρήστη."_s);
        mRsCard.close();
        leaveDeleted();
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

// Shows what differs and takes the choice over. True when the save can be tried again.
bool frmAddress::settleConflict() {
    data::Recordset now(mod_.gConn, data::Sql(u"Select * from cards where code=?"_s, CurrentCode.toLongLong()));
    if (now.isEmpty()) return settleDeletion();
    QVector<const CardField*> both;
    QVector<core::ConflictField> shown;
    for (const CardField& field : cardFields()) {
        const QVariant theirs = now[field.column].value();
        if (!isToWrite(field) || theirs == mRsCard[field.column].value()) continue;
        both << &field;
        const QString name = field.kind == CardKind::Category ? categoryName(theirs) : QString();
        shown.append({view_->control(field)->accessibleName(), typedText(*view_, field), shownAs(field, theirs, name)});
    }
    const QByteArray theirPhoto = now[u"Photo"].value().toByteArray(),
                     oldPhoto = mRsCard[u"Photo"].value().toByteArray();
    const bool myPhoto = mPhotoBytes != oldPhoto;
    if (myPhoto && theirPhoto != oldPhoto)
        shown.append({u"Φωτογραφία"_s, mPhotoBytes.isEmpty() ? QString() : u"η φωτογραφία που βάλατε"_s,
                      theirPhoto.isEmpty() ? QString() : u"άλλη φωτογραφία"_s});

    core::ConflictDialog dialog(mod_, this, u"την καρτέλα"_s, shown);
    if (!shown.isEmpty() && dialog.exec() != QDialog::Accepted) return false;

    const bool photoInDialog = shown.size() > both.size();
    if (!myPhoto || (photoInDialog && !dialog.keepsMine(int(both.size())))) setPhoto(theirPhoto);
    for (const CardField& field : cardFields()) {
        const qsizetype asked = both.indexOf(&field);
        if (asked >= 0 ? !dialog.keepsMine(int(asked)) : !isToWrite(field))
            takeTheirs(field, now[field.column].value());
    }
    shownValues_ = savedValues(now);
    mRsCard = std::move(now);
    return true;
}

// As if the card had been read like this; what is typed into it from here on is a change again.
void frmAddress::takeTheirs(const CardField& field, const QVariant& value) {
    clearField(*view_, field, mod_.services.clock.today());
    showField(*view_, field, value, field.kind == CardKind::Category ? categoryName(value) : QString());
    fields_.remember(view_->control(field));
    confirmedDates_.removeAll(field.controlName());
}

bool frmAddress::settleDeletion() {
    if (!ask(u"Η καρτέλα διαγράφηκε στο μεταξύ από άλλον χρήστη.\nΝα αποθηκευτεί ως νέα;"_s)) return false;
    mEditing = false;
    mAdding = mRevived = true;
    return true;
}

// The walk goes on from a card that is there.
void frmAddress::leaveDeleted() {
    mRsCards.requery();
    if (!mRsCards.isEmpty()) return showFirst();
    CurrentCode = u"0"_s;
    ClearCard();
    showHeader();
    showCounter();
}

}  // namespace cards
