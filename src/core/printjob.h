// What a print command prints.
#pragma once

#include <QString>
#include <exception>
#include <functional>

#include "platform/printer.h"

namespace core {

// Tells how far a long drawing is: yields to the window by time, and throws PrintStopped after the stop button.
using PrintStep = std::function<void(int done, int total)>;

struct PrintStopped : std::exception {
    const char* what() const noexcept override { return "Η εκτύπωση διακόπηκε."; }
};

struct PrintJob {
    QString title;  // of the preview and in the printer's queue
    // Draws the whole document on an empty surface; called again when another paper is chosen, so what it draws must
    // be its own.
    std::function<void(platform::Printer&, const PrintStep&)> draw;
    bool landscape = false;  // until the user turns the paper
    QString about = {};      // the surname that it is about, for the name of a file
};

}  // namespace core
