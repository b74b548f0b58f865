#pragma once

#include "controls/period.h"

namespace core {

// The days of a period; throws data::Error that says so when a box of it holds no date. `of` is what the period is of,
// "των κινήσεων".
controls::Days required(const controls::Period& period, const QString& of);

}  // namespace core
