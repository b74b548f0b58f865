#pragma once

#include <QtGlobal>

namespace platform {

// Whether a process of this number runs on this machine; what can't be told counts as running.
bool processRuns(qint64 pid);

}  // namespace platform
