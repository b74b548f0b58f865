// The card on paper: what its controls show.
#include "cards/frmaddress.h"
#include "cards/kartela.h"
#include "core/printlist.h"
#include "core/printout.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

// The basic fields in their order on paper, under the names that they have there.
const std::pair<const char16_t*, const char*> basicLines[] = {
    {u"Επώνυμο:", "Text7(0)"},
    {u"Όνομα:", "Text7(1)"},
    {u"Πατρώνυμο:", "Text7(2)"},
    {u"Διεύθυνση:", "Text7(5)"},
    {u"Περιοχή:", "Text7(6)"},
    {u"Πόλη:", "Text7(8)"},
    {u"Ταχ. Κώδικας:", "Text7(7)"},
    {u"Τηλ. Οικίας 1:", "Text7(9)"},
    {u"Τηλ. Οικίας 2:", "Text7(20)"},
    {u"Φύλλο:", "Combo2"},
    {u"Ημ.Γέννησης:", "txtDate"},
    {u"Τόπος Γέννησης:", "Text7(3)"},
    {u"Επάγγελμα:", "Text7(4)"},
    {u"Εταιρία:", "Text7(18)"},
    {u"Διεύθ. Εργασίας:", "Text7(19)"},
    {u"Τηλ. Εργασίας 1:", "Text7(10)"},
    {u"Τηλ. Εργασίας 2:", "Text7(21)"},
    {u"Fax:", "Text7(12)"},
    {u"Κινητό:", "Text7(11)"},
    {u"e-mail:", "Text7(13)"},
    {u"URL:", "Text7(14)"},
    {u"Κατηγορία:", "Combo1"},
    {u"Σύσταση:", "Text7(15)"},
    {u"Σχόλια:", "Text7(16)"},
};

QString shown(const QWidget* control) {
    if (const auto* combo = qobject_cast<const QComboBox*>(control)) return combo->currentText();
    if (const auto* date = qobject_cast<const controls::DateBox*>(control)) return date->formattedText();
    if (const auto* memo = qobject_cast<const controls::MemoBox*>(control)) return memo->text();
    return qobject_cast<const controls::TextBox*>(control)->text();
}

}  // namespace

bool frmAddress::gPrintKartela(const QString& Title) {
    Kartela card;
    card.title = Title;
    card.owner = core::ownerDetails(mod_.services.settings);
    card.today = mod_.services.clock.today();
    for (const auto& [label, control] : basicLines)
        card.basic.append({QString::fromUtf16(label), shown(view_->control(QString::fromLatin1(control)))});
    for (const CardField& field : cardFields()) {
        const bool printed = field.kind == CardKind::ParamText || field.kind == CardKind::ParamNumber ||
                             field.kind == CardKind::ParamDate;
        if (printed && view_->isOffered(field))
            card.special.append({view_->captionText(field), shown(view_->control(field))});
    }
    // Sharp enough for half a page, whatever the camera delivered.
    if (!mPhotoBytes.isEmpty()) card.photo = PhotoView::read(mPhotoBytes, {1500, 1500});
    card.surname = shownText(0);
    card.notes = shown(view_->control(u"Text7(17)"_s));
    try {
        return core::printOut(mod_, this, {Title, [card](platform::Printer& printer, const core::PrintStep&) {
                                               drawKartela(printer, card);
                                           }});
    } catch (const std::exception& error) {
        // Ends quietly: the answer says that nothing was printed.
        qWarning("gPrintKartela: %s", error.what());
        return false;
    }
}

void frmAddress::printCard() {
    if (gPrintKartela(u"ΣΤΟΙΧΕΙΑ ΚΑΡΤΕΛΑΣ"_s)) tellPrinted(u"Η εκτύπωση της καρτέλας ολοκληρώθηκε !"_s);
}

void frmAddress::printMovements() {
    if (core::gPrintListView(mod_, this, history_->list(), u"ΙΣΤΟΡΙΚΟ ΕΠΑΦΗΣ "_s + history_->period(),
                             {shownText(0), shownText(1), shownText(9), shownText(11)}))
        tellPrinted(u"Η εκτύπωση ολοκληρώθηκε"_s);
}

void frmAddress::tellPrinted(const QString& text) {
    mod_.services.prompts.message(this, platform::MessageIcon::Plain, core::programTitle(), text);
}

}  // namespace cards
