// The colours of a grid's cells by what a cell stands for, light or dark as the theme is.
#pragma once

#include <QColor>

namespace controls {

enum class CellRole {
    Plain,
    Free,      // a slot that nothing takes
    Header,    // a cell of the grid that heads others
    Today,     // today's day
    Selected,  // the chosen day
    BusyTime,  // the time of a taken slot
    BusyText,  // what takes it
};

struct CellColors {
    QColor ground, ink;  // the ink reads at 4.5:1 or better on the ground
};
CellColors cellColors(CellRole role);

}  // namespace controls
