#include "cards/listeditor.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "controls/names.h"
#include "controls/theme.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::named;

ListEditor::ListEditor(core::MainMod& mod, const QString& name, const QString& caption, ListEditorTexts texts,
                       const QString& checkCaption)
    : Form(mod, name, caption, {u"Category"_s, 1000, 0}), texts_(std::move(texts)) {
    build(checkCaption);
    buildCommands();
    on(list_, &controls::ListView::rowActivated, [this] { editRow(); });
    on(list_, &controls::ListView::menuRequested, [this](int row, QPoint position) { showMenu(row, position); });
    connect(list_, &QTreeView::clicked, this, &ListEditor::enableCommands);
    on(exit_, &QAbstractButton::clicked, [this] { emit closeRequested(); });
    enableCommands();
}

void ListEditor::build(const QString& checkCaption) {
    toolbar_ = named(new QToolBar, u"Toolbar1"_s);
    toolbar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    list_ = named(new controls::ListView, u"ListView1"_s);
    list_->setAccessibleName(windowTitle());
    list_->setColumns({{u"Description"_s, u"Περιγραφή"_s, 5000}});
    stack_ = new QStackedWidget;
    stack_->addWidget(list_);
    stack_->addWidget(buildPanel(checkCaption));
    exit_ = named(new controls::PictureButton(u"Έξοδος"_s, u"exit"_s), controls::arrayName(u"lblClick"_s, 0));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 10, 12, 10);
    layout->addWidget(toolbar_);
    layout->addWidget(stack_, 1);
    layout->addWidget(exit_, 0, Qt::AlignRight);
    setMinimumSize(420, 380);
}

QWidget* ListEditor::buildPanel(const QString& checkCaption) {
    panel_ = named(new QGroupBox(texts_.panel), u"Frame1"_s);
    description_ = named(new controls::TextBox, controls::arrayName(u"Text1"_s, 1));
    description_->setHighlighting(true);
    auto* caption = new QLabel(u" Περιγραφή"_s);
    controls::tie(caption, description_);
    auto* form = new QFormLayout(panel_);
    form->setContentsMargins(16, 18, 16, 16);
    form->addRow(caption, description_);
    if (!checkCaption.isEmpty()) {
        Check1 = named(new QCheckBox(checkCaption), u"Check1"_s);
        form->addRow(QString(), Check1);
    }
    auto* cancel = named(new QPushButton(u"Άκυρο"_s), u"cmdCancel"_s);
    on(cancel, &QPushButton::clicked, [this] { this->cancel(); });
    form->addRow(QString(), cancel);
    // Enter in the description saves, where the other boxes of the program move on.
    for (const QKeySequence& keys : {QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)}) {
        auto* shortcut = new QShortcut(keys, description_, nullptr, nullptr, Qt::WidgetShortcut);
        on(shortcut, &QShortcut::activated, [this] { save(); });
    }
    auto* escape = new QShortcut(Qt::Key_Escape, panel_, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    on(escape, &QShortcut::activated, [this] { this->cancel(); });
    return panel_;
}

void ListEditor::buildCommands() {
    struct Row {
        QString icon;
        QString name, text;
        QString keys;
        void (ListEditor::*run)();
    };
    const Row rows[] = {{u"add"_s, texts_.newName, texts_.newText, u"Ins"_s, &ListEditor::newRow},
                        {u"edit"_s, texts_.editName, texts_.editText, u"F2"_s, &ListEditor::editRow},
                        {u"save"_s, u"mnuSave"_s, u"Αποθήκευση"_s, u"F5"_s, &ListEditor::save},
                        {u"delete"_s, texts_.deleteName, texts_.deleteText, u"Del"_s, &ListEditor::deleteRow}};
    popUp_ = named(new QMenu(this), texts_.popUp);
    for (const Row& row : rows) {
        auto* command = new QAction(controls::icon(row.icon), row.text, this);
        command->setObjectName(row.name);
        command->setShortcut(QKeySequence(row.keys));
        command->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        on(command, &QAction::triggered, [this, run = row.run] { (this->*run)(); });
        addAction(command);
        toolbar_->addAction(command);
        if (row.run != &ListEditor::save) popUp_->addAction(command);
        commands_.append(command);
    }
}

void ListEditor::onLoad() {
    Refresh();
}

void ListEditor::Refresh() {
    refresh(selectedCode());
}

void ListEditor::refresh(const QVariant& selected) {
    const QString statement = hasCheck() ? u"Select Description,Code,payable from ? ORDER BY Description"_s
                                         : u"Select Description,Code from ? ORDER BY Description"_s;
    QVector<controls::ListRow> rows;
    for (data::Recordset found(mod_.gConn, data::Sql(statement, data::Sql::name(table()))); !found.eof();
         found.moveNext()) {
        const bool red = hasCheck() && found[u"payable"].toBool();
        rows.append(
            {{found[u"Description"].text()}, found[u"Code"].value(), red ? controls::theme().danger : QColor()});
    }
    list_->setRows(std::move(rows));
    for (int i = 0; i < list_->count(); ++i)
        if (i == 0 || list_->row(i).tag == selected) list_->selectRow(i);
    showList();
    emit changed();
}

QVariant ListEditor::selectedCode() const {
    return list_->currentRow() < 0 ? QVariant() : list_->row(list_->currentRow()).tag;
}

void ListEditor::enableCommands() {
    const bool editing = isEditing();
    commands_[New]->setEnabled(!editing);
    commands_[Save]->setEnabled(editing);
    for (Command command : {Edit, Delete}) commands_[command]->setEnabled(!editing && list_->count() > 0);
    exit_->setEnabled(!editing);
}

void ListEditor::showPanel() {
    stack_->setCurrentWidget(panel_);
    enableCommands();
    description_->setFocus(Qt::TabFocusReason);
}

void ListEditor::showList() {
    stack_->setCurrentWidget(list_);
    enableCommands();
    list_->setFocus(Qt::OtherFocusReason);
}

void ListEditor::newRow() {
    record_.open(mod_.gConn, data::Sql(u"select * from ?"_s, data::Sql::name(table())));
    record_.addNew();
    description_->clear();
    if (Check1) Check1->setChecked(false);
    showPanel();
}

void ListEditor::openSelected() {
    record_.open(mod_.gConn,
                 data::Sql(u"select * from ? where code=?"_s, data::Sql::name(table()), selectedCode().toLongLong()));
    if (!record_.isEmpty()) return;
    record_.close();
    Refresh();
}

void ListEditor::editRow() {
    if (!selectedCode().isValid() || isEditing()) return;
    openSelected();
    if (!record_.isOpen()) return;
    description_->setText(record_[u"Description"].text());
    if (Check1) Check1->setChecked(record_[u"payable"].toBool());
    showPanel();
}

void ListEditor::deleteRow() {
    if (!selectedCode().isValid() || isEditing()) return;
    openSelected();
    if (!record_.isOpen()) return;
    const QString question = u"Είστε σίγουρος για διαγραφή του : "_s + record_[u"Description"].text();
    data::Recordset doomed = std::move(record_);
    record_ = {};
    if (mod_.services.prompts.question(this, core::programTitle(), question)) doomed.remove();
    Refresh();
}

void ListEditor::save() {
    if (!isEditing()) return;
    if (description_->text().isEmpty()) return core::complain(mod_, this, texts_.empty, description_);
    record_[u"Description"].setValue(description_->text());
    if (Check1) record_[u"payable"].setValue(Check1->isChecked());
    record_.update();
    const QVariant code = record_[u"Code"].value();
    record_.close();
    refresh(code);
}

void ListEditor::cancel() {
    record_.close();
    showList();
}

void ListEditor::showMenu(int row, QPoint position) {
    enableCommands();
    for (Command command : {Edit, Delete}) commands_[command]->setEnabled(row >= 0);
    popUp_->exec(position);
    enableCommands();
}

bool ListEditor::queryUnload() {
    const bool typed = isEditing() && !description_->text().isEmpty() && description_->isModified();
    return !typed ||
           mod_.services.prompts.question(this, core::programTitle(),
                                          u"Η περιγραφή που γράψατε δεν αποθηκεύτηκε.\nΝα κλείσει χωρίς αποθήκευση;"_s);
}

void ListEditor::onUnload() {
    record_.close();
}

}  // namespace cards
