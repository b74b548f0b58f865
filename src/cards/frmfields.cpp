#include "cards/frmfields.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/names.h"
#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::arrayName;
using controls::named;

namespace {

const QString rowSql = u"Select * from customfields where id=1"_s;

const QVector<FieldGroup> cardGroups = {
    {u"Αλφαριθμητικά"_s, u"Πεδίο"_s, 10, u"FIELdchar"_s, u"Text1"_s, 0, 1, u"fc"_s, u"Check1"_s},
    {u"Αριθμητικά"_s, u"Πεδίο"_s, 6, u"FIELdnum"_s, u"Text2"_s, 0, 1, u"fn"_s, u"Check2"_s},
    {u"Ημερομηνίες"_s, u"Πεδίο"_s, 4, u"FIELddate"_s, u"Text3"_s, 0, 1, u"fd"_s, u"Check3"_s},
    {u"Λίστες"_s, u"Πεδίο"_s, 4, u"FieldCombo"_s, u"Text3"_s, 7, -1, u"fcb"_s, u"Check3"_s},
    {u"Κείμενα"_s, u"Κείμενο"_s, 6, u"Memo"_s, u"Text2"_s, 11, -1, {}, {}},
    {u"Επιλεκτικά"_s, u"Πεδίο"_s, 8, u"FieldYes"_s, u"Text4"_s, 1, 1, u"fy"_s, u"Check4"_s},
};

const QVector<FieldGroup> historyGroups = {
    {u"Αλφαριθμητικά"_s, u"Πεδίο"_s, 2, u"FIELdcharh"_s, u"Text1"_s, 0, 1, u"fch"_s, u"Check1"_s},
    {u"Αριθμητικά"_s, u"Πεδίο"_s, 4, u"FieldNumh"_s, u"Text2"_s, 0, 1, u"fnh"_s, u"Check2"_s},
};

}  // namespace

FieldsEditor::FieldsEditor(core::MainMod& mod, const QString& name, const QString& caption,
                           const QVector<FieldGroup>& groups, int columns, std::function<void(int)> openList)
    : Form(mod, name, caption, {u"Fields"_s, 1000, 0}), openList_(std::move(openList)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 10, 12, 10);
    layout->setSpacing(10);
    auto* stacks = new QHBoxLayout;
    QVector<QVBoxLayout*> stack;
    for (int i = 0; i < columns; ++i) {
        stack.append(new QVBoxLayout);
        stacks->addLayout(stack.last(), 1);
    }
    // Two groups to a column keeps the columns of the card's fields about equally long.
    for (int i = 0; i < groups.size(); ++i) stack[i * columns / int(groups.size())]->addWidget(buildGroup(groups[i]));
    for (QVBoxLayout* column : stack) column->addStretch(1);
    layout->addLayout(stacks);
    auto* confirm = named(new QPushButton(u"Επικύρωση"_s), u"Command1"_s);
    on(confirm, &QPushButton::clicked, [this] { this->confirm(); });
    layout->addWidget(confirm, 0, Qt::AlignRight);
}

QGroupBox* FieldsEditor::buildGroup(const FieldGroup& group) {
    auto* box = new QGroupBox(group.frame);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(12, 8, 12, 10);
    grid->setVerticalSpacing(4);
    const bool lists = group.step < 0 && !group.flagColumn.isEmpty();
    if (!group.flagColumn.isEmpty()) grid->addWidget(new QLabel(u"ΕΝ"_s), 0, 1, Qt::AlignCenter);
    grid->addWidget(new QLabel(u"Περιγραφή"_s), 0, 2);
    for (int i = 0; i < group.count; ++i) {
        const QString caption = u"%1 %2"_s.arg(group.field).arg(i + 1);
        const int index = group.textIndex + group.step * i;
        Row row{group.captionColumn + QString::number(i + 1), QString(),
                named(new controls::TextBox, arrayName(group.textArray, index)), nullptr};
        row.text->setHighlighting(true);
        row.text->setMinimumWidth(150);
        auto* label = new QLabel(caption);
        controls::tie(label, row.text);
        row.text->setAccessibleName(group.frame + u", "_s + caption);
        grid->addWidget(label, i + 1, 0);
        if (!group.flagColumn.isEmpty()) {
            row.flagColumn = group.flagColumn + QString::number(i + 1);
            row.check = named(new QCheckBox, arrayName(group.checkArray, index));
            row.check->setAccessibleName(group.frame + u", "_s + caption + u", εμφάνιση"_s);
            grid->addWidget(row.check, i + 1, 1, Qt::AlignCenter);
        }
        grid->addWidget(row.text, i + 1, 2);
        if (lists && openList_) {
            auto* values = named(new QPushButton(u"Τιμές..."_s), arrayName(u"cmdCombo"_s, i));
            values->setAccessibleName(u"Τιμές λίστας %1"_s.arg(i + 1));
            on(values, &QPushButton::clicked, [this, i] { openList_(i + 1); });
            grid->addWidget(values, i + 1, 3);
        }
        rows_.append(row);
    }
    return box;
}

void FieldsEditor::onLoad() {
    data::Recordset row(mod_.gConn, rowSql);
    for (const Row& each : rows_) {
        each.text->setText(row[each.captionColumn].text());
        if (each.check) each.check->setChecked(row[each.flagColumn].toBool());
    }
    loaded_ = shown();
}

QStringList FieldsEditor::shown() const {
    QStringList values;
    for (const Row& row : rows_)
        values << row.text->text() << (row.check && row.check->isChecked() ? u"1"_s : QString());
    return values;
}

// Only what was changed here: another seat may have confirmed names of its own meanwhile.
void FieldsEditor::confirm() {
    if (loaded_.isEmpty()) return onLoad();  // what couldn't be read is not to be overwritten
    data::Recordset row(mod_.gConn, rowSql);
    const QStringList now = shown();
    for (int i = 0; i < rows_.size(); ++i) {
        const int text = 2 * i, flag = text + 1;
        if (now[text] != loaded_[text]) row[rows_[i].captionColumn].setValue(now[text]);
        if (now[flag] != loaded_[flag]) row[rows_[i].flagColumn].setValue(rows_[i].check->isChecked());
    }
    row.update();
    confirmed_ = true;
    emit closeRequested();
}

bool FieldsEditor::queryUnload() {
    if (confirmed_ || loaded_.isEmpty() || shown() == loaded_) return true;
    return mod_.services.prompts.question(this, core::programTitle(),
                                          u"Οι αλλαγές των πεδίων δεν επικυρώθηκαν.\nΝα κλείσει χωρίς αυτές;"_s);
}

frmFields::frmFields(core::MainMod& mod, std::function<void(int)> openList)
    : FieldsEditor(mod, u"frmFields"_s, u"Παραμετρικά Πεδία Καρτέλας"_s, cardGroups, 3, std::move(openList)) {}

frmFields1::frmFields1(core::MainMod& mod)
    : FieldsEditor(mod, u"frmFields1"_s, u"Παραμετρικά Πεδία Ιστορικού"_s, historyGroups, 1) {}

}  // namespace cards
