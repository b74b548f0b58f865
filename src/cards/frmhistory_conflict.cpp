// A movement that somebody else changed or deleted meanwhile.
#include "cards/frmhistory.h"
#include "controls/fieldvalue.h"
#include "core/conflictdialog.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

// Shows what differs from what somebody else saved, and takes the choice over. True when the save can be tried again;
// one that was deleted can be saved as a new one.
bool frmHistory::settleConflict(const data::Error& error) {
    data::Recordset now(mod_.gConn, data::Sql(u"select * from HISTORY where aa=?"_s, MovementId));
    if (!EditMode || (mRsHistory.isEmpty() && !now.isEmpty())) throw error;
    if (now.isEmpty()) return settleDeletion();
    mRsHistory.cancelUpdate();
    const auto shownAs = [this](const QWidget* box, const data::Field& column) {
        if (box == txtDate->box()) return data::format(column.value(), u"dd/mm/yyyy");
        const bool amount = box == txtXreosh || box == txtPistosi;
        return amount ? data::format(column.toDouble(), u"0.00") : column.text();
    };
    QVector<core::ConflictField> shown;
    QVector<QWidget*> both;
    for (const Bound& each : bound()) {
        const data::Field theirs = now[each.column];
        if (!fields_.isChanged(each.box) || theirs.value() == mRsHistory[each.column].value()) continue;
        both << each.box;
        shown.append(
            {each.box->accessibleName(), controls::fieldValue(each.box).toString(), shownAs(each.box, theirs)});
    }
    const QByteArray theirPhoto = now[u"Photo"].value().toByteArray(),
                     oldPhoto = mRsHistory[u"Photo"].value().toByteArray();
    const bool myPhoto = Image1->bytes() != oldPhoto;
    if (myPhoto && theirPhoto != oldPhoto)
        shown.append({u"Φωτογραφία"_s, Image1->bytes().isEmpty() ? QString() : u"η φωτογραφία που βάλατε"_s,
                      theirPhoto.isEmpty() ? QString() : u"άλλη φωτογραφία"_s});

    core::ConflictDialog dialog(mod_, this, u"την κίνηση"_s, shown);
    if (!shown.isEmpty() && dialog.exec() != QDialog::Accepted) return false;

    if (!myPhoto || (shown.size() > both.size() && !dialog.keepsMine(int(both.size())))) Image1->setBytes(theirPhoto);
    for (const Bound& each : bound()) {
        const qsizetype asked = both.indexOf(each.box);
        if (asked >= 0 ? dialog.keepsMine(int(asked)) : fields_.isChanged(each.box)) continue;
        const data::Field theirs = now[each.column];
        const bool number = qobject_cast<controls::NumberBox*>(each.box);
        controls::setFieldValue(each.box, theirs.isNull() && number ? u"0"_s : shownAs(each.box, theirs));
        fields_.remember(each.box);
    }
    mRsHistory = std::move(now);
    return true;
}

bool frmHistory::settleDeletion() {
    if (!ask(u"Η κίνηση διαγράφηκε στο μεταξύ από άλλον χρήστη.\nΝα αποθηκευτεί ως νέα;"_s)) return false;
    addAgain();
    return true;
}

// With what the row had: a column that held nothing goes on holding nothing.
void frmHistory::addAgain() {
    EditMode = false;
    mRsHistory.cancelUpdate();
    if (mRsHistory.isEmpty()) return;
    for (const Bound& each : bound())
        if (mRsHistory[each.column].isNull()) nothing_ << each.column;
}

}  // namespace cards
