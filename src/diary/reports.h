// The diary's reports: appointments by day, tasks, and cards that fall due.
#pragma once

#include "core/report.h"

namespace diary {

// Of the user who has logged on. Both days belong to a period.
core::Report datesReport(core::MainMod& mod, QDate from, QDate to);
core::Report thinksReport(core::MainMod& mod);
// Of all users.
core::Report leigounReport(core::MainMod& mod, QDate from, QDate to);

// Read, and printed by the road of every print command. True when printed. Throw data::Error.
bool DatesReport(core::MainMod& mod, QWidget* parent, QDate from, QDate to);
bool ThinksReport(core::MainMod& mod, QWidget* parent);
bool LeigounReport(core::MainMod& mod, QWidget* parent, QDate from, QDate to);

}  // namespace diary
