// Plain data files: UTF-8, a row a line, cells between tabs, lines that start with # are comments. Of a delivered file
// the comment "#since N" tells that the rows below it came with version N of the databases.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace schema {

struct TabRow {
    int line = 0;  // from 1, comments and empty lines counted
    QStringList cells;
    int since = 1;
};

// Cells come without blanks around them. Throws data::Error with the file and the line for anything but
// `columns` cells a row, text that isn't UTF-8, and control characters.
QVector<TabRow> readTabFile(const QString& file, int columns);

// A data::Error(Type) that names the place.
[[noreturn]] void failAtLine(const QString& file, int line, const QString& what);

}  // namespace schema
