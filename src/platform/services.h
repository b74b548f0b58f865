// The doors to the operating system, passed to every window; tests pass recording stand-ins.
#pragma once

#include "platform/clock.h"
#include "platform/notifier.h"
#include "platform/printers.h"
#include "platform/prompts.h"
#include "platform/settings.h"
#include "platform/shell.h"
#include "platform/sound.h"

namespace platform {

struct Services {
    Settings& settings;
    Clock& clock;
    Prompts& prompts;
    Sound& sound;
    Shell& shell;
    Printers& printers;
    Notifier& notifier;
};

}  // namespace platform
