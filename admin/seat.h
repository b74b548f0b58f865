// The seat of an office whose files lie on a network file system.
#pragma once

#include <QElapsedTimer>

#include "copies/seatlock.h"
#include "schema/progress.h"

namespace admin {

// Has the seat as long as it lives, for reading too, since even a reader shares the embedded engine's bookkeeping. On a
// local file system and with a server's databases there is none to have. Throws data::Error(Busy) as the program would
// refuse to start.
class Seat {
public:
    explicit Seat(const QString& folder);

    // Long work shows now and then that the seat is in use, and ends with data::Error(Busy) when it was lost.
    void keep();
    schema::Progress watched(const schema::Progress& progress);

private:
    copies::SeatLock lock_;
    QElapsedTimer sinceTouch_;
    bool lost_ = false;
};

}  // namespace admin
