#include "cards/frmfields.h"

#include <QCheckBox>
#include <QGridLayout>

#include "controls/flow.h"
#include "controls/boxes.h"
#include "controls/fieldvalue.h"
#include "controls/layout.h"
#include "controls/names.h"
#include "core/columnsize.h"
#include "core/customfields.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::arrayName;
using controls::Item;
using controls::named;

namespace {

const QVector<FieldGroup> cardGroups = {
    {u"Αλφαριθμητικά"_s, u"Πεδίο"_s, 10, u"FIELdchar"_s, u"Text1"_s, 0, 1, u"fc"_s, u"Check1"_s},
    {u"Αριθμητικά"_s, u"Πεδίο"_s, 6, u"FIELdnum"_s, u"Text2"_s, 0, 1, u"fn"_s, u"Check2"_s},
    {u"Ημερομηνίες"_s, u"Πεδίο"_s, 4, u"FIELddate"_s, u"Text3"_s, 0, 1, u"fd"_s, u"Check3"_s},
    {u"Λίστες"_s, u"Πεδίο"_s, 4, u"FieldCombo"_s, u"Text3"_s, 7, -1, u"fcb"_s, u"Check3"_s, true},
    {u"Κείμενα"_s, u"Κείμενο"_s, 6, u"Memo"_s, u"Text2"_s, 11, -1, {}, {}},
    {u"Επιλεκτικά"_s, u"Πεδίο"_s, 8, u"FieldYes"_s, u"Text4"_s, 1, 1, u"fy"_s, u"Check4"_s},
};

const QVector<FieldGroup> historyGroups = {
    {u"Αλφαριθμητικά"_s, u"Πεδίο"_s, 2, u"FIELdcharh"_s, u"Text1"_s, 0, 1, u"fch"_s, u"Check1"_s},
    {u"Αριθμητικά"_s, u"Πεδίο"_s, 4, u"FieldNumh"_s, u"Text2"_s, 0, 1, u"fnh"_s, u"Check2"_s},
};

}  // namespace

FieldsEditor::FieldsEditor(core::MainMod& mod, const QString& name, const QString& caption,
                           const QVector<FieldGroup>& groups, int columns, const QString& symbol)
    : Form(mod, name, caption, {u"Fields"_s, 1000, 0}, symbol), commands_(mod, this, commands()) {
    guardUnsaved(u"Οι αλλαγές των πεδίων δεν επικυρώθηκαν."_s, [this] { confirm(); });
    auto* stacks = new controls::FlowLayout(10);
    // Two groups to a column keeps the columns of the card's fields about equally long.
    const int height = int(groups.size()) / columns;
    for (int first = 0; first < groups.size(); first += height) {
        auto* stack = new QVBoxLayout;
        for (const FieldGroup& group : groups.mid(first, height)) stack->addWidget(buildGroup(group));
        stack->addStretch(1);
        stacks->addNested(stack);
    }
    controls::add(
        controls::pageLayout(this),
        {stacks, controls::row({Item::rest(), commands_.button(u"Command1"_s), commands_.button(u"cmdExit"_s)})});
}

QVector<core::Command> FieldsEditor::commands() {
    QVector<core::Command> all{{u"Command1"_s, {}, u"Επικύρωση"_s, {}, [this] { confirm(); }},
                               {u"cmdExit"_s, {}, u"Έξοδος"_s, {}, [this] { emit closeRequested(); }}};
    for (int list = 1; list <= 4; ++list)
        all.append(
            {arrayName(u"cmdCombo"_s, list - 1), {}, u"Τιμές..."_s, {}, [this, list] { mod_.doors.openValues(list); }});
    return all;
}

QGroupBox* FieldsEditor::buildGroup(const FieldGroup& group) {
    auto* box = new QGroupBox(group.frame);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(12, 8, 12, 10);
    grid->setVerticalSpacing(4);
    const bool flagged = !group.flagColumn.isEmpty();
    if (flagged) grid->addWidget(new QLabel(u"ΕΝ"_s), 0, 1, Qt::AlignCenter);
    grid->addWidget(new QLabel(u"Περιγραφή"_s), 0, 2);
    for (int i = 0; i < group.count; ++i) {
        const QString number = QString::number(i + 1), caption = group.field + u" "_s + number;
        const int index = group.textIndex + group.step * i;
        auto* text = named(new controls::TextBox, arrayName(group.textArray, index));
        text->setHighlighting(true);
        core::limitToColumn(text, u"CustomFields"_s, group.captionColumn + number);
        text->setMinimumWidth(150);
        grid->addWidget(controls::captionOf(caption, text), i + 1, 0);
        if (flagged) {
            auto* check = named(new QCheckBox, arrayName(group.checkArray, index));
            grid->addWidget(check, i + 1, 1, Qt::AlignCenter);
            addColumn(group.flagColumn + number, check, u"%1, %2, εμφάνιση"_s.arg(group.frame, caption));
        }
        grid->addWidget(text, i + 1, 2);
        addColumn(group.captionColumn + number, text, u"%1, %2"_s.arg(group.frame, caption));
        if (group.lists) {
            auto* values = commands_.button(arrayName(u"cmdCombo"_s, i));
            values->setAccessibleName(u"Τιμές λίστας "_s + number);
            grid->addWidget(values, i + 1, 3);
        }
    }
    return box;
}

void FieldsEditor::addColumn(const QString& name, QWidget* field, const QString& spokenName) {
    field->setAccessibleName(spokenName);
    fields_.watch(field);
    columns_.append({name, field});
}

void FieldsEditor::onLoad() {
    core::CustomFields row(mod_.gConn);
    for (const Column& column : columns_) controls::setFieldValue(column.field, row.value(column.name));
    fields_.remember();
}

// Only what was changed here: another seat may have confirmed names of its own meanwhile.
void FieldsEditor::confirm() {
    if (!fields_.isRemembering()) return onLoad();  // what couldn't be read is not to be overwritten
    core::CustomFields row(mod_.gConn);
    for (const Column& column : columns_)
        if (fields_.isChanged(column.field)) row.set(column.name, controls::fieldValue(column.field));
    row.save();
    fields_.remember();
    emit closeRequested();
}

frmFields::frmFields(core::MainMod& mod)
    : FieldsEditor(mod, u"frmFields"_s, u"Παραμετρικά Πεδία Καρτέλας"_s, cardGroups, 3, u"fields"_s) {}

frmFields1::frmFields1(core::MainMod& mod)
    : FieldsEditor(mod, u"frmFields1"_s, u"Παραμετρικά Πεδία Ιστορικού"_s, historyGroups, 1, u"columns"_s) {}

}  // namespace cards
