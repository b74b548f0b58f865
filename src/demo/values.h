// Drawn values in the forms in which columns take them.
#pragma once

#include <QVariant>

#include "data/values/format.h"

namespace demo {

inline QVariant textOrNull(const QString& text) {
    return text.isEmpty() ? QVariant() : QVariant(text);
}
inline QVariant dateOrNull(QDate day) {
    return day.isValid() ? QVariant(data::wallClock(day)) : QVariant();
}
inline QVariant timeOrNull(QTime time) {
    return time.isValid() ? QVariant(data::wallClock(QDate(1899, 12, 30), time)) : QVariant();
}
inline QVariant numberOrNull(double number) {
    return number == 0 ? QVariant() : QVariant(number);
}
inline double euros(qint64 cents) {
    return double(cents) / 100;
}

}  // namespace demo
