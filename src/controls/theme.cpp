#include "controls/theme.h"

#include <QApplication>
#include <QFile>
#include <QPalette>

#include "controls/color.h"
#include "controls/lookstyle.h"
#include "controls/resources.h"
#include "controls/toolkittexts.h"

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

constexpr double uiPoints = 10;

bool desktopIsDark() {
    // The palette at the first call, before this program's own has replaced it.
    static const bool dark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    return dark;
}

QPalette paletteOf(const Theme& look) {
    QPalette palette(look.text, look.window, look.dark ? look.border : QColor(Qt::white), look.window.darker(140),
                     look.border, look.text, look.base);
    const std::pair<QPalette::ColorRole, QColor> roles[] = {
        {QPalette::Window, look.window},
        {QPalette::WindowText, look.text},
        {QPalette::Base, look.base},
        {QPalette::AlternateBase, look.alternateBase},
        {QPalette::Text, look.text},
        {QPalette::PlaceholderText, look.mutedText},
        {QPalette::Button, look.window},
        {QPalette::ButtonText, look.text},
        {QPalette::Highlight, look.accent},
        {QPalette::HighlightedText, look.accentText},
        {QPalette::ToolTipBase, look.base},
        {QPalette::ToolTipText, look.text},
        {QPalette::Link, look.dark ? mixed(look.accent, look.text, 0.55) : look.accent},
        {QPalette::LinkVisited, look.mutedText},
        {QPalette::BrightText, look.danger},
        // The ground behind the windows of the main window.
        {QPalette::Dark, look.dark ? look.window.darker(120) : mixed(look.window, look.border, 0.5)},
    };
    for (const auto& [role, color] : roles) palette.setColor(role, color);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, look.mutedText);
    palette.setColor(QPalette::Disabled, QPalette::Base, look.window);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, look.border);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, look.text);
    return palette;
}

// The style sheet with its @names replaced by the theme's colours.
QString styleSheetOf(const Theme& look) {
    QFile file(u":/dorvalist/theme.qss"_s);
    if (!file.open(QIODevice::ReadOnly)) return {};
    QString sheet = QString::fromUtf8(file.readAll());
    // A name that begins with another one comes before it.
    const std::pair<QString, QString> names[] = {
        {u"@windowHover"_s, mixed(look.window, look.accent, 0.12).name()},
        {u"@windowPressed"_s, mixed(look.window, look.accent, 0.26).name()},
        {u"@windowSunk"_s, mixed(look.window, look.text, 0.05).name()},
        {u"@window"_s, look.window.name()},
        {u"@button"_s, (look.dark ? mixed(look.window, look.text, 0.10) : look.base).name()},
        {u"@readOnly"_s, mixed(look.window, look.base, 0.3).name()},
        {u"@base"_s, look.base.name()},
        {u"@alternateBase"_s, look.alternateBase.name()},
        {u"@text"_s, look.text.name()},
        {u"@mutedText"_s, look.mutedText.name()},
        {u"@borderStrong"_s, mixed(look.border, look.text, 0.3).name()},
        {u"@borderSoft"_s, mixed(look.border, look.window, 0.45).name()},
        {u"@border"_s, look.border.name()},
        {u"@accentText"_s, look.accentText.name()},
        {u"@accentStrong"_s, mixed(look.accent, look.text, 0.5).name()},
        {u"@accent"_s, look.accent.name()},
        {u"@focus"_s, (look.dark ? mixed(look.accent, look.text, 0.35) : look.accent).name()},
        {u"@link"_s, look.dark ? look.accent.lighter(190).name() : look.accent.name()},
        {u"@kind"_s, look.dark ? u"dark"_s : u"light"_s},
        {u"@highlightBox"_s, look.highlightBox.name()},
        {u"@danger"_s, look.danger.name()},
    };
    for (const auto& [name, value] : names) sheet.replace(name, value);
    return sheet;
}

}  // namespace

void applyTheme(QApplication& app, ThemeKind kind) {
    registerResources();
    const bool desktop = desktopIsDark();
    const bool dark = kind == ThemeKind::Automatic ? desktop : kind == ThemeKind::Dark;
    useThemeColors(dark);
    useGreekToolkitTexts(app);
    QApplication::setStyle(new LookStyle);
    QApplication::setPalette(paletteOf(theme()));
    QApplication::setFont(font(u"Tahoma"_s, uiPoints));
    app.setStyleSheet(styleSheetOf(theme()));
}

}  // namespace controls
