#include "platform/clock.h"

namespace platform {

QDateTime SystemClock::now() const {
    const QDateTime local = QDateTime::currentDateTime();
    return QDateTime(local.date(), local.time(), Qt::UTC);
}

}  // namespace platform
