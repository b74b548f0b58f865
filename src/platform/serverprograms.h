#pragma once

#include <QStringList>

namespace platform {

// A program that comes with PostgreSQL ("pg_dump"): on the search path, where pg_config says, or where the system's
// installers put it, the newest version first. Empty when it isn't installed.
QString serverProgram(const QString& name);

}  // namespace platform
