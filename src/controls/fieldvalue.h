// The content of any field that a user fills in, whatever its kind.
#pragma once

#include <QVariant>
#include <QWidget>
#include <functional>

namespace controls {

// The text of a box or choice, the mark of a check box, the number of a spin box; invalid for any other widget.
QVariant fieldValue(const QWidget* field);
// As fieldValue() gave it; nothing happens for any other widget.
void setFieldValue(QWidget* field, const QVariant& value);

// Runs something whenever such a value changes, by whatever hand, while `context` lives.
void whenFieldChanges(const QWidget* field, QObject* context, const std::function<void()>& run);

// All widgets inside `container` that have such a value, in the order of their making.
QList<QWidget*> fieldsIn(const QWidget* container);

}  // namespace controls
