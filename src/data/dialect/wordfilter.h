// What a condition demands of the words inside a table's texts, so that a word index can name the rows worth looking
// at.
#pragma once

#include <QStringList>
#include <optional>
#include <vector>

#include "data/dialect/syntax.h"

namespace data::dialect {

// Every row that meets the condition holds, somewhere in the columns of the source's word index, all the pieces of at
// least one alternative. Rows that don't meet the condition may hold them too. Pieces are folded.
struct WordFilter {
    const Source* source = nullptr;
    std::vector<QStringList> alternatives;
};

std::optional<WordFilter> wordFilter(const Expr& condition);

// Whether a condition also bounds a date, which has an index of its own: then the words may be the worse guide.
bool boundsDate(const Expr& condition);

// Whether some rows are named by one column and some by another. The order's own index would then look tempting to a
// planner, though it means reading the whole table.
bool offersAlternatives(const Expr& condition);

}  // namespace data::dialect
