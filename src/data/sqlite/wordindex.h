// Word indexes of the embedded engine: full-text tables of trigrams that triggers keep in step.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <vector>

#include "data/types.h"

namespace data::sqlite {

// Statements that make the index of these columns and fill it. It holds row numbers only, no texts. A table without an
// autonumber gets new row numbers from VACUUM: whoever compacts such a file makes the index anew.
QByteArray wordIndexScript(const TableInfo& table, const QVector<int>& columns);

// The triggers among them: their names, and the statements as the engine keeps them.
std::vector<std::pair<QString, QByteArray>> wordTriggers(const TableInfo& table, const QVector<int>& columns);

// What MATCH takes for texts that hold all pieces of one of the alternatives; a piece has at least three characters.
QString wordQuery(const std::vector<QStringList>& alternatives);

}  // namespace data::sqlite
