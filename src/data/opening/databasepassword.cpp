#include "data/opening/databasepassword.h"

#include "data/opening/password.h"

using namespace Qt::Literals::StringLiterals;

namespace data {

static const QString passwordProperty = u"password"_s;

void setDatabasePassword(Engine& engine, const QString& password) {
    engine.setProperty(passwordProperty, password.isEmpty() ? QString() : makeVerifier(password, PasswordCost::Light));
}

QString databaseVerifier(Engine& engine) {
    return engine.property(passwordProperty);
}

bool isInternalTable(QStringView name) {
    return name.startsWith(u'_') || name.startsWith(u"sqlite_", Qt::CaseInsensitive);
}

}  // namespace data
