// Appointments on their way to other programs.
#pragma once

#include "core/mainmod.h"
#include "diary/ics.h"

namespace diary {

// Into the file that the user names, or into a letter of the mail program: the appointments are its text, and the file
// is attached where the system can. Where there are none that is told. Throw data::Error.
void saveIcs(core::MainMod& mod, QWidget* parent, const Wanted& wanted);
void mailIcs(core::MainMod& mod, QWidget* parent, const Wanted& wanted);

}  // namespace diary
