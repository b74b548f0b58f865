#include "platform/serverprograms.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;

namespace platform {
namespace {

// A folder for each version, "*" standing for it.
QStringList installersFolders() {
#if defined(Q_OS_WIN)
    return {qEnvironmentVariable("ProgramFiles") + u"/PostgreSQL/*/bin"_s};
#elif defined(Q_OS_MACOS)
    return {u"/Library/PostgreSQL/*/bin"_s, u"/opt/homebrew/opt/libpq/bin"_s, u"/usr/local/opt/libpq/bin"_s};
#else
    return {u"/usr/lib/postgresql/*/bin"_s, u"/usr/local/pgsql/bin"_s};
#endif
}

QStringList matching(const QString& pattern) {
    const qsizetype star = pattern.indexOf(u'*');
    if (star < 0) return {pattern};
    QStringList found;
    const QDir folder(pattern.left(star));
    for (const QString& version : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        found += folder.filePath(version) + pattern.mid(star + 1);
    std::sort(found.begin(), found.end(), [star](const QString& one, const QString& other) {
        const auto number = [star](const QString& path) { return path.mid(star).section(u'/', 0, 0).toDouble(); };
        return number(one) > number(other);
    });
    return found;
}

QStringList configuredFolder() {
    const QString program = QStandardPaths::findExecutable(u"pg_config"_s);
    if (program.isEmpty()) return {};
    QProcess process;
    process.start(program, {u"--bindir"_s}, QIODevice::ReadOnly);
    if (!process.waitForFinished(5000) || process.exitCode() != 0) return {};
    return {QString::fromLocal8Bit(process.readAllStandardOutput()).trimmed()};
}

}  // namespace

QString serverProgram(const QString& name) {
    const QString onPath = QStandardPaths::findExecutable(name);
    if (!onPath.isEmpty()) return onPath;
    QStringList folders = configuredFolder();
    for (const QString& pattern : installersFolders()) folders += matching(pattern);
    return folders.isEmpty() ? QString() : QStandardPaths::findExecutable(name, folders);
}

}  // namespace platform
