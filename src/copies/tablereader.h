// All rows of a table, however large, through little memory.
#pragma once

#include "data/connection.h"
#include "data/rowstore.h"

namespace copies {

// Reads in the order of the rows' identities, a piece of some hundred rows and some megabytes at a time. The connection
// must outlive it and hold a snapshot.
class TableReader {
public:
    TableReader(data::Connection& connection, const data::TableInfo& table);

    // The next rows; false when there are none. Those before are gone then.
    bool nextPiece();
    const data::RowStore& piece() const { return rows_; }

    // The cells of the next row in the order of the table's columns; null at the end.
    const data::Cell* nextRow();
    // By which a person finds a row of the piece.
    qint64 identity(qint64 row) const { return rows_.row(row)[columns_].integer; }
    qint64 identity() const { return identity(at_); }  // of the last nextRow()

private:
    data::Engine& engine_;
    QString table_;
    int columns_;
    QByteArray sizesFromStart_, sizesFrom_, rowsBetween_;
    data::RowStore rows_;
    qint64 at_ = 0, last_ = 0;
    bool started_ = false;
};

}  // namespace copies
