#include "controls/cellcolors.h"

#include "controls/color.h"
#include "controls/themecolors.h"

namespace controls {

CellColors cellColors(CellRole role) {
    const Theme& look = theme();
    const QColor strong = look.dark ? Qt::white : Qt::black;
    const auto pick = [&](const char* light, const char* dark) { return CellColors{look.dark ? dark : light, strong}; };
    switch (role) {
        case CellRole::Plain:
        case CellRole::Free:
            break;
        case CellRole::Header:
            return {mixed(look.window, look.text, 0.12), look.text};
        case CellRole::Today:
            return pick("#FF8080", "#983A3A");
        case CellRole::BusyTime:
            return pick("#FFC080", "#85511C");
        case CellRole::Selected:
        case CellRole::BusyText:
            return pick("#8080FF", "#4A4AB4");
    }
    return {look.base, look.text};
}

}  // namespace controls
