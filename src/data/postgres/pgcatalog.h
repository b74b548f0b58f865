#pragma once

#include <QHash>

#include "data/engine.h"

namespace data::postgres {

// The tables of the engine's schema, without the hidden ones, whose names begin with "_".
Catalog readPgCatalog(Engine& engine);

// The indexes but the hidden ones: name and the statement that made each.
QHash<QString, QString> readPgIndexes(Engine& engine);

}  // namespace data::postgres
