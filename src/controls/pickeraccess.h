#pragma once

namespace controls::detail {

// From the first call on a screen reader finds the open calendar under its button; the toolkit leaves pop-ups out.
void tellCalendars();

}  // namespace controls::detail
