// The colours of the program's look, light or dark.
#pragma once

#include <QColor>

namespace controls {

// Text colours (text, mutedText, danger) read at 4.5:1 or better on window, base and alternateBase, and accentText on
// accent. Disabled and read-only text is never paler than mutedText.
struct Theme {
    bool dark = false;
    QColor window, base, alternateBase, text, mutedText, border, accent, accentText, highlightBox, danger;
};

// Those in use; light at first. applyTheme chooses.
const Theme& theme();
void useThemeColors(bool dark);

}  // namespace controls
