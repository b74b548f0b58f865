// Carrying a whole office to another folder, from any engine to any.
//
// Both databases are made anew. Before that, all rows are looked through for what the other side can't hold: a text
// with NUL is refused with its row rather than changed. Rows travel in the order of their identities in pieces of at
// most 500 rows and some megabytes, into a server by binary COPY; indexes come last. Then both sides are read again in
// step and every cell is compared, as are the next number of each table, the properties and the indexes. The old office
// is held still meanwhile: its files by a write lock in the plain journal mode, which shows idle seats too; a server's
// tables by SHARE locks and a look at who is connected.
#pragma once

#include <QString>
#include <QVector>
#include <optional>

#include "data/opening/serverdescription.h"
#include "schema/progress.h"

namespace copies {

struct MoveOptions {
    // With a server, the databases go into two new schemas there (see NewOffice); without, into two files.
    std::optional<data::ServerDescription> server = {};
    schema::Progress progress = {};
};

struct MoveInfo {
    QVector<std::pair<QString, qint64>> tables;  // and their rows
    qint64 rows = 0, pictures = 0, pictureBytes = 0;
};

// Makes the office of `from` once more in `to`, which must not hold one: rows, passwords, the next number of every
// table. Then reads both and compares every value of every row, byte by byte. All the while nobody else can change the
// old one, of which nothing is changed. Throws data::Error that names table, row and field; Busy while anybody has the
// old office open. On any failure nothing of the new one stays behind.
MoveInfo moveOffice(const QString& from, const QString& to, const MoveOptions& options = {});

}  // namespace copies
