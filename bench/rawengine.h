// A statement run straight on an engine's C interface, every cell copied once: what the data road is measured against.
#pragma once

#include <QByteArray>
#include <functional>
#include <memory>

#include "data/connection.h"

namespace bench {

// Runs its statement and returns how many rows came, -1 when it failed.
using RawRows = std::function<qint64()>;
// Prepares a statement, as the road does, once.
using RawQuery = std::function<RawRows(const QByteArray& sql)>;

// On a connection of its own to the office's main database, whichever engine that is.
RawQuery rawQuery(const QString& mainFile);

// The statement as the road would send it, with the choice that it makes.
inline QByteArray engineStatement(data::Connection& connection, const QString& sql) {
    const auto translation = connection.translate(sql);
    const bool choice = !translation->periodFirst.isEmpty();
    return choice && connection.accessPath(sql) == data::AccessPath::Period ? translation->periodFirst
                                                                            : translation->sql;
}

}  // namespace bench
