#include "platform/folders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;

namespace platform {

namespace {

QString firstWithSounds(const QStringList& folders) {
    for (const QString& folder : folders) {
        const QString clean = QDir::cleanPath(folder);
        if (QFileInfo(clean + u"/sounds"_s).isDir()) return clean;
    }
    return QDir::cleanPath(folders.front());
}

bool makePrivate(const QString& folder) {
    if (!QDir().mkpath(folder)) return false;
    // Photos and printouts of cards pass through here: nobody else's eyes.
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return QFileInfo(folder).isWritable();
}

}  // namespace

QString programFolder() {
    const QString here = QCoreApplication::applicationDirPath();
    static const QString found = firstWithSounds({
        here + u"/../share/dorvalist"_s,
        here + u"/share"_s,
        QString::fromUtf8(DORV_SOURCE_ASSETS),
        QString::fromUtf8(DORV_INSTALLED_SHARE),
    });
    return found;
}

QString workFolder() {
    const QString own = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + u"/work"_s;
    if (makePrivate(own)) return own;
    const QString spare = QDir::temp().filePath(u"dorvalist-work"_s);
    makePrivate(spare);
    return spare;
}

QString backupFolder() {
    const QString own = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + u"/backups"_s;
    makePrivate(own);
    return own;
}

}  // namespace platform
