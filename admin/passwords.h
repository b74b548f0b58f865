// Passwords that a command is given without anybody at the keyboard.
#pragma once

#include <QString>
#include <optional>

#include "admin/arguments.h"

namespace admin {

// --admin-password-file, "-" for standard input, and the words of help for it.
Option passwordFileOption();

// The password of Admin from wherever the command was given it: the file's or standard input's first line, the
// environment's DORVALIST_ADMIN_PASSWORD, or --admin-password. Nothing when it was given nowhere. Throws UsageError for
// two of the options at once, data::Error for a file that can't be read.
std::optional<QString> passwordGiven(const Arguments& arguments);

}  // namespace admin
