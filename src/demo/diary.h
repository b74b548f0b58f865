// Invented appointments, tasks and calls of the office's users.
#pragma once

#include <QDate>
#include <QString>
#include <QTime>
#include <QVector>

#include "demo/person.h"

namespace demo {

struct CardRef {
    qint64 code = 0;  // 0: somebody without a card
    QString name;
    QString telephone;
};

struct Appointment {
    CardRef with;
    QString subject, location, notes, user, placedBy;
    QDate day;
    QTime start, end, remind;  // remind may be invalid: none
};

struct Task {
    QString subject, priority, notes, user, placedBy;
};

struct Call {
    CardRef caller;
    QDate day;
    QTime time;
};

// Of one user from 30 days before the reference date to 60 after it, no two at once; always two or more today.
QVector<Appointment> makeAppointments(const World& world, const QStringList& users, int user,
                                      const QVector<CardRef>& cards);
QVector<Task> makeTasks(const World& world, const QStringList& users);
// Of the two weeks that end with the reference date, in order of time.
QVector<Call> makeCalls(const World& world, const QVector<CardRef>& cards);

}  // namespace demo
