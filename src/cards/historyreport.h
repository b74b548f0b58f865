// The report of a card's movements.
#pragma once

#include "core/report.h"

namespace cards {

// "Εκτύπωση Ιστορικού" of all movements of a card, in the order of their dates. True when printed; false also for a
// card that isn't there any more. Throws data::Error.
bool dtpHistory(core::MainMod& mod, QWidget* parent, qint64 cardCode);

// Without movements: rows of ΗΜΕΡΟΜΗΝΙΑ, ΑΙΤΙΟΛΟΓΙΑ, ΧΡΕΩΣΗ, ΠΙΣΤΩΣΗ, notes.
core::Report historyReport(const core::OwnerDetails& owner, data::Recordset& card);

}  // namespace cards
