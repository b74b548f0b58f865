// Going on with what a former run couldn't save.
#pragma once

#include "core/windows.h"

namespace core {

// Asks for each draft of this user and office whether to go on with it, to throw it away, or to keep it for the next
// logon. Kinds of windows come in the order in which the rooms added them.
void offerDrafts(MainMod& mod, const Windows& windows, QWidget* parent);

}  // namespace core
