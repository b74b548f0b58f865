#include "schema/identity.h"

#include <QUuid>

using namespace Qt::Literals::StringLiterals;

namespace schema {

QString officeIdentity(data::Connection& main) {
    const QString property = u"office"_s;
    data::Engine& engine = main.engine();
    if (engine.property(property).isEmpty()) engine.setProperty(property, QUuid::createUuid().toString(QUuid::Id128));
    return engine.property(property);  // another seat's, if that one was the last to make it
}

}  // namespace schema
