#include "cards/windows.h"

#include "cards/frmaddress.h"
#include "cards/frmcategory.h"
#include "cards/frmfields.h"
#include "cards/frmfind.h"
#include "cards/frmhistory.h"
#include "cards/frmhmerologio.h"
#include "cards/frmlink.h"
#include "cards/frmlinkfolders.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

void addForms(core::Windows& windows, core::MainMod& mod) {
    windows.add(u"frmAddress"_s, [&mod] { return new frmAddress(mod); });
    windows.add(u"frmCategory"_s, [&mod] { return new frmCategory(mod); });
    windows.add(u"frmCombos"_s, [&mod] { return new frmCombos(mod); });
    windows.add(u"frmFields"_s, [&mod] { return new frmFields(mod); });
    windows.add(u"frmFields1"_s, [&mod] { return new frmFields1(mod); });
    windows.add(u"frmHmerologio"_s, [&mod] { return new frmHmerologio(mod); });
}

void addDialogs(core::Windows& windows, core::MainMod& mod) {
    windows.addDialog(u"frmFind"_s, [&mod](QWidget* parent) {
        return std::make_unique<frmFind>(mod, parent, [&mod](const FoundCard& card) { mod.doors.openCard(card.code); });
    });
    windows.addDialog(u"frmHistory"_s, [&mod](QWidget* parent) {
        auto movement = std::make_unique<frmHistory>(mod, parent, [](qint64) {});
        movement->load();
        return movement;
    });
    windows.addDialog(u"frmLink"_s, [&mod](QWidget* parent) {
        auto link = std::make_unique<frmLink>(mod, parent, [] {});
        link->load();
        return link;
    });
    windows.addDialog(u"frmLinkFolders"_s,
                      [&mod](QWidget* parent) { return std::make_unique<frmLinkFolders>(mod, parent); });
}

frmAddress* card(core::Windows& windows) {
    return qobject_cast<frmAddress*>(windows.front(u"frmAddress"_s));
}

// Movements first: while a card is under change, none of another one is.
void addDrafts(core::Windows& windows, core::MainMod& mod) {
    const auto isPossible = [&windows, &mod] {
        const auto* open = qobject_cast<frmAddress*>(windows.find(u"frmAddress"_s));
        return !mod.onlyReads() && !(open && open->isEditing());
    };
    windows.addDrafts({u"frmHistory"_s, u"κίνηση"_s, isPossible,
                       [&windows](const core::Draft& draft) { card(windows)->resumeMovement(draft); }});
    windows.addDrafts({u"frmAddress"_s, u"καρτέλα"_s, isPossible,
                       [&windows](const core::Draft& draft) { card(windows)->resume(draft); }});
}

}  // namespace

void addWindows(core::Windows& windows, core::MainMod& mod) {
    addForms(windows, mod);
    addDialogs(windows, mod);
    addDrafts(windows, mod);
    mod.doors.openCard = [&windows](qint64 code) { card(windows)->goTo(code); };
    mod.doors.openValues = [&windows](int list) {
        if (auto* values = qobject_cast<frmCombos*>(windows.front(u"frmCombos"_s))) values->setList(list);
    };
    mod.doors.openCardAt = [&windows](qint64 code, int tab) {
        auto* card = qobject_cast<frmAddress*>(windows.front(u"frmAddress"_s));
        if (!card) return;
        card->goTo(code);
        card->selectTab(CardTab(tab));
    };
    mod.doors.findCard = [&mod](QWidget* opener, const core::Doors::Chosen& chosen) {
        frmFind find(mod, opener, [&chosen](const FoundCard& card) {
            chosen(card.code, (card.surname + u' ' + card.firstName).trimmed());
        });
        find.placeOver(opener, {0, 2000});
        find.exec();
    };
    mod.doors.appointmentsChanged.add([&windows] {
        if (auto* card = qobject_cast<frmAddress*>(windows.find(u"frmAddress"_s))) card->FillListAppoiment();
    });
    mod.doors.listsChanged.add([&windows] {
        if (auto* card = qobject_cast<frmAddress*>(windows.find(u"frmAddress"_s))) card->FillCombo();
        if (auto* journal = qobject_cast<frmHmerologio*>(windows.find(u"frmHmerologio"_s))) journal->FillCombo();
    });
}

}  // namespace cards
