// What carrying a whole database asks of the embedded engine.
#include "data/sqlite/sqliteengine.h"

#include "data/dialect/enginedialect.h"
#include "data/smallrows.h"

namespace data {
void SqliteEngine::beginSnapshot() {
    script("BEGIN");
    try {
        query("SELECT count(*) FROM sqlite_schema", {}, nullptr);  // the moment: BEGIN alone reads nothing
    } catch (...) {
        rollback();
        throw;
    }
}

// With the journal written ahead an idle seat can't be noticed; with the plain one, which nobody else can change back
// while this lock is held, nobody can write either.
void SqliteEngine::holdStill() {
    requireAlone();
    script("BEGIN IMMEDIATE");
}

void SqliteEngine::insertRows(const TableInfo& table, const QVector<QVector<QVariant>>& rows, qsizetype& refused) {
    QByteArrayList names, places;
    for (const ColumnInfo& column : table.columns) {
        names += dialect().identifier(column.name);
        places += dialect().parameter(int(names.size()));
    }
    const QByteArray sql = "INSERT INTO " + dialect().identifier(table.name) + " (" + names.join(", ") + ") VALUES (" +
                           places.join(", ") + ')';
    for (refused = 0; refused < rows.size(); ++refused) execute(sql, rows[refused]);
    refused = -1;
}

qint64 SqliteEngine::lastNumber(const TableInfo& table) {
    return textRows(*this, "SELECT seq FROM sqlite_sequence WHERE name=?1", {table.name}).firstNumber();
}

void SqliteEngine::setLastNumber(const TableInfo& table, qint64 number) {
    const bool there = !textRows(*this, "SELECT seq FROM sqlite_sequence WHERE name=?1", {table.name}).rows.isEmpty();
    execute(there ? "UPDATE sqlite_sequence SET seq=?2 WHERE name=?1"
                  : "INSERT INTO sqlite_sequence (name,seq) VALUES (?1,?2)",
            {table.name, number});
}

}  // namespace data
