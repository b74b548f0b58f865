// What must be in a copy of an office, written into it as text.
#pragma once

#include <QDateTime>
#include <QHash>
#include <QMap>
#include <QString>

#include "data/connection.h"

namespace copies {

using RowCounts = QMap<QString, qint64>;  // by table

RowCounts rowCounts(data::Connection& connection);

struct Manifest {
    struct Member {
        QByteArray sha256;  // of the file, hexadecimal
        RowCounts rows;
        QString schema = {};  // that a server's dump restores
    };
    QDateTime made;
    QString folder;
    QMap<QString, Member> members;  // by file name

    QByteArray toText() const;
    // Throws data::Error(Corrupt) for a text that is none.
    static Manifest fromText(const QByteArray& text);
};

QByteArray sha256Of(const QString& file);  // throws data::Error when it can't be read

}  // namespace copies
