// Who may log on.
#pragma once

#include <QString>
#include <optional>

#include "data/connection.h"

namespace users {

struct Session {
    QString userName;
    int group = 0;
};

// The user behind a name and a password, nothing when there is none. The built-in Admin first, then the table of users.
// A clear password left by an older installation is accepted and replaced by its verifier. Throws data::Error.
std::optional<Session> authenticate(data::Connection& users, const QString& userName, const QString& password);

}  // namespace users
