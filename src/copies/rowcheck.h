// Judging the stored cells of one table: whether another engine can hold them, and whether two rows are the same.
#pragma once

#include <optional>

#include "data/rowstore.h"
#include "data/types.h"

namespace copies {

struct CellFault {
    int column;
    QString text;  // a Greek half sentence
};

// What of a row doesn't fit its columns, or can't be stored where texts hold no NUL.
std::optional<CellFault> unfitCell(const data::TableInfo& table, const data::Cell* row, bool nulAllowed);

// The first column in which two rows of the table differ, -1 when they are the same.
int differingColumn(const data::TableInfo& table, const data::Cell* one, const data::Cell* other);

}  // namespace copies
