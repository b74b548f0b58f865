// Which appointments remind in a minute of the wall clock, without a window.
#pragma once

#include <QDateTime>
#include <QSet>
#include <QStringList>
#include <QVector>

#include "data/connection.h"

namespace diary {

struct Reminder {
    qint64 aa = 0;
    QString start, end, subject;  // times as "hh:mm"
};

// Remembers what it has given for an appointment, day and minute, so that a clock that is set back, or the second hour
// after summer time, reminds of nothing twice. A minute without a check isn't caught up.
class Reminders {
public:
    // `given` outlives this object: it is the run's, and holds what was shown to the user who is at work.
    explicit Reminders(QSet<QString>& given) : given_(given) {}

    // Those of this user at this minute that weren't given before, by start and end. Throws data::Error.
    QVector<Reminder> due(data::Connection& connection, const QString& user, const QDateTime& now);
    // The appointments of this user whose minute lay between the last check and this one, without its own: times and
    // subjects. The first check has missed nothing.
    QStringList missed(data::Connection& connection, const QString& user, const QDateTime& now) const;
    void checked(const QDateTime& now) { last_ = now; }

private:
    QDateTime last_;
    QSet<QString>& given_;
};

}  // namespace diary
