// The windows of this room, and the doors that lead to them.
#pragma once

#include "core/windows.h"

namespace cards {

void addWindows(core::Windows& windows, core::MainMod& mod);

}  // namespace cards
