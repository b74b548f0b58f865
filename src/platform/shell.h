// Opening what another program of the system shows: files, folders, addresses.
#pragma once

#include <QString>
#include <QUrl>

namespace platform {

// How this system writes a path: "/srv/a.pdf", or "C:\a.pdf" and "\\server\share\a.pdf".
enum class PathStyle { Posix, Windows };
PathStyle nativePathStyle();

class Shell {
public:
    virtual ~Shell() = default;
    // With the program that the system ties to the file's kind. False when the system knows none; the program itself
    // may still fail later, unseen.
    virtual bool openFile(const QString& path) = 0;
    virtual bool openUrl(const QUrl& url) = 0;
    // A new letter in the user's mail program with this file attached. False when the system has no way to attach one.
    virtual bool writeMail(const QString& subject, const QString& body, const QString& file) = 0;
    // Relative paths never exist: they would depend on where the program was started.
    virtual bool exists(const QString& path) const = 0;
};

class DesktopShell : public Shell {
public:
    bool openFile(const QString& path) override;
    bool openUrl(const QUrl& url) override;
    bool writeMail(const QString& subject, const QString& body, const QString& file) override;
    bool exists(const QString& path) const override;
};

}  // namespace platform
