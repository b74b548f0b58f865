// How Enter walks through a form.
#pragma once

#include <QWidget>

namespace controls {

// A button that belongs to the field beside it: Tab, Space and the mouse reach it, Enter passes over it. Tool buttons
// are such by themselves, unless told that they stand alone.
void standBeside(QWidget* button, bool beside = true);
bool standsBeside(const QWidget* widget);

// Moves the focus from `field` to the next field, as Tab does, but past the buttons that stand beside fields.
void moveOn(QWidget* field);

}  // namespace controls
