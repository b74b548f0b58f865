#include "schema/workfolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "data/error.h"
#include "platform/processes.h"
#include "schema/office.h"

namespace schema {

static const QString workFolderName = u".dorvalist-work-"_s;
static const QString ownerFileName = u"process"_s;  // whose work it is

static bool ownerIsGone(const QString& workFolder) {
    QFile file(QDir(workFolder).filePath(ownerFileName));
    constexpr qint64 most = 4096;
    return file.open(QIODevice::ReadOnly) && platform::isGone(file.read(most));
}

QString dumpFileName(Database database) {
    return QFileInfo(databaseFileName(database)).completeBaseName() + u".dump"_s;
}

void dropAbandonedWork(const QString& folder, const QDateTime& now) {
    QStringList ours = {contentsFileName + u'*', packedFileName + u'*', ownerFileName};
    for (const Database database : allDatabases)
        ours << databaseFileName(database) + u'*' << dumpFileName(database) + u'*';
    const auto workFolders = QDir::Dirs | QDir::Hidden | QDir::NoSymLinks;
    for (const QFileInfo& workFolder : QDir(folder).entryInfoList({workFolderName + u"??????"_s}, workFolders)) {
        if (workFolder.lastModified() >= now.addDays(-1) && !ownerIsGone(workFolder.filePath())) continue;
        const QDir left(workFolder.filePath());
        for (const QFileInfo& file : left.entryInfoList(ours, QDir::Files | QDir::NoSymLinks))
            QFile::remove(file.filePath());
        QDir().rmdir(workFolder.filePath());  // fails when anything else is in it
    }
}

std::unique_ptr<QTemporaryDir> workFolderIn(const QString& folder) {
    dropAbandonedWork(folder);
    auto workFolder = std::make_unique<QTemporaryDir>(QDir(folder).filePath(workFolderName + u"XXXXXX"_s));
    if (!workFolder->isValid())
        throw data::Error(
            data::ErrorCategory::Full,
            u"Δεν γράφεται ο φάκελος «%1». Ελέγξτε ότι υπάρχει, ότι έχετε δικαίωμα εγγραφής και ότι ο δίσκος έχει χώρο."_s
                .arg(QDir::toNativeSeparators(folder)))
            .withDetails(workFolder->errorString());
    QFile owner(workFolder->filePath(ownerFileName));
    if (owner.open(QIODevice::WriteOnly))
        owner.write(platform::processMark());  // without it the folder only stays longer
    return workFolder;
}

}  // namespace schema
