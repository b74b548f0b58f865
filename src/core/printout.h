// The road of every print command: drawn, shown in the preview unless the user prints without it, sent or written.
#pragma once

#include <QWidget>

#include "core/mainmod.h"
#include "core/printjob.h"

namespace core {

// True when it went to a printer or into a PDF file. A printer that fails ends in a box, and in the preview, so that
// nothing is lost. What `draw` throws goes to the caller, except for PrintStopped, which is false.
bool printOut(MainMod& mod, QWidget* parent, const PrintJob& job);

}  // namespace core
