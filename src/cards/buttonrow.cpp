#include "cards/buttonrow.h"

#include <QHBoxLayout>

#include "controls/names.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

using enum CardButton;

struct ButtonDef {
    CardButton id;
    QString caption;
    QString icon;
    QString keys;  // for the tool tip and the shortcut
};

const ButtonDef buttonDefs[] = {
    {Previous, u"Προηγούμενος"_s, u"prev"_s, u"Ctrl+PgUp"_s},
    {Search, u"Αναζήτηση"_s, u"search"_s, u"Ctrl+F"_s},
    {Next, u"Επόμενος"_s, u"next"_s, u"Ctrl+PgDown"_s},
    {AddNew, u"Προσθήκη Νέου"_s, u"add"_s, u"Ctrl+N"_s},
    {Edit, u"Διόρθωση Στοιχείων"_s, u"edit"_s, u"F2"_s},
    {Delete, u"Διαγράφη"_s, u"delete"_s, u"Ctrl+Del"_s},
    {Save, u"Ενήμερωση"_s, u"save"_s, u"F5"_s},
    {Cancel, u"Ακύρωση"_s, u"cancel"_s, u"Ctrl+Z, Esc"_s},
    {Exit, u"Έξοδος"_s, u"exit"_s, u"Ctrl+F4"_s},
    {Print, u"Εκτύπωση Καρτέλας"_s, u"print"_s, u"Ctrl+P"_s},
};

}  // namespace

ButtonRow::ButtonRow(core::MainMod& mod, QWidget* parent) : QWidget(parent), mod_(mod) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    for (const ButtonDef& def : buttonDefs) {
        auto* button = controls::named(new controls::PictureButton(def.caption, def.icon),
                                       controls::arrayName(u"lblClick"_s, int(def.id)));
        button->setToolTip(u"%1 (%2)"_s.arg(def.caption, def.keys.section(u", "_s, -1)));
        connect(button, &controls::PictureButton::hovered, this, [this] { mod_.playButtonSound(u"NIMOver.wav"_s); });
        connect(button, &controls::PictureButton::pressed, this, [this] { mod_.playButtonSound(u"NIMClick.wav"_s); });
        connect(button, &controls::PictureButton::clicked, this, [this, id = def.id] { emit pressed(id); });
        if (def.id == Exit) layout->addStretch(1);
        layout->addWidget(button);
        buttons_.insert(def.id, button);
    }
}

void ButtonRow::setBrowsing(bool restricted) {
    for (auto [id, button] : buttons_.asKeyValueRange()) {
        const bool writes = id == AddNew || id == Edit || id == Delete;
        if (id != Print) button->setEnabled(id != Save && id != Cancel && !(restricted && writes));
    }
}

void ButtonRow::setEditing() {
    for (auto [id, button] : buttons_.asKeyValueRange())
        if (id != Print) button->setEnabled(id == Save || id == Cancel);
}

}  // namespace cards
