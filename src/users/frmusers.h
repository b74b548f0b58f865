// The users of the office with their rights: a list, and a frame in its place while one of them is edited.
#pragma once

#include <QGroupBox>

#include "controls/boxes.h"
#include "controls/choicebox.h"
#include "core/commands.h"
#include "core/form.h"
#include "core/storedlist.h"
#include "data/recordset.h"

namespace users {

class frmUsers : public core::Form {
    Q_OBJECT
public:
    explicit frmUsers(core::MainMod& mod);

    void newUser();
    // Of the selected user; nothing happens when none is.
    void editUser();
    void deleteUser();
    void resume(const core::Draft& draft);
    bool isEditing() const { return mRs.isOpen(); }

protected:
    void onLoad() override;

private:
    QVector<core::Command> commands();
    void buildFrame();
    void wire();

    void refresh(qint64 selected = 0);
    bool openSelected();
    void showUser();
    void fill(const QString& name, const QString& password, const QString& group);
    void showFrame(bool shown);
    void showList(qint64 selected);
    void dropMask();
    struct Fault {
        QString text;  // empty when there is none
        QWidget* field = nullptr;
    };
    Fault fault();
    void save();
    void write(qint64 group);
    bool settleConflict();  // true when the save can be tried again
    bool addAgain();
    void showStoredPassword();
    void cancel();
    core::Draft draft();

    core::StoredList* ListView1;
    QLabel* hint_;
    QGroupBox* Frame1;
    controls::TextBox* Text1;
    controls::TextBox* Text2;
    controls::ChoiceBox* Combo1;
    core::Commands commands_;

    data::Recordset mRs;           // the row under an add or a change
    QString editedName_;           // as the row has it; null for a new user
    bool passwordStands_ = false;  // Text2 shows the mask of the stored password
};

}  // namespace users
