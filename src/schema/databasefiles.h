// Handling the files of databases: names that are free, journals beside them, renaming.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace schema {

// The part of a kept file's name that dates it.
QString stamp(const QDateTime& now);
// The name, or the first NAME-2, NAME-3 … that no file has.
QString freeName(const QString& wanted);

// Throws data::Error(Constraint) when the file exists.
void refuseIfThere(const QString& file);

// What the embedded engine may have left beside a database file.
QStringList journalsOf(const QString& file);

// Renames within a file system. Throws data::Error(Full).
void moveTo(const QString& from, const QString& to, bool replace);

}  // namespace schema
