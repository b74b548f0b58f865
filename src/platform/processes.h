#pragma once

#include <QByteArray>

namespace platform {

// Whether a process of this number runs on this machine; what can't be told counts as running.
bool processRuns(qint64 pid);

// Three lines that name this process for ever: its machine, the machine's run, its number.
QByteArray processMark();
// Whether the process of such a mark is known to be gone: it was one of this very run of this machine. The machine's
// name alone wouldn't do, since disks are copied with it.
bool isGone(const QByteArray& mark);
// Whether it is known to run at this moment, and is another one than this.
bool runsBeside(const QByteArray& mark);

}  // namespace platform
