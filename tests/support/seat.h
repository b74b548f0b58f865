// A seat of the program: its state over stand-ins, with no office open.
#pragma once

#include "core/mainmod.h"
#include "support/services.h"

namespace support {

struct Seat {
    Desk desk;
    core::MainMod mod{desk.services};
};

}  // namespace support
