// The statements that an engine runs by itself at changes of rows.
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include "data/engine.h"
#include "data/types.h"

namespace data {

struct Trigger {
    QString name, table;
    QByteArray sql;  // that makes it, as the engine keeps it
};

// All that stand in the open database; not those by which an engine keeps its own promises.
QVector<Trigger> triggers(Engine& engine);

// Those that keep the word index of these columns in step with its table; none where the engine needs none.
QVector<Trigger> wordTriggers(Engine& engine, const TableInfo& table, const QVector<int>& columns);

void dropTrigger(Engine& engine, const Trigger& trigger);

// Makes a word index anew from the rows, whatever is left of the old one. A transaction is the caller's.
void renewWordIndex(Engine& engine, const TableInfo& table, const QVector<int>& columns);

}  // namespace data
