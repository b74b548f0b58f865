// Why a password that is typed unseen may not come out as meant.
#pragma once

#include <QString>

class QKeyEvent;

namespace users {

// The toolkit doesn't tell how Caps Lock stands, so the letters do: a capital without Shift, or a small one with it.
class PasswordHint {
public:
    void typed(const QKeyEvent& key);
    // For the password as it stands; empty when nothing speaks against it.
    QString text(const QString& password) const;

private:
    bool capsLock_ = false;
};

}  // namespace users
