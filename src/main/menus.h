// The menu tree of the main window as one table.
#pragma once

#include <QString>
#include <QVector>

#include "core/contactnoun.h"

namespace entry {

struct MenuDef {
    QString name;
    QString parent;   // empty on the bar
    QString caption;  // "-" is a separator
    QString form;     // the window that the entry opens; empty for entries with an action of their own and for submenus
};

const QVector<MenuDef>& menuDefs();

struct MenuState {
    int userGroup = 0;
    int category = 1;                             // contact noun
    std::function<bool(const QString&)> isBuilt;  // whether a form can be opened
};

// Caption and visibility of one entry. Submenus count as visible here; one without visible entries is hidden by the
// caller.
QString menuCaption(const MenuDef& def, const core::ContactNoun& noun);
bool menuVisible(const MenuDef& def, const MenuState& state);

}  // namespace entry
