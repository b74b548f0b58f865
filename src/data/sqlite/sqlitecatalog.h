#pragma once

#include "data/engine.h"

namespace data::sqlite {

// The tables of an open SQLite database, without the internal ones.
Catalog readSqliteCatalog(Engine& engine);

}  // namespace data::sqlite
