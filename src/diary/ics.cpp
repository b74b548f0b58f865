#include "diary/ics.h"

#include <libical/ical.h>

#include <QTimeZone>
#include <memory>

#include "data/recordset.h"
#include "diary/appointment.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

namespace {

constexpr char zoneName[] = "Europe/Athens";

// The rule since 1996, short, and whatever the machine knows of zones.
constexpr char zoneText[] =
    "BEGIN:VTIMEZONE\r\nTZID:Europe/Athens\r\n"
    "BEGIN:DAYLIGHT\r\nTZNAME:EEST\r\nTZOFFSETFROM:+0200\r\nTZOFFSETTO:+0300\r\nDTSTART:19960331T030000\r\n"
    "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\r\nEND:DAYLIGHT\r\n"
    "BEGIN:STANDARD\r\nTZNAME:EET\r\nTZOFFSETFROM:+0300\r\nTZOFFSETTO:+0200\r\nDTSTART:19961027T040000\r\n"
    "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\r\nEND:STANDARD\r\n"
    "END:VTIMEZONE\r\n";

// Line ends as the library escapes them; other control characters have no place in such a file.
QByteArray plain(QString text) {
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    text.removeIf([](QChar c) { return c.category() == QChar::Other_Control && c != u'\n' && c != u'\t'; });
    return text.toUtf8();
}

icaltimetype icalTime(QDate day, QTime time) {
    icaltimetype moment = icaltime_null_time();
    moment.year = day.year();
    moment.month = day.month();
    moment.day = day.day();
    moment.is_date = !time.isValid();
    if (time.isValid()) {
        moment.hour = time.hour();
        moment.minute = time.minute();
        moment.second = time.second();
    }
    return moment;
}

icalproperty* inZone(icalproperty* property, QTime time) {
    if (time.isValid()) icalproperty_add_parameter(property, icalparameter_new_tzid(zoneName));
    return property;
}

void addTexts(icalcomponent* to, const Appointment& from) {
    const QByteArray summary = plain(headline(from)), location = plain(from.location), notes = plain(from.notes);
    icalcomponent_add_property(to, icalproperty_new_summary(summary.constData()));
    if (!location.isEmpty()) icalcomponent_add_property(to, icalproperty_new_location(location.constData()));
    if (!notes.isEmpty()) icalcomponent_add_property(to, icalproperty_new_description(notes.constData()));
}

// Before the start, or after it, by the clock that runs through a change of summer time.
icaltriggertype trigger(const Appointment& appointment) {
    const QTimeZone zone(zoneName);
    const QDateTime start(appointment.day, appointment.start.isValid() ? appointment.start : QTime(0, 0), zone),
        remind(appointment.day, appointment.remind, zone);
    icaltriggertype made{};
    made.time = icaltime_null_time();
    made.duration = icaldurationtype_from_int(int(start.secsTo(remind)));
    return made;
}

icalcomponent* alarm(const Appointment& appointment) {
    icalcomponent* const made = icalcomponent_new_valarm();
    icalcomponent_add_property(made, icalproperty_new_action(ICAL_ACTION_DISPLAY));
    icalcomponent_add_property(made, icalproperty_new_trigger(trigger(appointment)));
    icalcomponent_add_property(made, icalproperty_new_description(plain(headline(appointment)).constData()));
    return made;
}

icalcomponent* event(const Appointment& from, const QString& office, const icaltimetype& stamp) {
    icalcomponent* const made = icalcomponent_new_vevent();
    const QByteArray uid = u"date-%1-%2"_s.arg(from.aa).arg(office).toUtf8();
    icalcomponent_add_property(made, icalproperty_new_uid(uid.constData()));
    icalcomponent_add_property(made, icalproperty_new_dtstamp(stamp));
    icalcomponent_add_property(made, inZone(icalproperty_new_dtstart(icalTime(from.day, from.start)), from.start));
    // An end that isn't after the start is refused elsewhere.
    if (from.start.isValid() && from.end > from.start)
        icalcomponent_add_property(made, inZone(icalproperty_new_dtend(icalTime(from.day, from.end)), from.end));
    addTexts(made, from);
    if (from.remind.isValid()) icalcomponent_add_component(made, alarm(from));
    return made;
}

QTime timeOf(const data::Field& field) {
    return field.isNull() ? QTime() : field.toDate().time();
}

QString withoutEmpty(QStringList parts, const QString& between) {
    parts.removeAll(QString());
    return parts.join(between);
}

}  // namespace

QVector<Appointment> readAppointments(data::Connection& connection, const Wanted& wanted) {
    QVector<Appointment> found;
    for (data::Recordset rows(
             connection,
             data::Sql(u"select aa,contact,subject,location,[day],[start],[end],remind,notes from dates where [day] is "
                       "not null {and aa=?} {and [day] between ? and ?} {and [user]=?} order by [day],[start],[end]"_s,
                       wanted.aa, wanted.from, wanted.to, wanted.user));
         !rows.eof(); rows.moveNext())
        found.append({rows[u"aa"].toLong(), rows[u"day"].toDate().date(), timeOf(rows[u"start"]), timeOf(rows[u"end"]),
                      timeOf(rows[u"remind"]), rows[u"contact"].text(), rows[u"subject"].text(),
                      rows[u"location"].text(), rows[u"notes"].text()});
    return found;
}

QByteArray icsText(const QVector<Appointment>& appointments, const QString& office, const QDateTime& now) {
    const QDateTime utc = QDateTime(now.date(), now.time(), Qt::LocalTime).toUTC();
    icaltimetype stamp = icalTime(utc.date(), utc.time());
    stamp.zone = icaltimezone_get_utc_timezone();
    const std::unique_ptr<icalcomponent, void (*)(icalcomponent*)> calendar(icalcomponent_new_vcalendar(),
                                                                            icalcomponent_free);
    icalcomponent_add_property(calendar.get(), icalproperty_new_version("2.0"));
    icalcomponent_add_property(calendar.get(), icalproperty_new_prodid("-//Dorvalist//Dorvalist//EL"));
    icalcomponent_add_component(calendar.get(), icalparser_parse_string(zoneText));
    for (const Appointment& each : appointments)
        icalcomponent_add_component(calendar.get(), event(each, office, stamp));
    const std::unique_ptr<char, void (*)(void*)> text(icalcomponent_as_ical_string_r(calendar.get()), free);
    return text.get();
}

QString headline(const Appointment& appointment) {
    return withoutEmpty({appointment.contact, appointment.subject}, u", "_s);
}

QString letterText(const QVector<Appointment>& appointments) {
    QStringList texts;
    for (const Appointment& each : appointments) {
        const QString times = withoutEmpty({each.start.toString(u"HH:mm"_s), each.end.toString(u"HH:mm"_s)}, u" - "_s);
        const QString first = withoutEmpty({fullDay(each.day), times, headline(each)}, u" "_s);
        texts << withoutEmpty({first, each.location, each.notes}, u"\n"_s);
    }
    return texts.join(u"\n\n"_s);
}

}  // namespace diary
