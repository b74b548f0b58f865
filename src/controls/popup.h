#pragma once

class QWidget;

namespace controls::detail {

// Esc in this pop-up belongs to the pop-up: no shortcut of the form that it lies over runs. May be called again.
void keepEscape(QWidget* popup);

}  // namespace controls::detail
