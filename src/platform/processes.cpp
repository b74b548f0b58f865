#include "platform/processes.h"

#ifdef Q_OS_UNIX
#include <signal.h>

#include <cerrno>
#endif

namespace platform {

bool processRuns(qint64 pid) {
#ifdef Q_OS_UNIX
    return pid <= 0 || kill(pid_t(pid), 0) == 0 || errno != ESRCH;
#else
    Q_UNUSED(pid);
    return true;
#endif
}

}  // namespace platform
