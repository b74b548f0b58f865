#pragma once

#include "core/windows.h"

namespace diary {

// The windows of this room.
void addWindows(core::Windows& windows, core::MainMod& mod);

}  // namespace diary
