#pragma once

#include <QString>

namespace demo {

// A Greek name in small Latin letters, as people spell themselves in e-mail addresses; anything else is left out.
QString latinName(QStringView greek);

}  // namespace demo
