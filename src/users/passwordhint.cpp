#include "users/passwordhint.h"

#include <QKeyEvent>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace users {

void PasswordHint::typed(const QKeyEvent& key) {
    if (key.key() == Qt::Key_CapsLock) {
        capsLock_ = false;  // the next letter tells
        return;
    }
    if (key.text().isEmpty()) return;
    const QChar typed = key.text()[0];
    const bool hasCase = typed.isUpper() || typed.isLower();
    if (hasCase) capsLock_ = typed.isUpper() != key.modifiers().testFlag(Qt::ShiftModifier);
}

QString PasswordHint::text(const QString& password) const {
    if (password.isEmpty()) return {};
    const bool greek = std::any_of(password.begin(), password.end(),
                                   [](QChar c) { return c.isLetter() && c.script() == QChar::Script_Greek; });
    QStringList hints;
    if (capsLock_) hints << u"Το Caps Lock είναι ενεργό."_s;
    if (greek) hints << u"Το πληκτρολόγιο γράφει ελληνικά."_s;
    return hints.join(u' ');
}

}  // namespace users
