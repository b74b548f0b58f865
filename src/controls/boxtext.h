// What the boxes share: which characters get in, when a box is really left, and the highlight.
#pragma once

#include <QString>

class QFocusEvent;
class QWidget;

namespace controls::detail {

// Without control characters. Line ends and tabs become one blank each, or stay when `manyLines`.
QString cleaned(const QString& text, bool manyLines);

// The focus comes or goes because of a menu, a drop-down or another window, and will come back by itself.
bool isPassing(const QFocusEvent& event);

// Marks the widget for the style sheet's highlight rule and repaints it when the mark changes.
void setHighlight(QWidget* box, bool on);
// Likewise for another property that rules of the style sheet look at.
void setMark(QWidget* box, const char* property, bool on);

}  // namespace controls::detail
