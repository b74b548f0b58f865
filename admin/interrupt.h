// Long commands: what they say while they work, and how they are stopped.
#pragma once

#include "schema/progress.h"

namespace admin {

// A line at each new thing that is done and at each further fifth of it, on standard error. From here on Ctrl+C and a
// request to end don't kill the process: they break the work off, which clears up behind itself.
schema::Progress progressLines();

}  // namespace admin
