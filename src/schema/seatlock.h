// One seat at a time on a database file that lies on a network file system.
#pragma once

#include <QLockFile>
#include <QTimer>
#include <functional>
#include <memory>

#include "platform/filesystemkind.h"

namespace schema {

// The embedded engine keeps part of its bookkeeping in memory that seats on one machine share; seats on several
// machines would each have their own and damage the file. A lock file beside the databases tells a second seat so. It
// names machine and process, is touched every minute, and is taken over when its process is gone or it was left
// untouched for some minutes.
class SeatLock : public QObject {
    Q_OBJECT
public:
    using Probe = std::function<platform::FileSystemKind(const QString& folder)>;
    static constexpr int touchSeconds = 60;
    static constexpr int staleSeconds = 300;

    SeatLock();
    ~SeatLock() override;

    // Takes the seat, giving back one held before. On a local file system there is nothing to take. Throws
    // data::Error(Busy) when somebody else has it.
    void take(const QString& folder, const Probe& probe);
    void giveBack();
    bool isHeld() const { return lock_ != nullptr; }

    // Shows the others that the seat is still in use; the timer calls it.
    void touch();

signals:
    // Somebody else took the seat while this machine slept, or the folder is gone: nothing may be written any more.
    void lost();

private:
    std::unique_ptr<QLockFile> lock_;
    QString file_;
    QTimer timer_;
};

}  // namespace schema
