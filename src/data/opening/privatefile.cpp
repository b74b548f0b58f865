#include "data/opening/privatefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace data {

void closeToOthers(const QString& file, const QString& folder) {
    const QFileInfo info(file), around(folder.isEmpty() ? info.absolutePath() : folder);
    const bool shared = around.permission(QFile::WriteGroup | QFile::ExeGroup) && around.groupId() == info.groupId();
    const QFile::Permissions group = shared ? QFile::ReadGroup | QFile::WriteGroup : QFile::Permissions();
    QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | group);
}

bool isOpenToOthers(const QString& file) {
    const QFileInfo info(file);
    if (!(info.permissions() & (QFile::ReadOther | QFile::WriteOther))) return false;
    QDir above(info.canonicalPath());
    do {
        if (!QFileInfo(above.path()).permission(QFile::ExeOther)) return false;
    } while (above.cdUp());
    return true;
}

}  // namespace data
