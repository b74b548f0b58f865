// The windows of this room.
#pragma once

#include "core/windows.h"

namespace users {

void addWindows(core::Windows& windows, core::MainMod& mod);

}  // namespace users
