#include "schema/filereplacement.h"

#include <QFile>
#include <QFileInfo>
#include <filesystem>

#include "data/opening/privatefile.h"
#include "platform/filestate.h"
#include "schema/databasefiles.h"

namespace schema {

using namespace Qt::Literals::StringLiterals;

namespace {

// A second name, so that the first one is never without a file; where a file system has no such thing, a renaming.
void nameAside(const QString& file, const QString& aside) {
    std::error_code failure;
    std::filesystem::create_hard_link(file.toStdU16String(), aside.toStdU16String(), failure);
    if (failure) moveTo(file, aside, false);
}

// Of two names of one file a renaming leaves both.
void moveBack(const QString& from, const QString& to) {
    std::error_code failure;
    std::filesystem::rename(from.toStdU16String(), to.toStdU16String(), failure);
    if (!failure) QFile::remove(from);
}

QString asideName(const QString& file, const QDateTime& now) {
    const QString wanted = file + u'.' + stamp(now);
    QString name = wanted;
    for (int i = 2; QFileInfo::exists(name) || !journalsOf(name).isEmpty(); ++i) name = u"%1-%2"_s.arg(wanted).arg(i);
    return name;
}

}  // namespace

FileReplacement::~FileReplacement() {
    if (kept_) return;
    for (auto move = moves_.crbegin(); move != moves_.crend(); ++move) moveBack(move->second, move->first);
}

void FileReplacement::move(const QString& from, const QString& to) {
    moveTo(from, to, false);
    moves_.append({from, to});
}

QString FileReplacement::put(const QString& fresh, const QString& target, const QDateTime& now) {
    const bool replaces = QFileInfo::exists(target);
    const QString aside = asideName(target, now);
    const QString folder = QFileInfo(target).absolutePath();
    platform::copyOwner(replaces ? target : folder, fresh);
    const QFile::Permissions others = QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    if (replaces)
        QFile::setPermissions(fresh, QFile::permissions(target) & ~others);  // a group may share this office
    else
        data::closeToOthers(fresh, folder);
    for (const QString& journal : journalsOf(target)) move(journal, aside + journal.mid(target.size()));
    if (!replaces) {
        move(fresh, target);
        return {};
    }
    nameAside(target, aside);
    moves_.append({target, aside});
    moveTo(fresh, target, true);
    return aside;
}

}  // namespace schema
