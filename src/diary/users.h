// Whose diary it is.
#pragma once

#include "controls/choicebox.h"
#include "core/mainmod.h"

namespace diary {

// An empty entry for everybody, Admin, and all users by name; the chosen one stays. Nobody of the restricted group
// chooses here: he sees and writes under his own name only.
void fillUsers(core::MainMod& mod, controls::ChoiceBox& list);

// Shows this user, also one who isn't in the list (any more).
void chooseUser(controls::ChoiceBox& list, const QString& user);

}  // namespace diary
