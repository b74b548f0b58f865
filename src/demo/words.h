// The raw material of invented people and offices.
#pragma once

#include <QString>
#include <QVector>

namespace demo {

struct MaleName {
    QString name;
    QString genitive;  // as a father's name
};
struct Surname {
    QString man;
    QString woman;
};
struct Place {
    QString town;
    QString district;
    QString postalPrefix;  // first three of five digits
    QString areaCode;      // the rest of the ten digits is the subscriber's
};
struct Occupation {
    QString man;
    QString woman;
};

// Common ones first.
const QVector<MaleName>& maleNames();
const QVector<QString>& femaleNames();
const QVector<Surname>& surnames();
const QVector<Occupation>& occupations();
const QVector<QString>& streets();
const QVector<Place>& places();
const QVector<QString>& companyTrades();
const QVector<QString>& companyForms();
const QVector<QString>& cardNotes();
const QVector<QString>& longNotes();

}  // namespace demo
