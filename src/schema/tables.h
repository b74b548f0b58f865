// The tables of both databases as data: what creates, checks and upgrades them reads these rows.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include "data/types.h"

namespace schema {

struct Column {
    QString name;
    data::ColumnType type;
    int size = 0;   // UTF-16 units for Text, else 0
    int since = 1;  // schema version in which the column appeared
};

// Columns by name in the index's order, or expressions of the dialect over them; text columns are indexed by their
// fold. The `covered` columns ride along as they are stored: a statement on nothing but these and the autonumber is
// answered from the index alone.
struct Index {
    QString name;
    QStringList columns;
    QStringList covered = {};
    int since = 1;
    int until = 0;  // the last version that has it; 0: it stands

    bool in(int version) const { return since <= version && (until == 0 || version <= until); }
};

// Columns that are searched for words inside their texts; none: the table has no word index.
struct Words {
    QStringList columns;
    int since = 2;
};

struct Table {
    QString name;
    QVector<Column> columns;  // in the order that positional inserts and the query builder walk
    QVector<Index> indexes;
    QString key;  // primary key column, or empty
    Words words = {};
    int since = 1;
};

enum class Database { Main, Users };
constexpr Database allDatabases[] = {Database::Main, Database::Users};

const QVector<Table>& tables(Database database);
// Statements of the dialect that fill a new database, in order.
QStringList defaultRows(Database database);

const Table* findTable(Database database, QStringView name);  // without regard to case; null if there is none
data::TableInfo tableInfo(const Table& table);                // as the data road describes tables

constexpr int currentVersion = 4;  // stored in the file; grows with every upgrade step

}  // namespace schema
