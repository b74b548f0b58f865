// The half hours of a day, and which of them an appointment takes.
#pragma once

#include <QString>
#include <QTime>
#include <QVector>

namespace diary {

constexpr int slotsOfDay = 48;

QString slotText(int slot);  // "00:00" to "23:30"

// Times of a new appointment that starts with this half hour: it ends with the next one's start, in the last at
// "23:59", and reminds half an hour before, in the first at its own start.
struct SlotTimes {
    QString start, end, remind;
};
SlotTimes timesOf(int slot);

// The half hours that begin at or after the start and before the end, both as the clock shows them to the minute. So
// an appointment from 09:10 to 09:20 takes none.
QVector<int> takenSlots(QTime start, QTime end);

}  // namespace diary
