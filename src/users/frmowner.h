#pragma once

#include <QDialog>

#include "controls/boxes.h"
#include "core/mainmod.h"

namespace users {

// The owner's name, address, telephone and e-mail, which head every printout. Only the name is mandatory.
class frmOwner : public QDialog {
    Q_OBJECT
public:
    explicit frmOwner(core::MainMod& mod, QWidget* parent = nullptr);

private:
    void store();

    core::MainMod& mod_;
    QVector<controls::TextBox*> Text7;
};

}  // namespace users
