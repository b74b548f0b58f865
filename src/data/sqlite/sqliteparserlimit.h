// How deep a statement may be nested: SQLite's parser has a stack of a hundred entries, the smallest of all engines.
#pragma once

#include "data/dialect/translator.h"

namespace data::sqlite {

dialect::ParserLimit sqliteParserLimit();

}  // namespace data::sqlite
