// What can be wrong with an appointment, without a window.
#pragma once

#include <QDate>
#include <QTime>
#include <optional>

#include "data/connection.h"

namespace diary {

// A typed time, "9:30", "09:30", "9:30 πμ". Nothing for a text that is none, for a date alone either, which would be
// midnight unasked.
std::optional<QTime> typedTime(const QString& text);

// A time of a row, "hh:mm"; empty for Null.
QString timeText(const QVariant& time);
// A day of a row, or what was typed as one.
QString fullDay(QDate day);  // "dd/mm/yyyy"

// Whether another appointment of that day starts or ends between these times, both of them included; of all users. An
// appointment that wholly encloses this one isn't met. `except` is the number of this one, 0 for a new one.
bool clashes(data::Connection& connection, QDate day, QTime start, QTime end, qint64 except);

}  // namespace diary
