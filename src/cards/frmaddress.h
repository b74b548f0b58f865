// The contact card: one card at a time, walked, read, added, changed and deleted.
#pragma once

#include "cards/appointmentstab.h"
#include "cards/cardview.h"
#include "cards/historytab.h"
#include "cards/linkpath.h"
#include "cards/linkstab.h"
#include "core/commands.h"
#include "core/form.h"
#include "data/recordset.h"

namespace cards {

using namespace Qt::Literals::StringLiterals;

class frmAddress : public core::Form {
    Q_OBJECT
public:
    explicit frmAddress(core::MainMod& mod);

    // The code of the card on show, "0" when there is none; assign it before ShowCard.
    QString CurrentCode = u"0"_s;

    // Shows the card CurrentCode, read afresh; with Reload its photo too. Never moves the key set.
    // False when there is no such card.
    bool ShowCard(bool Reload);
    // Moves the key set forward to the card and shows it. Throws data::Error when the card isn't at or behind the
    // current row.
    void GoToRec(double Code);
    void FindUnLock();
    // From the top of the key set, which is read again when the card isn't in it. Refused while the card on show is
    // being changed.
    void goTo(qint64 code);
    void goToFound(qint64 code);  // and its first tab; for the search
    void selectTab(CardTab tab) { view_->selectTab(tab); }
    void CardAddNew();
    void CardEdit();
    void FillCombo();  // all lists of choices; each keeps what was chosen
    void FillList();   // of movements
    void FillListLinks();
    void FillListAppoiment();
    void SendMail(const QString& to);
    // The card on show, as its controls stand. True when it was printed; a failure to draw it ends quietly.
    bool gPrintKartela(const QString& Title);

    // When nothing is edited and this user may write.
    void resume(const core::Draft& draft);
    void resumeMovement(const core::Draft& draft);

    // For the windows that move the key set themselves.
    data::Recordset& keySet() { return mRsCards; }
    bool isEditing() const { return mAdding || mEditing; }

protected:
    void onLoad() override;
    void onUnload() override;

private:
    QVector<core::Command> commands();
    QLayout* buttons();
    void wire();
    void dress();
    void openKeySet();
    bool hasCards();
    void showFirst();
    void showCurrent();  // the card on which the key set stands
    void showRow(data::Recordset& row, bool reload);
    QString categoryName(const QVariant& code);
    QComboBox* categories() const;
    void readPhoto(data::Recordset& row);
    void showHeader();
    void showCounter();
    void fillLists();
    QString shownText(int box) const;  // of Text7
    static QVector<QVariant> savedValues(data::Recordset& row);

    void nameBad(const Addresses& addresses, const QString& what);
    void openWeb();  // asks which page, when the box has several

    void printCard();
    void printMovements();
    void openFind();
    void PreviousCard();
    void NextCard();

    void ClearCard();
    void LockCard();
    void UnlockCard();
    void startEditing(const QString& title);
    void leaveEditing();
    void rest();
    void openCarrier();
    bool refreshFromCarrier();
    bool isComplete();
    void SaveCard();
    void writeCard(const CardField*& field);
    void tellSaveFailure(const data::Error& error, const CardField* field);
    bool isToWrite(const CardField& field) const;
    bool tryToSave();
    bool settleConflict();
    bool settleDeletion();
    void takeTheirs(const CardField& field, const QVariant& value);
    void leaveDeleted();
    core::Draft draft();
    void watchFields();
    void watchDates();
    void setToday();  // as the last visit
    bool isUnknownDate(const CardField& field) const;
    void afterSave();
    void CancelCard();
    void DeleteCard();
    void alignKeySet();
    void removeCard();  // the current one of the key set
    void loadPhoto();
    void setPhoto(const QByteArray& bytes);

    HistoryTab* history_;
    LinksTab* links_;
    AppointmentsTab* appointments_;
    CardView* view_;

    data::Recordset mRsCards;  // keys in surname order, open for the form's life
    data::Recordset mRsCard;   // the one row under an add or a change
    bool mAdding = false;
    bool mEditing = false;
    bool mRevived = false;  // adding what was changed on a card that somebody else deleted
    QByteArray mPhotoBytes;
    QVector<QVariant> shownValues_;  // the row as ShowCard read it, to see what others changed before an edit
    QStringList confirmedDates_;     // boxes in which a date was typed or picked, also the one that was on show
    core::Commands commands_;
};

}  // namespace cards
