// The categories of cards: names for people, numbers for the tables.
#pragma once

#include <QStringList>

#include "data/connection.h"

namespace core {

// All of them in order.
QStringList categoryNames(data::Connection& connection);

// Empty when there is none of this number.
QString categoryName(data::Connection& connection, qint64 code);

// Throws data::Error(Constraint) when there is none of this name (any more).
qint64 categoryCode(data::Connection& connection, const QString& name);

}  // namespace core
