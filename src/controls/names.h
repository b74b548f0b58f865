// Names for tests, screen readers and style sheets; members of control arrays carry their index.
#pragma once

#include <QLabel>
#include <QString>
#include <QTabWidget>
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
// The caption of a field that stands in a holder of its own, once more, hidden beside it: a screen reader looks for a
// field's caption among its neighbours alone. May be called again when the caption has changed.
void tieInside(QWidget* field, const QString& caption);

// The tab in front is told as the selected one; the toolkit tells a screen reader of none.
void tellSelectedTab(QTabWidget* tabs);

}  // namespace controls
