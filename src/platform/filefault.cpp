#include "platform/filefault.h"

#include <QFileInfo>
#include <QStorageInfo>

using namespace Qt::Literals::StringLiterals;

namespace platform {

QString fileFault(const QFileDevice& file) {
    constexpr qint64 almostNothing = 1 << 20;
    const QFileInfo place(file.fileName());
    const QString folder = place.absolutePath();
    if (!QFileInfo(folder).isDir()) return u"ο φάκελος δεν υπάρχει."_s;
    if (place.isDir()) return u"υπάρχει φάκελος με αυτό το όνομα."_s;
    if (!QFileInfo(folder).isWritable() || (place.exists() && !place.isWritable()))
        return u"δεν επιτρέπεται η εγγραφή εκεί."_s;
    if (QStorageInfo(folder).bytesAvailable() < almostNothing) return u"ο δίσκος είναι γεμάτος."_s;
    return u"το σύστημα δεν δέχτηκε την εγγραφή."_s;
}

}  // namespace platform
