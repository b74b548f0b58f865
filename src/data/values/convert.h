// What a column accepts: the one conversion of values on their way into a database.
#pragma once

#include "data/types.h"
#include "data/values/format.h"

namespace data {

// The value as the column stores it, in the QVariant form of types.h. Text becomes a number with a decimal comma,
// a date day first (or as `order` says), True and False from "True", "False", "Ναι", "Όχι" and numbers;
// numbers round half to even into whole-number columns; a number put into a DateTime counts days from 1899-12-30.
// Null stays Null, also for YesNo, where it becomes False. An empty text into a number or date column, a
// number out of range, a text too long (in UTF-16 units) or a value that doesn't read throws
// Error(Type or Constraint) with the column's name and a Greek sentence; nothing is cut.
QVariant toColumn(const QVariant& value, const ColumnInfo& column, DateOrder order = DateOrder::DayFirst);

}  // namespace data
