// What a server database holds so that rendered statements run on it: the fold and the dialect's functions.
#pragma once

#include <QByteArray>

namespace data::postgres {

// Grows with every change of the functions; a database with older ones gets the newer at its next opening.
constexpr int functionsVersion = 4;

// The comparison of texts. Indexes are built on it, so it is created once with the database and never replaced.
QByteArray foldScript();

// Everything else, in the current schema; may run again at any time.
QByteArray functionsScript();

// The parts of functionsScript(), in the order they need one another.
extern const char numberFunctions[];
extern const char dateFunctions[];
extern const char textFunctions[];
extern const char formatFunctions[];
extern const char conversionFunctions[];

}  // namespace data::postgres
