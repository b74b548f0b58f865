// The folder of an office's copies: whose they are, which are old, which is the newest good one.
#pragma once

#include <QDateTime>
#include <QStringList>
#include <optional>

#include "platform/settings.h"

namespace core {

constexpr int dailyBackupsKept = 14;

// The user's choice, or the default place.
QString backupFolder(const platform::Settings& settings);
void setBackupFolder(platform::Settings& settings, const QString& folder);

// A short word that tells one office's folder from another's.
QString officeTag(const QString& dataPath);

enum class BackupKind { Daily, ByHand };
// "dorvalist-TAG-20261105-103000.tar"; one made by hand ends in "-m.tar" and is never dropped.
QString backupName(const QString& dataPath, const QDateTime& now, BackupKind kind);

// Paths of an office's copies of either kind, newest first.
QStringList backupsOf(const QString& folder, const QString& dataPath);

// Deletes the daily copies of this office beyond the newest ones, and no other file.
void dropOldBackups(const QString& folder, const QString& dataPath, int kept = dailyBackupsKept);

// Deletes what copies that were killed half way left there more than a day ago.
void dropAbandonedWork(const QString& folder);

struct FoundBackup {
    QString file;
    QDateTime made;
};
// The newest copy of this office that passes every check.
std::optional<FoundBackup> newestGoodBackup(const QString& folder, const QString& dataPath);

}  // namespace core
