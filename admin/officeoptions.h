// What the commands that create an office share.
#pragma once

#include <QString>
#include <optional>

#include "admin/arguments.h"
#include "data/opening/serverdescription.h"

namespace admin {

// The folder of the delivered reference files: of the installation, or of the source tree when run from a build.
// Empty when there is none.
QString deliveredReferenceFolder();

// Creates the office in the first positional argument. Throws data::Error.
void createOffice(const Arguments& arguments, const QString& adminPassword);

// What --server says, if it was given.
std::optional<data::ServerDescription> serverGiven(const Arguments& arguments);

Option referenceOption();  // --reference and --server are understood by createOffice above
Option serverOption();
Option adminPasswordOption(const QString& help);

}  // namespace admin
