// The row of picture buttons under the card.
#pragma once

#include <QHash>
#include <QSet>
#include <QWidget>
#include <functional>

#include "controls/picturebutton.h"
#include "core/mainmod.h"

namespace cards {

enum class CardButton {
    Previous = 1,
    Search = 2,
    Next = 3,
    AddNew = 5,
    Edit = 6,
    Delete = 7,
    Save = 9,
    Cancel = 10,
    Exit = 11,
    Print = 12,
};

class ButtonRow : public QWidget {
    Q_OBJECT
public:
    ButtonRow(core::MainMod& mod, QWidget* parent = nullptr);

    // Which buttons can be pressed: while browsing all but save and cancel (and for the restricted group the
    // three that change cards), while editing those two alone. Print isn't touched.
    void setBrowsing(bool restricted);
    void setEditing();
    controls::PictureButton* button(CardButton id) const { return buttons_.value(id); }

signals:
    void pressed(cards::CardButton id);

private:
    core::MainMod& mod_;
    QHash<CardButton, controls::PictureButton*> buttons_;
};

}  // namespace cards
