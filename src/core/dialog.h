// A modal window over another one.
#pragma once

#include <QDialog>

#include "core/fieldwatch.h"
#include "core/guarded.h"

namespace core {

// Puts a window over the form that `part` lies in, `offset` twips from the corner of it and inside the screen.
void placeOver(QWidget& window, const QWidget* part, QPoint offset);

// Esc and the frame's button leave the dialog, and ask first when a watched field was changed. Enter on a button
// presses it, in a box it moves on; a default button is pressed only from where Enter has no other meaning.
class Dialog : public QDialog, protected Guarded {
    Q_OBJECT
public:
    Dialog(MainMod& mod, QWidget* parent, const QString& name, const QString& caption);

    // Where the dialog opens.
    void placeOver(const QWidget* part, QPoint offset) { core::placeOver(*this, part, offset); }

    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

    FieldWatch fields_;        // the fields that are being edited
    QString unsavedQuestion_;  // what is asked before typed values are lost

private:
    bool shown_ = false;
};

}  // namespace core
