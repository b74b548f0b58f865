// One invented contact, complete before a byte of it is written.
#pragma once

#include <QByteArray>
#include <QDate>
#include <QHash>
#include <QString>
#include <QVector>

#include "demo/random.h"

namespace demo {

// What all draws of a run share.
struct World {
    quint64 seed = 1;
    QDate today;
    QHash<QString, QDate> nameDays;  // by name, in any year
};

struct Movement {
    QDate day;
    QString reason;
    QString document;
    qint64 debitCents = 0;
    qint64 creditCents = 0;
    double vatPercent = 0;
};

struct Person {
    bool man = false;
    QString first, last, father, occupation;
    QDate birth;
    QString birthPlace;
    QDate nameDay;  // in the reference date's year
    QString nameDayLine;
    QString street, district, postalCode, town;
    QString home, work, secondHome, secondWork, mobile, fax;
    QString email, url;
    QString company, workStreet, recommendedBy;
    int category = 1;
    QString notes, cardNotes, longText, preferences;
    QString taxNumber, taxOffice, seller;
    double discount = 0, creditLimit = 0;
    QDate contract;
    bool newsletter = false, invoices = false;
    QString payment, source;
    QDate lastMovement;
    double frequencyDays = 0, amountDue = 0;
    QByteArray photo;
    QVector<Movement> movements;  // oldest first

    qint64 balanceCents() const;
    QString fullName() const { return last + u' ' + first; }
};

// The `number`th person (from 0) of a world; the same whatever was drawn before.
Person makePerson(const World& world, int number);

// Movements of a customer over the last two years, ended by `today`.
QVector<Movement> makeMovements(Random& random, QDate today);

}  // namespace demo
