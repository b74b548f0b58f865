#pragma once

#include <QString>
#include <QWidget>

namespace core {

// A field for texts takes no more characters than this column of either database holds; a column without a limit, and a
// field of another kind, stay as they are.
void limitToColumn(QWidget* field, const QString& table, const QString& column);

}  // namespace core
