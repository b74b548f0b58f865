#include "controls/themecolors.h"

namespace controls {

namespace {

const Theme lightTheme{.dark = false,
                       .window = "#F3F5F7",
                       .base = "#FFFFFF",
                       .alternateBase = "#F7F9FA",
                       .text = "#1D2733",
                       .mutedText = "#566270",
                       .border = "#7F8893",
                       .accent = "#0E7086",
                       .accentText = "#FFFFFF",
                       .highlightBox = "#FFFFC0",
                       .danger = "#B3261E"};

const Theme darkTheme{.dark = true,
                      .window = "#20262C",
                      .base = "#293038",
                      .alternateBase = "#2E363F",
                      .text = "#E6EAEE",
                      .mutedText = "#A9B4BF",
                      .border = "#7D8894",
                      .accent = "#23798C",
                      .accentText = "#FFFFFF",
                      .highlightBox = "#454224",
                      .danger = "#FF9C92"};

const Theme* current = &lightTheme;

}  // namespace

const Theme& theme() {
    return *current;
}

void useThemeColors(bool dark) {
    current = dark ? &darkTheme : &lightTheme;
}

}  // namespace controls
