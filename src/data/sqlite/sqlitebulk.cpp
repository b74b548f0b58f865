// What carrying a whole database asks of the embedded engine.
#include <sqlite3.h>

#include "data/dialect/enginedialect.h"
#include "data/smallrows.h"
#include "data/sqlite/sqliteengine.h"

namespace data::sqlite {
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
// while a lock is held, nobody can write either.
void SqliteEngine::usePlainJournal() {
    statements_.clear();
    script("PRAGMA journal_mode=DELETE");
    plainJournal_ = true;
}

// Only a file that still has its name: another one may stand there already, and the journal would be taken for its own.
void SqliteEngine::leavePlainJournal() noexcept {
    if (!plainJournal_) return;
    plainJournal_ = false;
    int moved = 0;
    sqlite3_file_control(database_, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    if (!moved) sqlite3_exec(database_, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
}

void SqliteEngine::requireAlone() {
    usePlainJournal();
    script("BEGIN EXCLUSIVE");
}

void SqliteEngine::holdStill() {
    usePlainJournal();
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

}  // namespace data::sqlite
