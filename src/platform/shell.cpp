#include "platform/shell.h"

#include <QDesktopServices>
#include <QFileInfo>

namespace platform {

PathStyle nativePathStyle() {
#ifdef Q_OS_WIN
    return PathStyle::Windows;
#else
    return PathStyle::Posix;
#endif
}

bool DesktopShell::openFile(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool DesktopShell::openUrl(const QUrl& url) {
    return QDesktopServices::openUrl(url);
}

bool DesktopShell::exists(const QString& path) const {
    const QFileInfo file(path);
    return file.isAbsolute() && file.exists();
}

}  // namespace platform
