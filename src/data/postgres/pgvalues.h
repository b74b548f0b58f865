// Values between the road's stored form and the server's binary form.
#pragma once

#include <libpq-fe.h>

#include <QVariant>
#include <QVector>
#include <vector>

#include "data/engine.h"

namespace data::postgres {

// Parameters of one run, each in the form of the type that the server takes at its place. `variant` is the type of
// values that say their own kind. Throws Error(Type) for a value that can't be that type.
class PgParameters {
public:
    PgParameters(const QVector<QVariant>& values, const std::vector<Oid>& types, Oid variant);

    int count() const { return int(pointers_.size()); }
    const char* const* values() const { return pointers_.data(); }
    const int* lengths() const { return lengths_.data(); }
    const int* formats() const { return formats_.data(); }

private:
    QVector<QByteArray> held_;
    std::vector<const char*> pointers_;
    std::vector<int> lengths_, formats_;
};

// The bytes of a value, which isn't Null, in a column of this type. Throws Error(Type) likewise.
QByteArray columnBytes(const QVariant& value, ColumnType type);

// Hands a result in binary form to the sink; returns the number of rows.
qint64 sendRows(const PGresult* result, RowSink& sink);

}  // namespace data::postgres
