// What a file is, told from its first bytes alone; nothing is opened for writing, nothing appears beside it.
#pragma once

#include <QStringList>

namespace data {

// Kept in the SQLite header's application_id: "DORV" and "DORU".
constexpr quint32 mainApplicationId = 0x444F5256;
constexpr quint32 usersApplicationId = 0x444F5255;

enum class FileKind { Missing, Unreadable, Empty, Jet, ServerDescription, ForeignSqlite, Main, Users, Noise };

struct FileIdentity {
    FileKind kind = FileKind::Missing;
    int version = 0;  // schema version of Main and Users (SQLite's user_version), else 0
};

// What SQLite keeps beside a database file while it works and after a crash, there or not: part of the data is in them.
QStringList sqliteSideFiles(const QString& file);

FileIdentity identifyFile(const QString& file);

// A Greek sentence that says what such a file is and what to do; empty for Main and Users.
QString fileKindText(const QString& file, FileKind kind);

}  // namespace data
