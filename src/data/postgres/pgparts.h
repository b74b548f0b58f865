// What the files of the server engine share.
#pragma once

#include <libpq-fe.h>

#include <memory>

#include "data/opening/serverdescription.h"
#include "data/smallrows.h"

namespace data::postgres {

struct PgResultDeleter {
    void operator()(PGresult* result) const { PQclear(result); }
};
using PgResult = std::unique_ptr<PGresult, PgResultDeleter>;

// True for a statement that changes nothing; the road composes no other that gives rows.
bool onlyReads(const QByteArray& sql);

QString pgKindName(DatabaseKind kind);

// The tables, functions and types in a schema, those of extensions aside.
class PgEngine;
qint64 pgObjects(PgEngine& engine, const QString& schema);

// What a seat calls itself on the server, one name for each schema; so others can see whether anybody is there.
QString seatName(const ServerDescription& server);

// What every connection of the road is set to, but for the time zone; for measuring beside it.
QByteArray pgSessionSettings(const ServerDescription& server, const OpenSettings& settings);

}  // namespace data::postgres
