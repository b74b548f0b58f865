#include "core/backupfolder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "platform/folders.h"
#include "schema/backup.h"

namespace core {

namespace {

const QString section = QStringLiteral("Options");
const QString key = QStringLiteral("BackupFolder");

QStringList filesLike(const QString& folder, const QString& dataPath, const QString& ending) {
    const QRegularExpression own(QRegularExpression::anchoredPattern(
        QStringLiteral("dorvalist-%1-\\d{8}-\\d{6}%2\\.tar").arg(officeTag(dataPath), ending)));
    const QStringList names = QDir(folder).entryList({QStringLiteral("dorvalist-*.tar")}, QDir::Files, QDir::Name);
    QStringList files;
    for (const QString& name : names)
        if (own.match(name).hasMatch()) files.prepend(QDir(folder).filePath(name));
    return files;
}

}  // namespace

QString backupFolder(const platform::Settings& settings) {
    const QString chosen = settings.value(section, key);
    return chosen.isEmpty() ? platform::backupFolder() : chosen;
}

void setBackupFolder(platform::Settings& settings, const QString& folder) {
    settings.setValue(section, key, folder);
}

QString officeTag(const QString& dataPath) {
    const QFileInfo info(dataPath);
    const QString real = info.canonicalFilePath();
    const QByteArray path = (real.isEmpty() ? QDir::cleanPath(info.absoluteFilePath()) : real).toUtf8();
    constexpr int length = 8;
    return QString::fromLatin1(QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().left(length));
}

QString backupName(const QString& dataPath, const QDateTime& now, BackupKind kind) {
    return QStringLiteral("dorvalist-%1-%2%3.tar")
        .arg(officeTag(dataPath), now.toString(QStringLiteral("yyyyMMdd-HHmmss")),
             QLatin1String(kind == BackupKind::ByHand ? "-m" : ""));
}

QStringList backupsOf(const QString& folder, const QString& dataPath) {
    return filesLike(folder, dataPath, QStringLiteral("(-m)?"));
}

void dropOldBackups(const QString& folder, const QString& dataPath, int kept) {
    for (const QString& file : filesLike(folder, dataPath, {}).mid(kept)) QFile::remove(file);
}

void dropAbandonedWork(const QString& folder) {
    const QDateTime yesterday = QDateTime::currentDateTime().addDays(-1);
    const auto left =
        QDir(folder).entryInfoList({QStringLiteral(".dorvalist-??????")}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (const QFileInfo& info : left)
        if (info.lastModified() < yesterday) QDir(info.filePath()).removeRecursively();
}

std::optional<FoundBackup> newestGoodBackup(const QString& folder, const QString& dataPath) {
    for (const QString& file : backupsOf(folder, dataPath)) {
        try {
            const schema::BackupInfo info = schema::checkBackup(file);
            if (officeTag(info.folder) == officeTag(dataPath)) return FoundBackup{file, info.made};
        } catch (const data::Error& error) {
            qWarning("%s: %s", qUtf8Printable(file), error.what());
        }
    }
    return std::nullopt;
}

}  // namespace core
