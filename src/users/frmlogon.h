#pragma once

#include <QLabel>

#include "controls/boxes.h"
#include "core/commands.h"
#include "core/dialog.h"
#include "users/passwordhint.h"

namespace users {

// Asks for user and password. accepted() comes after gUserName and gUserGroup are set.
class frmLogon : public core::Dialog {
    Q_OBJECT
public:
    explicit frmLogon(core::MainMod& mod);

    // Offers to open the office once more while a database of it is closed.
    void showRetry();

signals:
    void retryWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLayout* head() const;
    void showHint();
    void logon();
    void refuse();

    controls::TextBox* Text1;
    controls::TextBox* Text2;
    QLabel *hint_, *status_;
    QPushButton* retry_;
    PasswordHint passwordHint_;
    core::Commands commands_;
};

}  // namespace users
