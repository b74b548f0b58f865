// Several files in one: a tar, compressed with zstd, which Debian's tar opens without this program. A plain one is read
// as well.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace copies {

struct ArchiveMember {
    QString name;  // plain, without a folder
    QString file;
};

// Writes `archive`, readable by its owner alone and safely on the disk; on a failure it isn't there.
// Throws data::Error(Full).
void writeArchive(const QString& archive, const QVector<ArchiveMember>& members);

// Takes the members of these names out into `folder` and passes over everything else, whatever its name. Returns the
// names found. Throws data::Error: Corrupt for a damaged archive or a file that is none.
QStringList extractArchive(const QString& archive, const QString& folder, const QStringList& names);

}  // namespace copies
