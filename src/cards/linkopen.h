#pragma once

#include "cards/linkpath.h"
#include "core/mainmod.h"

class QWidget;

namespace cards {

// Opens the file or the address of a link with the program that belongs to it. What can't be opened is said, with what
// can be done about it: a folder for its drive or server, and `chooseAnew`, if given, for the link itself.
void openLink(core::MainMod& mod, QWidget* parent, const QString& stored, const std::function<void()>& chooseAnew = {});
// The same for a web or mail address.
void openAddress(core::MainMod& mod, QWidget* parent, const QUrl& address);

}  // namespace cards
