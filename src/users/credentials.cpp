#include "users/credentials.h"

#include "core/mainmod.h"
#include "data/opening/password.h"
#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

namespace users {

namespace {

bool accepts(data::Recordset& row, QStringView column, const QString& password) {
    if (row[column].isNull()) return false;
    const QString stored = row[column].text();
    if (!data::verifyPassword(stored, password)) return false;
    if (!data::isVerifier(stored)) {
        row[column].setValue(data::makeVerifier(password));
        row.update();
    }
    return true;
}

}  // namespace

std::optional<Session> authenticate(data::Connection& users, const QString& userName, const QString& password) {
    if (userName == u"Admin"_s) {
        data::Recordset admin(users, u"select pass from admin"_s);
        if (!admin.isEmpty() && accepts(admin, u"pass", password)) return Session{userName, core::groupAdministrators};
    }
    data::Recordset user(users, data::Sql(u"select * from users where UserName=?"_s, userName));
    if (user.isEmpty()) {
        // A name that nobody has takes as long to refuse as a wrong password.
        static const QString nobody = data::makeVerifier(u"-"_s);
        data::verifyPassword(nobody, password);
        return std::nullopt;
    }
    if (accepts(user, u"Password", password)) return Session{userName, static_cast<int>(user[u"Group"].toDouble())};
    return std::nullopt;
}

}  // namespace users
