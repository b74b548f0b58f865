// The road of every print command: drawn, shown in the preview unless the user prints without it, sent or written.
#pragma once

#include <QWidget>
#include <functional>

#include "core/mainmod.h"
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
};

// True when it went to a printer or into a PDF file. A printer that fails ends in a box, and in the preview, so that
// nothing is lost. What `draw` throws goes to the caller, except for PrintStopped, which is false.
bool printOut(MainMod& mod, QWidget* parent, const PrintJob& job);

// Whether print commands show the preview first.
bool previewsPrints(const platform::Settings& settings);
void setPreviewsPrints(platform::Settings& settings, bool on);

}  // namespace core
