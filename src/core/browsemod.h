#pragma once

#include <QString>

#include "core/mainmod.h"

namespace core {

// Asks for a folder; empty on a cancel. The title is shown above the tree.
QString BrowseForFolder(MainMod& mod, const QString& title);

// Asks for the folder that holds `fileName` and stores the answer in gDataPath; a cancel leaves it empty.
void GivePath(MainMod& mod, const QString& fileName);

}  // namespace core
