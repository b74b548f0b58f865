// One look for the whole program, light or dark.
#pragma once

#include "controls/fonts.h"
#include "controls/icons.h"
#include "controls/themecolors.h"

class QApplication;

namespace controls {

enum class ThemeKind { Automatic, Light, Dark };  // Automatic follows the desktop's palette

// Sets style, palette, fonts, style sheet and the Greek texts of the toolkit's own menus; may be called again while
// windows are open.
void applyTheme(QApplication& app, ThemeKind kind);

// Twips (1/1440 inch, 15 to a pixel at 96 dpi) as the forms store placement.
constexpr int twipsPerPixel = 15;
inline int toTwips(int pixels) {
    return pixels * twipsPerPixel;
}
inline int toPixels(int twips) {
    return twips / twipsPerPixel;
}

}  // namespace controls
