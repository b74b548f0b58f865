#pragma once

#include "cards/linkpath.h"
#include "core/mainmod.h"

class QWidget;

namespace cards {

// Opens the file of a link with the program that belongs to it. What can't be opened ends in a message that says why.
void openLink(core::MainMod& mod, QWidget* parent, const QString& stored);
// The same for a web or mail address.
void openAddress(core::MainMod& mod, QWidget* parent, const QUrl& address);

}  // namespace cards
