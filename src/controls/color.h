#pragma once

#include <QColor>

namespace controls {

// `share` of the way from one colour to the other, 0 to 1.
inline QColor mixed(const QColor& from, const QColor& to, double share) {
    const auto channel = [share](int a, int b) { return int(a + (b - a) * share + 0.5); };
    return QColor(channel(from.red(), to.red()), channel(from.green(), to.green()), channel(from.blue(), to.blue()));
}

}  // namespace controls
