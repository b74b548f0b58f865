#include "core/logondelay.h"

#include <algorithm>

namespace core {

namespace {

constexpr int freeFailures = 5;
constexpr qint64 firstWait = 5;  // seconds
constexpr qint64 longestWait = 300;

}  // namespace

qint64 LogonDelay::seconds() const {
    if (failures_ < freeFailures) return 0;
    return std::min(longestWait, firstWait << std::min(failures_ - freeFailures, 10));
}

bool LogonDelay::isWaiting(const QDateTime& now) {
    if (seconds() == 0) return false;
    if (now < last_) last_ = now;
    return last_.secsTo(now) < seconds();
}

void LogonDelay::failed(const QDateTime& now) {
    ++failures_;
    last_ = now;
}

}  // namespace core
