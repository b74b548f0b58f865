#include "diary/reminders.h"

#include "data/recordset.h"
#include "diary/appointment.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

namespace {

QTime minuteOf(const QDateTime& moment) {
    return QTime(moment.time().hour(), moment.time().minute());
}

}  // namespace

QVector<Reminder> Reminders::due(data::Connection& connection, const QString& user, const QDateTime& now) {
    QVector<Reminder> found;
    for (data::Recordset rows(
             connection, data::Sql(u"select * from dates where day=? and remind=? and user=? order by [start],[end]"_s,
                                   now.date(), minuteOf(now), user));
         !rows.eof(); rows.moveNext()) {
        const QString mark = rows[u"aa"].text() + now.toString(u" yyyy-MM-dd HH:mm"_s);
        if (given_.contains(mark)) continue;
        given_.insert(mark);
        found.append({rows[u"aa"].toLong(), timeText(rows[u"start"].value()), timeText(rows[u"end"].value()),
                      rows[u"subject"].text()});
    }
    return found;
}

QStringList Reminders::missed(data::Connection& connection, const QString& user, const QDateTime& now) const {
    const auto minute = [](const QDateTime& moment) { return data::wallClock(moment.date(), minuteOf(moment)); };
    if (!last_.isValid() || minute(last_).addSecs(60) >= minute(now)) return {};
    QStringList texts;
    for (data::Recordset rows(
             connection, data::Sql(u"select day,remind,subject from dates where day between ? and ? and user=? and "
                                   "remind is not null order by day,remind"_s,
                                   last_.date(), now.date(), user));
         !rows.eof(); rows.moveNext()) {
        const QDateTime at = data::wallClock(rows[u"day"].toDate().date(), rows[u"remind"].toDate().time());
        if (at > minute(last_) && at < minute(now))
            texts << timeText(rows[u"remind"].value()) + u' ' + rows[u"subject"].text();
    }
    return texts;
}

}  // namespace diary
