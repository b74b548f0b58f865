// The server's SQLSTATE codes as errors of the data road.
#pragma once

#include <libpq-fe.h>

#include "data/error.h"

namespace data {

Error pgError(const PGresult* result, const QByteArray& sql = {});

// A connection that was refused or is lost; `message` is the client library's own.
Error pgConnectError(const QString& message);
Error pgLostError(const QByteArray& sql = {});

}  // namespace data
