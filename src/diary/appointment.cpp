#include "diary/appointment.h"

#include "data/recordset.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

std::optional<QTime> typedTime(const QString& text) {
    const auto moment = data::parseDate(text);
    const bool hasTime = text.contains(u':') || (moment && moment->time() != QTime(0, 0));
    if (!moment || !hasTime) return {};
    return moment->time();
}

QString timeText(const QVariant& time) {
    return data::format(time, u"hh:nn");
}

QString fullDay(QDate day) {
    return data::format(data::wallClock(day), u"dd/mm/yyyy");
}

bool clashes(data::Connection& connection, QDate day, QTime start, QTime end, qint64 except) {
    const data::Sql sql(
        u"select top 1 aa from dates where ((start between ? and ?) and day=? and aa<>?) or (([end] between ? and ?) "
        u"and "
        "day=? and aa<>?)"_s,
        start, end, day, except, start, end, day, except);
    return !data::Recordset(connection, sql).isEmpty();
}

}  // namespace diary
