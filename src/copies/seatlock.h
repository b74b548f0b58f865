// One seat at a time on a database file that lies on a network file system.
//
// Seats on one machine share SQLite's journal index in memory; on a network file system they can't. So one seat gets
// in: it makes a lock file `dorvalist.seat` exclusively, which names host and process, and writes it anew every minute.
// It is taken over when its process is gone or after five minutes without that. The file's age is the difference to a
// file made just then in the same folder, so that only the file server's clock counts. Whoever finds his own text in
// the file removes it, after a rename out of the others' way; the file system's own locks aren't used, since a
// mandatory one would keep the others from reading the file.
//
// A folder needs the seat unless both its databases are on a server. One with a damaged database needs it too, or a
// second seat would restore over the first. FUSE counts as network, also with a local disk behind it.
#pragma once

#include <QDateTime>
#include <QTimer>
#include <functional>

#include "platform/filesystemkind.h"

namespace copies {

// The embedded engine keeps part of its bookkeeping in memory that seats on one machine share; seats on several
// machines would each have their own and damage the file. A lock file beside the databases tells a second seat so. It
// names machine and process, is written anew every minute, and is taken over when its process is gone or it was left
// alone for some minutes. Its age is told by the clock of the file server, never by that of a seat. No lock of the
// file system stands on it: on some shares that would keep the others from reading whose it is.
class SeatLock : public QObject {
    Q_OBJECT
public:
    using Probe = std::function<platform::FileSystemKind(const QString& folder)>;
    static constexpr int touchSeconds = 60;
    static constexpr int staleSeconds = 300;

    SeatLock();
    ~SeatLock() override;

    // Takes the seat, giving back one held before. There is nothing to take on a local file system, nor when both of
    // the folder's databases are on a server, which has room for all; one that is damaged or missing is none of these.
    // Throws data::Error(Busy) when somebody else has it.
    void take(const QString& folder, const Probe& probe);
    // The file stays when somebody else took the seat over: it's his.
    void giveBack();
    bool isHeld() const { return !mark_.isEmpty(); }

    // Shows the others that the seat is still in use; the timer calls it.
    void touch();

    // What time it is for the files in a folder; an invalid one when nothing can be written there.
    std::function<QDateTime(const QString& folder)> folderTime;

signals:
    // Somebody else took the seat while this machine slept, or the folder is gone: nothing may be written any more.
    void lost();

private:
    void touchIfDue();

    QString file_;
    QByteArray mark_;  // the file's text while it is ours
    QDateTime touched_;
    QTimer timer_;
};

}  // namespace copies
