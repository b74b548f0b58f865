#include "platform/filestate.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace platform {

#ifdef Q_OS_UNIX

bool isLocked(const QString& file) {
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) return QFileInfo::exists(file);
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
#ifdef F_OFD_GETLK
    const int ask = F_OFD_GETLK;
#else
    const int ask = F_GETLK;
#endif
    return fcntl(source.handle(), ask, &lock) != 0 || lock.l_type != F_UNLCK;
}

void copyOwner(const QString& from, const QString& to) {
    struct stat wanted, there;
    const QByteArray path = QFile::encodeName(to);
    if (stat(QFile::encodeName(from).constData(), &wanted) != 0 || stat(path.constData(), &there) != 0) return;
    if (wanted.st_uid == there.st_uid && wanted.st_gid == there.st_gid) return;
    constexpr uid_t sameUser = uid_t(-1);
    if (chown(path.constData(), wanted.st_uid, wanted.st_gid) == 0) return;
    // A user may still give a file to a group of his.
    if (chown(path.constData(), sameUser, wanted.st_gid) != 0) return;
}

#else

// An open file can't be renamed there, so the renaming itself tells.
bool isLocked(const QString&) {
    return false;
}

// A new file has its rights from the folder there.
void copyOwner(const QString&, const QString&) {}

#endif

}  // namespace platform
