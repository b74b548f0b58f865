// A window over a short table of descriptions: the list, and a panel in which one row is added or changed.
#pragma once

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QMenu>
#include <QStackedWidget>
#include <QToolBar>
#include <functional>

#include "controls/boxes.h"
#include "controls/listview.h"
#include "controls/picturebutton.h"
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
               const QString& checkCaption);

    virtual QString table() const = 0;
    bool hasCheck() const { return Check1 != nullptr; }

    void onLoad() override;
    bool queryUnload() override;
    void onUnload() override;
    void cancel();

private:
    enum Command { New, Edit, Save, Delete };
    void build(const QString& checkCaption);
    void buildCommands();
    QWidget* buildPanel(const QString& checkCaption);
    void openSelected();
    void showPanel();
    void showList();
    void save();
    void refresh(const QVariant& selected);
    void enableCommands();
    QVariant selectedCode() const;
    void showMenu(int row, QPoint position);

    ListEditorTexts texts_;
    QToolBar* toolbar_;
    QStackedWidget* stack_;
    controls::ListView* list_;
    QGroupBox* panel_;
    controls::TextBox* description_;
    QCheckBox* Check1 = nullptr;
    controls::PictureButton* exit_;
    QVector<QAction*> commands_;
    QMenu* popUp_;
    data::Recordset record_;  // the row under edit, closed otherwise
};

}  // namespace core
