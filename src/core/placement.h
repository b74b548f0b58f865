// Where windows stood last time, in twips in section "Settings".
#pragma once

#include <QPoint>
#include <QRect>
#include <QString>

#include "platform/settings.h"

namespace core {

// Keys are `prefix` followed by Left and Top (and Width and Height); defaults in twips.
struct Placement {
    QString prefix;
    int left = 1000;
    int top = 0;
};

QPoint loadPosition(const platform::Settings& settings, const Placement& placement);  // pixels
void storePosition(platform::Settings& settings, const Placement& placement, QPoint position);

// The rectangle moved, and cut if it must be, so that it lies inside `area`: a stored place may belong to a
// screen that is gone.
QRect fitInto(QRect wanted, const QRect& area);

}  // namespace core
