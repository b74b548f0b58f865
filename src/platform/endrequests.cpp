#include "platform/endrequests.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#endif

namespace platform {

#ifdef Q_OS_UNIX

namespace {

constexpr int endSignals[] = {SIGTERM, SIGHUP, SIGINT};
std::atomic<int> writeEnd = -1;

void note(int) {
    const int before = errno;
    const char byte = 1;
    if (write(writeEnd, &byte, 1) < 0) {
        // The pipe is full of earlier ones.
    }
    errno = before;
}

void handle(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART | (handler == SIG_DFL ? 0 : SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    for (const int signal : endSignals) sigaction(signal, &action, nullptr);
}

}  // namespace

EndRequests::EndRequests() {
    if (pipe(ends_) != 0) return;
    for (const int end : ends_) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    notifier_ = std::make_unique<QSocketNotifier>(ends_[0], QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
        char bytes[16];
        while (read(ends_[0], bytes, sizeof bytes) > 0) {
        }
        emit asked();
    });
    writeEnd = ends_[1];
    handle(note);
}

EndRequests::~EndRequests() {
    if (!notifier_) return;
    handle(SIG_DFL);
    notifier_.reset();
    for (const int end : ends_) close(end);
}

#else

EndRequests::EndRequests() = default;
EndRequests::~EndRequests() = default;

#endif

}  // namespace platform
