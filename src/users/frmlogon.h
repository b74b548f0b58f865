#pragma once

#include <QDialog>

#include "controls/boxes.h"
#include "core/mainmod.h"

class QLabel;
class QPushButton;

namespace users {

// Asks for user and password. accepted() comes after gUserName and gUserGroup are set.
class frmLogon : public QDialog {
    Q_OBJECT
public:
    explicit frmLogon(core::MainMod& mod);

private:
    void build();
    void logon();
    void refuse();

    core::MainMod& mod_;
    controls::TextBox* Text1;
    controls::TextBox* Text2;
    QPushButton* Command1;
    QPushButton* Command2;
    QLabel* status_;
};

}  // namespace users
