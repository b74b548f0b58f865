// Files of a test's scratch folder.
#pragma once

#include <QDir>
#include <QFile>
#include <QTest>

namespace support {

inline QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// From `at` on; makes the file when it is missing.
inline void overwrite(const QString& path, const QByteArray& bytes, qint64 at = 0) {
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || !file.seek(at) || file.write(bytes) != bytes.size())
        QTest::qFail(qPrintable("not written: " + path), __FILE__, __LINE__);
}

// As the whole of the file.
inline void write(const QString& path, const QByteArray& bytes) {
    QFile::remove(path);
    overwrite(path, bytes);
}

// All that lies in it, hidden things too.
inline QStringList entriesOf(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
}

}  // namespace support
