// What is watched of a card under change, its draft, and going on with that.
#include "cards/cardbinding.h"
#include "cards/frmaddress.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

void frmAddress::watchFields() {
    for (const CardField& field : cardFields()) fields_.watch(view_->control(field));
    fields_.watch(
        u"Photo"_s, [this] { return mPhotoBytes; }, [this](const QVariant& value) { setPhoto(value.toByteArray()); });
    fields_.watch(
        u"confirmedDates"_s, [this] { return confirmedDates_; },
        [this](const QVariant& value) { confirmedDates_ = value.toStringList(); });
    keepDraft([this] { return draft(); });
    watchDates();
}

// A date that is on show for want of one is the card's only when its user enters it.
void frmAddress::watchDates() {
    for (const CardField& field : cardFields()) {
        controls::DateField* date = view_->dateField(field);
        if (!date) continue;
        const auto confirm = [this, name = field.controlName()] {
            confirmedDates_ << name;
            fields_.touch();
        };
        on(date->box(), &QLineEdit::textEdited, confirm);
        on(date->picker(), &controls::DatePicker::picked, confirm);
    }
}

core::Draft frmAddress::draft() {
    core::Draft draft;
    draft.title = shownText(0) + u' ' + shownText(1);
    draft.isNew = mAdding && !mRevived;
    draft.key = {{u"code"_s, CurrentCode.toLongLong()}};
    if (!draft.isNew && mRsCard.isOpen() && !mRsCard.isEmpty()) draft.row = core::draftRow(mRsCard);
    return draft;
}

// A card that is gone meanwhile is added anew, with what it had.
void frmAddress::resume(const core::Draft& draft) {
    if (isEditing() || mod_.onlyReads()) return;
    if (draft.isNew) {
        CardAddNew();
        return goOnWith(draft);
    }
    goTo(draft.key[u"code"_s].toLongLong());
    openCarrier();
    const bool gone = mRsCard.isEmpty();
    core::readAsDrafted(mRsCard, draft.row);
    mAdding = mRevived = gone;
    mEditing = !gone;
    ClearCard();
    showRow(mRsCard, true);
    showHeader();
    if (mEditing) fillLists();
    startEditing(mAdding ? u"Προσθήκη νέας καρτέλας"_s : u"Διόρθωση της καρτέλας"_s);
    goOnWith(draft);
}

void frmAddress::resumeMovement(const core::Draft& draft) {
    goTo(draft.key[u"card"_s].toLongLong());
    view_->selectTab(CardTab::History);
    history_->resume(draft);
}

}  // namespace cards
