// What a cell of a grid shows and says.
#pragma once

#include <QString>

#include "controls/cellcolors.h"

namespace controls {

struct GridCell {
    QString text;
    CellRole role = CellRole::Plain;
    bool bold = false;
    bool dot = false;  // a small mark in the corner: there is something behind the cell
    bool off = false;  // stands for nothing: no key leads to it, no click acts on it
    Qt::Alignment alignment = Qt::AlignCenter;
    QString spoken = {};   // what a screen reader says; the text when empty
    QString toolTip = {};  // plain text, in lines
};

struct GridHead {
    QString text;
    QString spoken = {};  // the text when empty
};

}  // namespace controls
