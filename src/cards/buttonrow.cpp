#include "cards/buttonrow.h"

#include <QHBoxLayout>

#include "controls/names.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

struct ButtonDef {
    CardButton id;
    const char16_t* caption;
    const char16_t* icon;
    const char16_t* keys;  // for the tool tip and the shortcut
};

constexpr ButtonDef buttonDefs[] = {
    {Previous, u"Προηγούμενος", u"prev", u"Ctrl+PgUp"},
    {Search, u"Αναζήτηση", u"search", u"Ctrl+F"},
    {Next, u"Επόμενος", u"next", u"Ctrl+PgDown"},
    {AddNew, u"Προσθήκη Νέου", u"add", u"Ctrl+N"},
    {Edit, u"Διόρθωση Στοιχείων", u"edit", u"F2"},
    {Delete, u"Διαγράφη", u"delete", u"Ctrl+Del"},
    {Save, u"Ενήμερωση", u"save", u"F5"},
    {Cancel, u"Ακύρωση", u"cancel", u"Ctrl+Z, Esc"},
    {Exit, u"Έξοδος", u"exit", u"Ctrl+F4"},
    {Print, u"Εκτύπωση Καρτέλας", u"print", u"Ctrl+P"},
};

}  // namespace

ButtonRow::ButtonRow(core::MainMod& mod, QWidget* parent) : QWidget(parent), mod_(mod) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    for (const ButtonDef& def : buttonDefs) {
        const QString caption = QString::fromUtf16(def.caption);
        auto* button = controls::named(new controls::PictureButton(caption, QString::fromUtf16(def.icon)),
                                       controls::arrayName(u"lblClick"_s, def.id));
        button->setToolTip(u"%1 (%2)"_s.arg(caption, QString::fromUtf16(def.keys).section(u", "_s, -1)));
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
