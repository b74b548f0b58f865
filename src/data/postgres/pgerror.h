// The server's SQLSTATE codes as errors of the data road.
#pragma once

#include <libpq-fe.h>

#include "data/error.h"

namespace data::postgres {

Error pgError(const PGresult* result, const QByteArray& sql = {});

// A connection that wasn't made; `message` is the client library's own, `server` what it answered when it was asked
// whether it is there.
Error pgConnectError(const QString& message, PGPing server);

// What the statement that noticed may have left: nothing for certain, or nobody can tell.
enum class WhatIsLost { Nothing, Unknown };
Error pgLostError(WhatIsLost what, const QByteArray& sql = {});

}  // namespace data::postgres
