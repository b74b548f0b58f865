#pragma once

#include <QString>
#include <QVariant>
#include <QVector>

#include "demo/person.h"

namespace demo {

// A column of Cards and what an invented person puts there.
struct CardField {
    QString column;
    QVariant (*value)(const Person&);
};

const QVector<CardField>& cardFields();

}  // namespace demo
