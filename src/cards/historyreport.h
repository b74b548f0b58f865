// The report of a card's movements.
#pragma once

#include "core/printout.h"

namespace cards {

// "Εκτύπωση Ιστορικού" of all movements of a card, in the order of their dates. True when printed; false for a card
// that isn't there any more. Throws data::Error.
bool dtpHistory(core::MainMod& mod, QWidget* parent, qint64 cardCode);

}  // namespace cards
