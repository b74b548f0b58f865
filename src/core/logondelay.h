// The brake on guessing passwords.
#pragma once

#include <QDateTime>

namespace core {

// After five wrong passwords in a row every further try has to wait: 5 seconds, then twice as long each time, at most
// 300. Lives as long as the run, so that logging off lifts nothing.
class LogonDelay {
public:
    // A try at this moment counts for nothing, a right one neither. A clock that was set back restarts the wait
    // at hand, so that it never grows beyond its length.
    bool isWaiting(const QDateTime& now);
    void failed(const QDateTime& now);
    void succeeded() { failures_ = 0; }

private:
    qint64 seconds() const;

    int failures_ = 0;
    QDateTime last_;  // the last failure
};

}  // namespace core
