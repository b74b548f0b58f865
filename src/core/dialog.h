// A modal window over another one.
#pragma once

#include <QDialog>

#include "core/editing.h"

namespace core {

// Puts a window over the form that `part` lies in, `offset` twips from the corner of it and inside the screen.
void placeOver(QWidget& window, const QWidget* part, QPoint offset);

// Esc and the frame's button leave the dialog, and ask first when a watched field was changed. Enter on a button
// presses it, in a box it moves on; a default button is pressed only from where Enter has no other meaning.
class Dialog : public QDialog, protected Editing {
    Q_OBJECT
public:
    // `symbol` is the icon of its frame, a name of assets/icons.
    Dialog(MainMod& mod, QWidget* parent, const QString& name, const QString& caption,
           const QString& symbol = usualSymbol);

    // Where the dialog opens.
    void placeOver(const QWidget* part, QPoint offset) { core::placeOver(*this, part, offset); }

    // The first showing makes a dialog that is larger than the screen scroll.
    void setVisible(bool visible) override;
    void accept() override;
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void fitScreen();

    bool shown_ = false;
};

}  // namespace core
