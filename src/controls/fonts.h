#pragma once

#include <QFont>
#include <QString>

namespace controls {

// Fonts by the names that the forms use ("Tahoma", "Arial Greek", "MS Sans Serif", "Courier New Greek"), mapped to
// installed families that have Greek.
QFont font(const QString& name, double points, bool bold = false);

}  // namespace controls
