// The folder of an office's copies: whose they are, which are old, which is the newest good one.
//
// What was made when is told by the names in the folder alone, not by a user's settings, so that several seats that
// share it make one copy a day; of those that start at once the newest stays. A name carries a tag of the office's
// folder, so that offices which share a folder of copies neither drop nor restore each other's.
#pragma once

#include <QDateTime>
#include <QStringList>
#include <functional>
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

// Throws data::Error for a folder that isn't there; a chosen one isn't made, since its disk may just be away.
void requireBackupFolder(const QString& folder);

// Paths of an office's copies of either kind, newest first by their names.
QStringList backupsOf(const QString& folder, const QString& dataPath);
bool hasDailyBackup(const QString& folder, const QString& dataPath, const QDate& day);
// Likewise, those dated after tomorrow: the clock is wrong, or was.
QStringList backupsOfTheFuture(const QString& folder, const QString& dataPath, const QDateTime& now);

// Deletes the daily copies of this office, dated up to `now`, that aren't the newest of one of the last days that have
// any, and no other file.
void dropOldBackups(const QString& folder, const QString& dataPath, const QDateTime& now,
                    int keptDays = dailyBackupsKept);

struct FoundBackup {
    QString file;
    QDateTime made;
    QString notChecked;  // why a newer one couldn't be looked into; empty when there is none such
};
// The newest copy of this office, each database of the kind that it is now, that passes every check; those of the
// future come last. Throws data::Error when none does and something else than damage kept one from being checked.
std::optional<FoundBackup> newestGoodBackup(const QString& folder, const QString& dataPath, const QDateTime& now);

struct ListedBackup {
    QString file;
    QDateTime made;
    qint64 cards = 0, bytes = 0;
    QString fault;  // why it can't be restored; empty for a good one
};
// Every copy of this office, newest first, each looked through, which lasts. `tell` hears which.
QVector<ListedBackup> listBackups(const QString& folder, const QString& dataPath,
                                  const std::function<void(const QString& file)>& tell = {});

}  // namespace core
