#include "admin/seat.h"

#include "data/error.h"

using namespace Qt::Literals::StringLiterals;

namespace admin {

Seat::Seat(const QString& folder) {
    QObject::connect(&lock_, &copies::SeatLock::lost, [this] { lost_ = true; });
    lock_.take(folder, platform::fileSystemKind);
    sinceTouch_.start();
}

void Seat::keep() {
    if (lock_.isHeld() && sinceTouch_.hasExpired(copies::SeatLock::touchSeconds * 1000LL)) {
        lock_.touch();
        sinceTouch_.start();
    }
    if (lost_)
        throw data::Error(data::ErrorCategory::Busy,
                          u"Μια άλλη θέση πήρε τον φάκελο των δεδομένων. Η εργασία διακόπηκε."_s);
}

schema::Progress Seat::watched(const schema::Progress& progress) {
    return [this, progress](const QString& what, int percent) {
        keep();
        return progress(what, percent);
    };
}

}  // namespace admin
