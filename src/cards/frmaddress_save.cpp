// Saving a card.
#include "cards/cardbinding.h"
#include "cards/frmaddress.h"
#include "controls/fieldvalue.h"
#include "core/categories.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

static bool isNumber(const CardField& field) {
    using enum CardKind;
    return field.kind == ParamNumber || field.kind == Frequency || field.kind == Amount;
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
    while (isEditing() && isComplete())
        if (!tryToSave()) return;
}

// False when that is all for now; true when it is to be tried again or is done.
bool frmAddress::tryToSave() {
    const CardField* field = nullptr;
    try {
        writeCard(field);
    } catch (const data::Error& error) {
        // The typed values stay on screen and can be mended and saved again.
        if (mRsCard.isOpen()) mRsCard.cancelUpdate();
        using enum data::ErrorCategory;
        const bool refused = error.category() == Type || error.category() == Constraint;
        if (error.category() == Conflict) return settleConflict();
        tellSaveFailure(error, refused ? field : nullptr);
        return false;
    }
    afterSave();
    return true;
}

// Names the field that was refused and goes to it.
void frmAddress::tellSaveFailure(const data::Error& error, const CardField* field) {
    QString lead = u"Πρόβλημα κατά την αποθήκευση των δεμένων! \n"_s;
    if (field && isNumber(*field)) lead += u"Ελέγχετε τα αριθμητικά πεδία οτι είναι αριθμοι! \n"_s;
    if (field) {
        view_->showField(*field);
        lead += u"Πεδίο «%1».\n"_s.arg(view_->control(*field)->accessibleName());
    }
    core::showFailure(mod_, this, error, lead);
    if (field) view_->control(*field)->setFocus(Qt::OtherFocusReason);
    core::refillCategories(mod_.gConn, *categories());
}

// `field` is the one under writing, null behind the last.
void frmAddress::writeCard(const CardField*& field) {
    if (!mRsCard.isOpen()) openCarrier();
    field = cardField(u"Combo1"_s);
    const std::optional<qint64> category = core::chosenCategory(mod_.gConn, *categories());
    if (mAdding && mRsCard.editMode() != data::EditMode::Add) mRsCard.addNew();
    const int year = mod_.services.clock.today().year();
    for (const CardField& each : cardFields()) {
        field = &each;
        if (isToWrite(each)) writeField(*view_, each, mRsCard, category, year);
    }
    field = nullptr;
    data::Field photo = mRsCard[u"Photo"];
    if (!photo.isNull() || !mPhotoBytes.isEmpty()) photo.appendChunk(mPhotoBytes);
    mRsCard.update();
}

// A column that holds nothing shows as a default; only what its user changed goes into a row that exists.
bool frmAddress::isToWrite(const CardField& field) const {
    const QWidget* control = view_->control(field);
    if (fields_.isChanged(control) || confirmedDates_.contains(control->objectName())) return true;
    return mAdding && (!mRevived || shownValues_[&field - cardFields().constData()].isValid());
}

void frmAddress::afterSave() {
    mAdding = mEditing = mRevived = false;
    CurrentCode = mRsCard[u"code"].text();
    leaveEditing();
    ClearCard();
    view_->selectTab(CardTab::Basic);
    mRsCard.close();
    mRsCards.requery();
    mRsCards.find(data::Sql(u"code=?"_s, CurrentCode.toLongLong()));
    if (mRsCards.eof() && !mRsCards.isEmpty()) mRsCards.moveFirst();  // deleted again meanwhile
    ShowCard(true);
    rest();
    mod_.doors.cardsChanged();
}

}  // namespace cards
