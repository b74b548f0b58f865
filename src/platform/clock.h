#pragma once

#include <QDateTime>

namespace platform {

// What time it is, as the clock on the wall shows it (labelled Qt::UTC, so that comparisons see no time zone).
class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
    QDate today() const { return now().date(); }
};

class SystemClock : public Clock {
public:
    QDateTime now() const override;
};

}  // namespace platform
