#include "core/listeditor.h"

#include "controls/layout.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/columnsize.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

using controls::Item;
using controls::named;

ListEditor::ListEditor(MainMod& mod, const QString& name, const QString& caption, ListEditorTexts texts,
                       const QString& checkCaption, const QString& symbol)
    : Form(mod, name, caption, {u"Category"_s, 1000, 0}, symbol),
      texts_(std::move(texts)),
      list_(named(new controls::ListView, u"ListView1"_s)),
      commands_(mod, this, commands()) {
    guardUnsaved(u"Η περιγραφή που γράψατε δεν αποθηκεύτηκε."_s, [this] { save(); });
    list_->setAccessibleName(windowTitle());
    list_->setColumns({{u"Description"_s, u"Περιγραφή"_s, 5000}});
    stack_ = new QStackedWidget;
    stack_->addWidget(list_);
    stack_->addWidget(buildPanel(checkCaption));
    const QStringList onRows{texts_.newName, texts_.editName, texts_.deleteName};
    const QStringList all{texts_.newName, texts_.editName, u"mnuSave"_s, texts_.deleteName};
    controls::add(controls::pageLayout(this), {commands_.toolBar(u"Toolbar1"_s, all),
                                               {stack_, 1},
                                               controls::row({Item::rest(), commands_.picture(u"lblClick(0)"_s)})});
    setMinimumSize(420, 380);
    commands_.bindKeys(this, all);
    on(list_, &controls::ListView::rowActivated, [this] { editRow(); });
    on(list_, &controls::ListView::menuRequested,
       [this, menu = commands_.menu(texts_.popUp, onRows)](int row, QPoint position) {
           commands_.popUp(menu, row, position);
       });
}

QVector<Command> ListEditor::commands() {
    const auto listed = [this] { return !isEditing(); };
    const auto hasRow = [this] { return !isEditing() && list_->count() > 0; };
    const auto editing = [this] { return isEditing(); };
    return {
        {texts_.newName, u"add"_s, texts_.newText, {Qt::Key_Insert}, [this] { newRow(); }, listed},
        {texts_.editName, u"edit"_s, texts_.editText, {Qt::Key_F2}, [this] { editRow(); }, hasRow, true},
        {u"mnuSave"_s, u"save"_s, u"Αποθήκευση"_s, {Qt::Key_F5}, [this] { save(); }, editing},
        {texts_.deleteName, u"delete"_s, texts_.deleteText, {Qt::Key_Delete}, [this] { deleteRow(); }, hasRow, true},
        {u"cmdCancel"_s, {}, u"Άκυρο"_s, {Qt::Key_Escape}, [this] { cancel(); }},
        {u"lblClick(0)"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { emit closeRequested(); }, listed},
    };
}

QWidget* ListEditor::buildPanel(const QString& checkCaption) {
    panel_ = named(new QGroupBox(texts_.panel), u"Frame1"_s);
    description_ = named(new controls::TextBox, u"Text1(1)"_s);
    description_->setHighlighting(true);
    auto* form = controls::formLayout();
    controls::addField(form, u" Περιγραφή"_s, description_);
    if (!checkCaption.isEmpty()) {
        Check1 = named(new QCheckBox(checkCaption), u"Check1"_s);
        form->addRow(QString(), Check1);
    }
    auto* cancel = commands_.button(u"cmdCancel"_s);
    controls::add(controls::tabLayout(panel_), {form, controls::row({Item::rest(), cancel}), Item::rest()});
    commands_.bindKeys(panel_, {u"cmdCancel"_s});
    enterRuns(description_, [this] { save(); });
    fields_.watchAll(panel_);
    return panel_;
}

void ListEditor::Refresh() {
    refresh(list_->currentTag());
}

void ListEditor::refresh(const QVariant& selected) {
    const QString statement = hasCheck() ? u"Select Description,Code,payable from ? ORDER BY Description"_s
                                         : u"Select Description,Code from ? ORDER BY Description"_s;
    QVector<controls::ListRow> rows;
    for (data::Recordset found(mod_.gConn, data::Sql(statement, data::Sql::name(table()))); !found.eof();
         found.moveNext()) {
        const bool red = hasCheck() && found[u"payable"].toBool();
        rows.append({{found[u"Description"].text()},
                     found[u"Code"].value(),
                     red ? controls::ListInk::Danger : controls::ListInk::Usual});
    }
    list_->setRows(std::move(rows));
    if (!list_->selectTag(selected)) list_->selectRow(0);
    showList();
    mod_.doors.listsChanged();
}

void ListEditor::showPanel() {
    core::limitToColumn(description_, table(), u"Description"_s);
    fields_.remember();
    stack_->setCurrentWidget(panel_);
    commands_.refresh();
    description_->setFocus(Qt::TabFocusReason);
}

void ListEditor::showList() {
    fields_.forget();
    stack_->setCurrentWidget(list_);
    commands_.refresh();
    list_->setFocus(Qt::OtherFocusReason);
}

void ListEditor::newRow() {
    record_.open(mod_.gConn, data::Sql(u"select * from ?"_s, data::Sql::name(table())));
    record_.addNew();
    description_->clear();
    if (Check1) Check1->setChecked(false);
    showPanel();
}

// Closed when there is no such row; one that another seat deleted leaves the list.
data::Recordset ListEditor::openSelected() {
    data::Recordset found;
    if (!list_->currentTag().isValid() || isEditing()) return found;
    found.open(mod_.gConn, data::Sql(u"select * from ? where code=?"_s, data::Sql::name(table()),
                                     list_->currentTag().toLongLong()));
    if (found.isEmpty()) {
        found.close();
        Refresh();
    }
    return found;
}

void ListEditor::editRow() {
    data::Recordset row = openSelected();
    if (!row.isOpen()) return;
    record_ = std::move(row);
    description_->setText(record_[u"Description"].text());
    if (Check1) Check1->setChecked(record_[u"payable"].toBool());
    showPanel();
}

void ListEditor::deleteRow() {
    data::Recordset row = openSelected();
    if (!row.isOpen()) return;
    askAndDelete(u"Είστε σίγουρος για διαγραφή του : "_s + row[u"Description"].text(), [&row] { row.remove(); });
    Refresh();
}

void ListEditor::save() {
    if (!isEditing()) return;
    if (description_->text().trimmed().isEmpty()) return complain(texts_.empty, description_);
    record_[u"Description"].setValue(description_->text());
    if (Check1) record_[u"payable"].setValue(Check1->isChecked());
    record_.update();
    const QVariant code = record_[u"Code"].value();
    record_.close();
    refresh(code);
}

bool ListEditor::cancel() {
    if (!mayLose()) return false;
    record_.close();
    showList();
    return true;
}

}  // namespace core
