#pragma once

class QDialog;
class QPoint;
class QWidget;

namespace cards {

// Puts a dialog over the form that `part` lies in, `offset` twips from the corner of it and inside the screen.
void placeOver(QDialog& dialog, const QWidget* part, QPoint offset);

}  // namespace cards
