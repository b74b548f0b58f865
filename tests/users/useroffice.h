// An office with users.
#pragma once

#include "data/opening/password.h"
#include "support/office.h"
#include "users/credentials.h"

namespace support {

struct UserOffice : Office {
    // `stored` stands in the table as it is.
    void addUser(const QString& name, const QString& stored, const QVariant& group) {
        data::Recordset users(mod.gConnUsers, "select * from users");
        users.addNew();
        users[u"UserName"].setValue(name);
        users[u"Password"].setValue(stored);
        users[u"Group"].setValue(group);
        users.update();
    }
    static QString verifier(const QString& password) { return data::makeVerifier(password, data::PasswordCost::Light); }
    bool knows(const QString& name, const QString& password) {
        return users::authenticate(mod.gConnUsers, name, password).has_value();
    }
    // A cell of the users' database.
    QString stored(const QString& sql) {
        data::Recordset row(mod.gConnUsers, sql);
        return row.isEmpty() ? QString() : row.field(0).text();
    }
};

}  // namespace support
