// Names for tests, screen readers and style sheets; members of control arrays carry their index.
#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>

namespace controls {

using namespace Qt::Literals::StringLiterals;

inline QString arrayName(const QString& array, int index) {
    return u"%1(%2)"_s.arg(array).arg(index);
}

// Gives a widget its object name and returns it.
template <typename W>
W* named(W* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}

// Ties a caption to its field: buddy, accessible name (the caption without colon, blanks and ampersands).
void tie(QLabel* label, QWidget* field);
void setAccessibleCaption(QWidget* field, const QString& caption);

}  // namespace controls
