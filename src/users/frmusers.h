// The users of the office with their rights: a list, and a frame in its place while one of them is edited.
#pragma once

#include "controls/boxes.h"
#include "controls/choicebox.h"
#include "controls/listview.h"
#include "core/form.h"
#include "data/recordset.h"
#include "users/accounts.h"

class QGroupBox;
class QMenu;
class QPushButton;

namespace users {

class frmUsers : public core::Form {
    Q_OBJECT
public:
    explicit frmUsers(core::MainMod& mod);

    void newUser();
    // Of the selected user; nothing happens when none is.
    void editUser();
    void deleteUser();

protected:
    void onLoad() override;
    bool queryUnload() override;
    void onUnload() override;

private:
    void buildList();
    void buildFrame();
    void buildMenu();
    void wire();
    void popUp(int row, QPoint position);

    void refresh(qint64 selected = 0);
    bool openSelected();
    void showFrame();
    void showList(qint64 selected);
    QStringList typed() const;
    void dropMask();
    bool isComplete();
    void save();
    void cancel();

    controls::ListView* ListView1;
    QLabel* hint_;
    QGroupBox* Frame1;
    controls::TextBox* Text1;
    controls::TextBox* Text2;
    controls::ChoiceBox* Combo1;
    QPushButton* Command1;
    QPushButton* Command2;
    QMenu* mnu1;
    QAction* mnuNewUser;
    QAction* mnuEditUser;
    QAction* mnuDeleteUser;

    QVector<Account> accounts_;
    data::Recordset mRs;           // the row under an add or a change
    QString editedName_;           // as the row has it; null for a new user
    bool passwordStands_ = false;  // Text2 shows the mask of the stored password
    QStringList shown_;            // what the frame showed at first
};

}  // namespace users
