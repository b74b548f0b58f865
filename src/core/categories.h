// The categories of cards: names for people, numbers for the tables.
#pragma once

#include <QComboBox>
#include <optional>

#include "data/connection.h"

namespace core {

// A list of all categories in order behind an empty entry; an entry's data is its number. A list filled again keeps
// what was chosen, under its present name. Throws data::Error, with the list as it was.
void fillCategories(data::Connection& connection, QComboBox& list);
// The same after a failure: the list stays as it was when the database is away.
void refillCategories(data::Connection& connection, QComboBox& list);
// Chooses by number, also one that isn't listed yet; the empty entry for an empty name.
void chooseCategory(QComboBox& list, qint64 code, const QString& name);
// Nothing for the empty entry. Throws data::Error(Constraint) when the chosen one is no more.
std::optional<qint64> chosenCategory(data::Connection& connection, const QComboBox& list);

// Empty when there is none of this number.
QString categoryName(data::Connection& connection, qint64 code);

}  // namespace core
