// Database files put in the place of others.
#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

namespace schema {

// Each old file is kept beside the new one under a dated name, with the journals that belong to it; at no moment is
// there none. Unless it is kept, everything goes back.
class FileReplacement {
public:
    FileReplacement() = default;
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    // Moves `fresh`, which is on the same file system, to `target`, with the owner and the rights of what is there, or
    // the folder's owner; never open to others. Journals that were left behind there go aside even without their file:
    // they would be taken for the new one's. Returns the old file's new name, empty when there was none. Throws
    // data::Error(Full).
    QString put(const QString& fresh, const QString& target, const QDateTime& now);
    void keep() { kept_ = true; }

private:
    void move(const QString& from, const QString& to);

    QVector<std::pair<QString, QString>> moves_;
    bool kept_ = false;
};

}  // namespace schema
