// What the files of the server engine share.
#pragma once

#include <libpq-fe.h>

#include <memory>

#include "data/engine.h"
#include "data/serverdescription.h"

namespace data {

struct PgResultDeleter {
    void operator()(PGresult* result) const { PQclear(result); }
};
using PgResult = std::unique_ptr<PGresult, PgResultDeleter>;

// The one value of a statement that asks for one.
class PgOneText : public RowSink {
public:
    QString value;
    qint64 number = 0;
    void beginRow() override {}
    void null() override {}
    void integer(qint64 integer) override { number = integer; }
    void real(double) override {}
    void text(const char* utf8, qsizetype size) override { value = QString::fromUtf8(utf8, size); }
    void blob(const char*, qsizetype) override {}
};

// What a seat calls itself on the server, one name for each schema; so others can see whether anybody is there.
QByteArray seatName(const ServerDescription& server);

// What every connection of the road is set to, but for the time zone; for measuring beside it.
QByteArray pgSessionSettings(const ServerDescription& server, const OpenSettings& settings);

}  // namespace data
