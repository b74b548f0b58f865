#include "platform/processes.h"

#include <QCoreApplication>
#include <QSysInfo>

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

QByteArray processMark() {
    const QByteArrayList lines = {QSysInfo::machineHostName().toUtf8(), QSysInfo::bootUniqueId(),
                                  QByteArray::number(QCoreApplication::applicationPid())};
    return lines.join('\n') + '\n';
}

namespace {

// The number of a mark's process, when it was one of this run of this machine; 0 when that can't be told.
qint64 processHere(const QByteArray& mark) {
    const QByteArrayList lines = mark.split('\n');
    const QByteArray boot = QSysInfo::bootUniqueId();
    const bool here =
        lines.size() > 2 && !boot.isEmpty() && lines[1] == boot && lines[0] == QSysInfo::machineHostName().toUtf8();
    return here ? lines[2].toLongLong() : 0;
}

}  // namespace

bool isGone(const QByteArray& mark) {
    const qint64 pid = processHere(mark);
    return pid > 0 && !processRuns(pid);
}

bool runsBeside(const QByteArray& mark) {
    const qint64 pid = processHere(mark);
    return pid > 0 && pid != QCoreApplication::applicationPid() && processRuns(pid);
}

}  // namespace platform
