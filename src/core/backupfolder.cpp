#include "core/backupfolder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

#include "copies/backup.h"
#include "data/opening/fileidentity.h"
#include "platform/folders.h"
#include "schema/office.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

namespace {

const QString section = u"Options"_s;
const QString key = u"BackupFolder"_s;

const QString stampFormat = u"yyyyMMdd-HHmmss"_s;
constexpr int dayLength = 8;

// When a copy was made is in its name, by the clock on the wall; the file's own time changes when it is carried about.
struct Copy {
    QString file, stamp;
    QString day() const { return stamp.left(dayLength); }
};

const QString anyKind = u"(?:-m)?"_s, daily;

// Newest first.
QVector<Copy> copiesOf(const QString& folder, const QString& dataPath, const QString& ending) {
    const QRegularExpression own(QRegularExpression::anchoredPattern(
        u"dorvalist-%1-(\\d{8}-\\d{6})%2\\.tar"_s.arg(officeTag(dataPath), ending)));
    const QStringList names = QDir(folder).entryList({u"dorvalist-*.tar"_s}, QDir::Files, QDir::Name);
    QVector<Copy> copies;
    for (const QString& name : names)
        if (const auto match = own.match(name); match.hasMatch())
            copies.prepend({QDir(folder).filePath(name), match.captured(1)});
    return copies;
}

// A day of grace: the clocks of several seats differ, and so do zones.
QString lastCredible(const QDateTime& now) {
    return now.addDays(1).toString(stampFormat);
}

// Those of an office's databases that are on a server now.
QVector<schema::Database> databasesOnServer(const QString& dataPath) {
    QVector<schema::Database> found;
    for (const schema::Database database : {schema::Database::Main, schema::Database::Users})
        if (data::identifyFile(schema::databasePath(dataPath, database)).kind == data::FileKind::ServerDescription)
            found += database;
    return found;
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
    return QString::fromUtf8(QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().left(length));
}

QString backupName(const QString& dataPath, const QDateTime& now, BackupKind kind) {
    return u"dorvalist-%1-%2%3.tar"_s.arg(officeTag(dataPath), now.toString(stampFormat),
                                          kind == BackupKind::ByHand ? u"-m"_s : QString());
}

void requireBackupFolder(const QString& folder) {
    if (QFileInfo(folder).isDir()) return;
    throw data::Error(data::ErrorCategory::Connection,
                      u"Ο φάκελος δεν υπάρχει. Αν είναι σε εξωτερικό δίσκο ή στο δίκτυο, συνδέστε τον· "
                      "αλλιώς διαλέξτε άλλον φάκελο για τα αντίγραφα ασφαλείας από τις Ρυθμίσεις."_s);
}

QStringList backupsOf(const QString& folder, const QString& dataPath) {
    QStringList files;
    for (const Copy& copy : copiesOf(folder, dataPath, anyKind)) files += copy.file;
    return files;
}

bool hasDailyBackup(const QString& folder, const QString& dataPath, const QDate& day) {
    const QVector<Copy> copies = copiesOf(folder, dataPath, daily);
    const QString wanted = day.toString(u"yyyyMMdd"_s);
    return std::any_of(copies.begin(), copies.end(), [&](const Copy& copy) { return copy.day() == wanted; });
}

QStringList backupsOfTheFuture(const QString& folder, const QString& dataPath, const QDateTime& now) {
    QStringList files;
    for (const Copy& copy : copiesOf(folder, dataPath, anyKind))
        if (copy.stamp > lastCredible(now)) files += copy.file;
    return files;
}

// What a wrong clock dated is left alone: under the years of the right one it would push every true copy out.
void dropOldBackups(const QString& folder, const QString& dataPath, const QDateTime& now, int keptDays) {
    QStringList days;
    for (const Copy& copy : copiesOf(folder, dataPath, daily)) {
        if (copy.stamp > now.toString(stampFormat)) continue;
        if (days.contains(copy.day()) || days.size() >= keptDays)
            QFile::remove(copy.file);
        else
            days += copy.day();
    }
}

QVector<ListedBackup> listBackups(const QString& folder, const QString& dataPath,
                                  const std::function<void(const QString&)>& tell) {
    requireBackupFolder(folder);
    const QVector<schema::Database> onServer = databasesOnServer(dataPath);
    QVector<ListedBackup> listed;
    for (const Copy& copy : copiesOf(folder, dataPath, anyKind)) {
        if (tell) tell(copy.file);
        ListedBackup one;
        one.file = copy.file;
        one.made = QDateTime::fromString(copy.stamp, stampFormat);
        one.bytes = QFileInfo(copy.file).size();
        try {
            const copies::BackupInfo info = copies::checkBackup(copy.file, dataPath);
            one.made = info.made;
            one.cards = info.cards;
            if (officeTag(info.folder) != officeTag(dataPath))
                one.fault = u"Είναι αντίγραφο άλλου γραφείου."_s;
            else if (info.onServer != onServer)
                one.fault = u"Τα δεδομένα ήταν τότε αλλού (σε αρχεία ή σε διακομιστή)."_s;
        } catch (const data::Error& error) {
            one.fault = error.category() == data::ErrorCategory::Corrupt ? u"Δεν είναι ακέραιο."_s : error.text();
        }
        listed += one;
    }
    return listed;
}

std::optional<FoundBackup> newestGoodBackup(const QString& folder, const QString& dataPath, const QDateTime& now) {
    requireBackupFolder(folder);
    QVector<Copy> copies = copiesOf(folder, dataPath, anyKind);
    std::stable_partition(copies.begin(), copies.end(),
                          [&](const Copy& copy) { return copy.stamp <= lastCredible(now); });
    const QVector<schema::Database> onServer = databasesOnServer(dataPath);
    std::optional<data::Error> unchecked;
    for (const Copy& copy : copies) {
        try {
            const copies::BackupInfo listed = copies::listBackup(copy.file, dataPath);
            if (officeTag(listed.folder) != officeTag(dataPath) || listed.onServer != onServer) continue;
            copies::checkBackup(copy.file, dataPath);
            return FoundBackup{copy.file, listed.made, unchecked ? unchecked->text() : QString()};
        } catch (const data::Error& error) {
            qWarning("%s: %s", qUtf8Printable(copy.file), error.what());
            if (error.category() != data::ErrorCategory::Corrupt && !unchecked) unchecked = error;
        }
    }
    if (unchecked) throw *unchecked;
    return std::nullopt;
}

}  // namespace core
