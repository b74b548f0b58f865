#include "platform/folders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace platform {

namespace {

QString firstWithSounds(const QStringList& folders) {
    for (const QString& folder : folders) {
        const QString clean = QDir::cleanPath(folder);
        if (QFileInfo(clean + QLatin1String("/sounds")).isDir()) return clean;
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
        here + QLatin1String("/../share/dorvalist"),
        here + QLatin1String("/share"),
        QStringLiteral(DORV_SOURCE_ASSETS),
        QStringLiteral(DORV_INSTALLED_SHARE),
    });
    return found;
}

QString workFolder() {
    const QString own = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QLatin1String("/work");
    if (makePrivate(own)) return own;
    const QString spare = QDir::temp().filePath(QStringLiteral("dorvalist-work"));
    makePrivate(spare);
    return spare;
}

QString backupFolder() {
    const QString own =
        QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QLatin1String("/backups");
    makePrivate(own);
    return own;
}

}  // namespace platform
