#pragma once

#include <QFileDevice>

namespace platform {

// Why a file can't be opened or written, in Greek; the system's own text may be in any language.
QString fileFault(const QFileDevice& file);

}  // namespace platform
