// What tells an office from all others.
#pragma once

#include <QString>

#include "data/connection.h"

namespace schema {

// Of letters and digits; made at the first question and kept in the main database, so that copies and moves of the
// office carry it. Throws data::Error.
QString officeIdentity(data::Connection& main);

}  // namespace schema
