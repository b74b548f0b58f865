// One look for the whole program, light or dark.
#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QString>

class QApplication;

namespace controls {

enum class ThemeKind { Automatic, Light, Dark };  // Automatic follows the desktop's palette

// Text colours (text, mutedText, danger) read at 4.5:1 or better on window, base and alternateBase, and accentText on
// accent. Disabled and read-only text is never paler than mutedText.
struct Theme {
    bool dark = false;
    QColor window, base, alternateBase, text, mutedText, border, accent, accentText, highlightBox, danger;
};

// Sets style, palette, fonts, style sheet and the Greek texts of the toolkit's own menus; may be called again while
// windows are open.
void applyTheme(QApplication& app, ThemeKind kind);
const Theme& theme();

// Fonts by the names that the forms use ("Tahoma", "Arial Greek", "MS Sans Serif", "Courier New Greek"), mapped to
// installed families that have Greek.
QFont font(const QString& name, double points, bool bold = false);

// A symbol of assets/icons by name ("next", "save"), coloured for the theme, sharp at every scale. Modes
// Normal, Active, Disabled and Selected have their colours, and follow a later change of the theme. An unknown name
// gives a null icon. "dorvalist" is the program's own, in its own colours.
QIcon icon(const QString& name);

// Twips (1/1440 inch, 15 to a pixel at 96 dpi) as the forms store placement.
constexpr int twipsPerPixel = 15;
inline int toTwips(int pixels) {
    return pixels * twipsPerPixel;
}
inline int toPixels(int twips) {
    return twips / twipsPerPixel;
}

}  // namespace controls
