// A statement run straight on an engine's C interface, every cell copied once: what the data road is measured against.
#pragma once

#include <QByteArray>
#include <functional>
#include <memory>

#include "data/connection.h"

namespace bench {

// Returns how many rows came.
using RawQuery = std::function<qint64(const QByteArray& sql)>;

// On a connection of its own to the office's main database, whichever engine that is; prepared anew each time.
RawQuery rawQuery(const QString& mainFile);

}  // namespace bench
