#include "platform/filesystemkind.h"

#ifdef Q_OS_LINUX
#include <sys/vfs.h>

#include <QFile>
#else
#include <QStorageInfo>
#endif

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace platform {

#ifdef Q_OS_LINUX

namespace {

// Numbers of statfs(2).
constexpr quint32 networkMagic[] = {
    0x00006969,  // NFS
    0x0000517B,  // SMB
    0xFF534D42,  // CIFS
    0xFE534D42,  // SMB 2 and 3
    0x65735546,  // FUSE: sshfs, davfs, gvfs
    0x01021997,  // 9P
    0x00C36400,  // Ceph
    0x5346414F,  // AFS
    0x6B414653,  // kAFS
    0x73757245,  // Coda
    0x0000564C,  // NetWare
    0x0BD00BD0,  // Lustre
    0x01161970,  // GFS2
    0x7461636F,  // OCFS2
    0x786F4256,  // a virtual machine's shared folder
    0xBACBACBC,  // likewise
};

}  // namespace

FileSystemKind fileSystemKind(const QString& folder) {
    struct statfs info;
    if (statfs(QFile::encodeName(folder).constData(), &info) != 0) return FileSystemKind::Local;
    const bool network =
        std::find(std::begin(networkMagic), std::end(networkMagic), quint32(info.f_type)) != std::end(networkMagic);
    return network ? FileSystemKind::Network : FileSystemKind::Local;
}

#else

FileSystemKind fileSystemKind(const QString& folder) {
    const QStorageInfo storage(folder);
    const QByteArray type = storage.fileSystemType().toLower();
    const bool share = folder.startsWith(u"//"_s) || folder.startsWith(u"\\\\"_s);
    const auto names = {"nfs", "smb", "cifs", "afp", "webdav", "fuse", "9p"};
    const bool named = std::any_of(names.begin(), names.end(), [&](const char* name) { return type.contains(name); });
    return share || named ? FileSystemKind::Network : FileSystemKind::Local;
}

#endif

}  // namespace platform
