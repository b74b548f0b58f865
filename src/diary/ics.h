// Appointments for other programs: as iCalendar, and as the text of a letter.
#pragma once

#include <QDate>
#include <QTime>
#include <QVector>
#include <optional>

#include "data/connection.h"

namespace diary {

struct Appointment {
    qint64 aa = 0;
    QDate day;
    QTime start, end, remind;  // not valid for Null
    QString contact, subject, location, notes;
};

// Which appointments; what isn't given doesn't count.
struct Wanted {
    std::optional<qint64> aa = {};
    std::optional<QDate> from = {}, to = {};  // both or none
    std::optional<QString> user = {};
};

// By day, start and end; without those of no day. Throws data::Error.
QVector<Appointment> readAppointments(data::Connection& connection, const Wanted& wanted);

// One calendar of them, in the wall clock of Greece. An appointment is told by the office's identity and its number, so
// a second export changes in the other program what the first one brought. `now` is a wall clock.
QByteArray icsText(const QVector<Appointment>& appointments, const QString& office, const QDateTime& now);

// "23/11/2026 09:30 - 10:00 Contact, Subject", place and notes below; a blank line between two.
QString letterText(const QVector<Appointment>& appointments);

// "Contact, Subject"; what is empty is left out.
QString headline(const Appointment& appointment);

}  // namespace diary
