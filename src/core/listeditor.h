// A window over a short table of descriptions: the list, and a panel in which one row is added or changed.
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QStackedWidget>

#include "controls/boxes.h"
#include "controls/listview.h"
#include "core/commands.h"
#include "core/form.h"
#include "data/recordset.h"

namespace core {

// What differs between the windows of this kind.
struct ListEditorTexts {
    QString panel;                                                         // title of the edit panel
    QString empty;                                                         // message for an empty description
    QString popUp;                                                         // name of the pop-up menu
    QString newName, newText, editName, editText, deleteName, deleteText;  // of its entries
};

class ListEditor : public Form {
    Q_OBJECT
public:
    void Refresh();
    void newRow();
    void editRow();
    void deleteRow();
    bool isEditing() const { return record_.isOpen(); }

protected:
    ListEditor(MainMod& mod, const QString& name, const QString& caption, ListEditorTexts texts,
               const QString& checkCaption, const QString& symbol);

    virtual QString table() const = 0;
    bool hasCheck() const { return Check1 != nullptr; }

    void onLoad() override { Refresh(); }
    // Back to the list; false when the user goes on with what was typed.
    bool cancel();

private:
    QVector<Command> commands();
    QWidget* buildPanel(const QString& checkCaption);
    data::Recordset openSelected();
    void showPanel();
    void showList();
    void save();
    void refresh(const QVariant& selected);

    ListEditorTexts texts_;
    data::Recordset record_;  // the row under edit, closed otherwise
    controls::ListView* list_;
    Commands commands_;
    QStackedWidget* stack_;
    QGroupBox* panel_;
    controls::TextBox* description_;
    QCheckBox* Check1 = nullptr;
};

}  // namespace core
