#pragma once

#include <QIcon>
#include <QString>

namespace controls {

// A symbol of assets/icons by name ("next", "save"), coloured for the theme, sharp at every scale. Modes
// Normal, Active, Disabled and Selected have their colours, and follow a later change of the theme. An unknown name
// gives a null icon. "dorvalist" is the program's own, in its own colours.
QIcon icon(const QString& name);

}  // namespace controls
