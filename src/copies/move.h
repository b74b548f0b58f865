// Carrying a whole office to another folder, from any engine to any.
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
