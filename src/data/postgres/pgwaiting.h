// Calls of the client library that listen to whoever waits (waiting.h). Without a listener they are the library's own.
#pragma once

#include "data/postgres/pgparts.h"
#include "data/waiting.h"

namespace data::postgres {

// Gives the last result of what was sent, as PQexec does; `sent` is what the sending call returned. After a stop the
// result is that of a cancelled statement, or none when no answer came and the connection can't be used any more.
PgResult pgAnswer(PGconn* connection, int sent, Wait& wait);
PgResult pgExec(PGconn* connection, const QByteArray& sql, Wait& wait);

// A connection that was made or not, never null.
PGconn* pgConnect(const char* const* names, const char* const* values, int seconds, Wait& wait);

}  // namespace data::postgres
