// The entry routine: from nothing to two open databases.
#pragma once

#include "core/mainmod.h"

namespace entry {

enum class Outcome {
    Logon,  // the folder is known and both files are there; a connection that couldn't be opened stays closed
    End,    // the user gave up, or the users database is missing; the program ends
};

// Finds or asks for the data folder, opens gConn and gConnUsers, and remembers the folder once both files were found
// and are an office's.
// Every failure is told in a message box; the loop ends when the files are found or the user cancels.
Outcome run(core::MainMod& mod);

// The office of run() once more, after a seat or a server refused it.
void openAgain(core::MainMod& mod);

// Closes both databases, puts a copy in their place, tells what was done or why not, and opens them again.
void restoreAndReopen(core::MainMod& mod, const QString& copy, const QDateTime& made);

}  // namespace entry
