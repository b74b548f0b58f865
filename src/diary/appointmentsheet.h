// One appointment on one sheet of paper.
#pragma once

#include <QString>

#include "core/printheading.h"

namespace diary {

struct AppointmentSheet {
    core::OwnerDetails owner;
    QString contact, telephones;
    QString day, subject, location, start, end, notes;
};
void drawAppointment(platform::Printer& printer, const AppointmentSheet& sheet);

}  // namespace diary
