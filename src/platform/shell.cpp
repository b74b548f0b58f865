#include "platform/shell.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;

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

bool DesktopShell::writeMail(const QString& subject, const QString& body, const QString& file) {
    const QString program = QStandardPaths::findExecutable(u"xdg-email"_s);
    return !program.isEmpty() && QProcess::startDetached(program, {u"--utf8"_s, u"--subject"_s, subject, u"--body"_s,
                                                                   body, u"--attach"_s, file});
}

bool DesktopShell::exists(const QString& path) const {
    const QFileInfo file(path);
    return file.isAbsolute() && file.exists();
}

}  // namespace platform
