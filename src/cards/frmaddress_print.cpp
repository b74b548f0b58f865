// The card on paper: what its controls show.
#include "cards/frmaddress.h"
#include "cards/kartela.h"
#include "controls/fieldvalue.h"
#include "core/printlist.h"
#include "core/printout.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

// The basic fields in their order on paper, under the names that they have there.
const std::pair<QString, QString> basicLines[] = {
    {u"Επώνυμο:"_s, u"Text7(0)"_s},
    {u"Όνομα:"_s, u"Text7(1)"_s},
    {u"Πατρώνυμο:"_s, u"Text7(2)"_s},
    {u"Διεύθυνση:"_s, u"Text7(5)"_s},
    {u"Περιοχή:"_s, u"Text7(6)"_s},
    {u"Πόλη:"_s, u"Text7(8)"_s},
    {u"Ταχ. Κώδικας:"_s, u"Text7(7)"_s},
    {u"Τηλ. Οικίας 1:"_s, u"Text7(9)"_s},
    {u"Τηλ. Οικίας 2:"_s, u"Text7(20)"_s},
    {u"Φύλλο:"_s, u"Combo2"_s},
    {u"Ημ.Γέννησης:"_s, u"txtDate"_s},
    {u"Τόπος Γέννησης:"_s, u"Text7(3)"_s},
    {u"Επάγγελμα:"_s, u"Text7(4)"_s},
    {u"Εταιρία:"_s, u"Text7(18)"_s},
    {u"Διεύθ. Εργασίας:"_s, u"Text7(19)"_s},
    {u"Τηλ. Εργασίας 1:"_s, u"Text7(10)"_s},
    {u"Τηλ. Εργασίας 2:"_s, u"Text7(21)"_s},
    {u"Fax:"_s, u"Text7(12)"_s},
    {u"Κινητό:"_s, u"Text7(11)"_s},
    {u"e-mail:"_s, u"Text7(13)"_s},
    {u"URL:"_s, u"Text7(14)"_s},
    {u"Κατηγορία:"_s, u"Combo1"_s},
    {u"Σύσταση:"_s, u"Text7(15)"_s},
    {u"Σχόλια:"_s, u"Text7(16)"_s},
};

QString shown(const QWidget* control) {
    return controls::fieldValue(control).toString();
}

const CardField& fieldNamed(const QString& control) {
    for (const CardField& field : cardFields())
        if (field.controlName() == control) return field;
    Q_UNREACHABLE();
}

}  // namespace

bool frmAddress::gPrintKartela(const QString& Title) {
    Kartela card;
    card.title = Title;
    card.owner = core::ownerDetails(mod_.services.settings);
    card.today = mod_.services.clock.today();
    const auto printed = [this](const CardField& field) {
        return isUnknownDate(field) ? QString() : shown(view_->control(field));
    };
    for (const auto& [label, control] : basicLines) card.basic.append({label, printed(fieldNamed(control))});
    for (const CardField& field : cardFields()) {
        const bool isPrinted = field.kind == CardKind::ParamText || field.kind == CardKind::ParamNumber ||
                               field.kind == CardKind::ParamDate;
        if (isPrinted && view_->isOffered(field)) card.special.append({view_->captionText(field), printed(field)});
    }
    // Sharp enough for half a page, whatever the camera delivered.
    if (!mPhotoBytes.isEmpty()) card.photo = controls::PhotoView::read(mPhotoBytes, {1500, 1500});
    card.surname = shownText(0);
    card.notes = shown(view_->control(u"Text7(17)"_s));
    try {
        const auto draw = [card](platform::Printer& printer, const core::PrintStep&) { drawKartela(printer, card); };
        return core::printOut(mod_, this, {Title, draw, false, card.surname});
    } catch (const std::exception& error) {
        // Ends quietly: the answer says that nothing was printed.
        qWarning("gPrintKartela: %s", error.what());
        return false;
    }
}

void frmAddress::printCard() {
    if (gPrintKartela(u"ΣΤΟΙΧΕΙΑ ΚΑΡΤΕΛΑΣ"_s)) tell(u"Η εκτύπωση της καρτέλας ολοκληρώθηκε !"_s);
}

void frmAddress::printMovements() {
    history_->listPeriod();
    printAndTell([this] {
        return core::gPrintListView(mod_, this, history_->list(), u"ΙΣΤΟΡΙΚΟ ΕΠΑΦΗΣ "_s + history_->period(),
                                    {shownText(0), shownText(1), shownText(9), shownText(11)});
    });
}

}  // namespace cards
