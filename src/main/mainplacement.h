// Where the main window stands, and how large it is.
#pragma once

#include <QWidget>

#include "platform/settings.h"

namespace entry {

// As it was stored, as far as the screen allows; the title bar stays on the screen.
void place(QWidget& window, const platform::Settings& settings);
bool hasStoredSize(const platform::Settings& settings);
// The normal size of a maximised window; a minimised one stores nothing.
void storePlacement(const QWidget& window, platform::Settings& settings);
// By so many pixels, as far as the screen allows; a maximised window stays as it is.
void grow(QWidget& window, QSize missing);

}  // namespace entry
