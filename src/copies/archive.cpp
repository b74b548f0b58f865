#include "copies/archive.h"

#include <archive.h>
#include <archive_entry.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

#include "data/error.h"

namespace copies {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;
using data::failWriting;

constexpr qint64 chunk = 1 << 18;

using Reader = std::unique_ptr<archive, decltype(&archive_read_free)>;
using Writer = std::unique_ptr<archive, decltype(&archive_write_free)>;
using Entry = std::unique_ptr<archive_entry, decltype(&archive_entry_free)>;

[[noreturn]] void failReading(const QFileDevice& file) {
    throw Error(ErrorCategory::Connection, u"Το αρχείο «%1» δεν διαβάζεται: %2"_s.arg(
                                               QDir::toNativeSeparators(file.fileName()), data::reasonOf(file)));
}

[[noreturn]] void failDamaged(const QString& file) {
    throw Error(ErrorCategory::Corrupt, u"Το αρχείο «%1» δεν είναι αντίγραφο ασφαλείας ή έχει καταστραφεί."_s.arg(
                                            QDir::toNativeSeparators(file)));
}

[[noreturn]] void failPacking() {
    throw Error(ErrorCategory::Other, u"Η βιβλιοθήκη αρχείων δεν μπορεί να συμπιέσει το αντίγραφο (zstd)."_s);
}

la_ssize_t writeBytes(archive*, void* file, const void* bytes, size_t size) {
    const qint64 written = static_cast<QSaveFile*>(file)->write(static_cast<const char*>(bytes), qint64(size));
    return written == qint64(size) ? la_ssize_t(written) : -1;
}

void writeMember(archive* tar, QSaveFile& target, const ArchiveMember& member) {
    QFile source(member.file);
    if (!source.open(QIODevice::ReadOnly)) failReading(source);
    const Entry entry(archive_entry_new(), archive_entry_free);
    archive_entry_set_pathname_utf8(entry.get(), member.name.toUtf8().constData());
    archive_entry_set_size(entry.get(), source.size());
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0600);
    archive_entry_set_mtime(entry.get(), QFileInfo(source).lastModified().toSecsSinceEpoch(), 0);
    if (archive_write_header(tar, entry.get()) != ARCHIVE_OK) failWriting(target);
    QByteArray bytes(chunk, Qt::Uninitialized);
    for (qint64 size; (size = source.read(bytes.data(), chunk)) != 0;) {
        if (size < 0) failReading(source);
        if (archive_write_data(tar, bytes.constData(), size_t(size)) != size) failWriting(target);
    }
}

struct ArchiveFile {
    QFile file;
    QByteArray bytes = QByteArray(chunk, Qt::Uninitialized);
};

la_ssize_t readBytes(archive*, void* client, const void** bytes) {
    auto* source = static_cast<ArchiveFile*>(client);
    *bytes = source->bytes.constData();
    return source->file.read(source->bytes.data(), chunk);
}

void extractMember(archive* tar, archive_entry* entry, const QString& target, const ArchiveFile& source) {
    // A sparse member could be larger than any disk; none of ours is.
    if (archive_entry_filetype(entry) != AE_IFREG || archive_entry_sparse_reset(entry) > 0)
        failDamaged(source.file.fileName());
    QSaveFile file(target);
    // Little that is compressed may be much, and isn't begun when it can't end well.
    const QStorageInfo disk(QFileInfo(target).absolutePath());
    if (disk.isValid() && archive_entry_size(entry) > disk.bytesAvailable()) failWriting(file);
    if (!file.open(QIODevice::WriteOnly)) failWriting(file);
    QByteArray bytes(chunk, Qt::Uninitialized);
    for (la_ssize_t size; (size = archive_read_data(tar, bytes.data(), chunk)) != 0;) {
        if (size < 0) failDamaged(source.file.fileName());
        if (file.write(bytes.constData(), size) != size) failWriting(file);
    }
    if (!file.commit()) failWriting(file);
}

}  // namespace

void writeArchive(const QString& archive, const QVector<ArchiveMember>& members) {
    QSaveFile target(archive);
    if (!target.open(QIODevice::WriteOnly)) failWriting(target);
    target.setPermissions(QFile::ReadOwner | QFile::WriteOwner);  // fails only where a file system has no rights
    {
        const Writer tar(archive_write_new(), archive_write_free);
        archive_write_set_format_pax_restricted(tar.get());
        if (archive_write_add_filter_zstd(tar.get()) != ARCHIVE_OK) failPacking();
        archive_write_set_bytes_in_last_block(tar.get(), 1);  // zeros behind its end are no zstd
        if (archive_write_open(tar.get(), &target, nullptr, writeBytes, nullptr) != ARCHIVE_OK) failWriting(target);
        for (const ArchiveMember& member : members) writeMember(tar.get(), target, member);
        if (archive_write_close(tar.get()) != ARCHIVE_OK) failWriting(target);
    }
    if (!target.commit()) failWriting(target);
}

QStringList extractArchive(const QString& archive, const QString& folder, const QStringList& names) {
    ArchiveFile source;
    source.file.setFileName(archive);
    if (!source.file.open(QIODevice::ReadOnly)) failReading(source.file);
    const Reader tar(archive_read_new(), archive_read_free);
    archive_read_support_format_tar(tar.get());
    archive_read_support_filter_zstd(tar.get());
    if (archive_read_open(tar.get(), &source, nullptr, readBytes, nullptr) != ARCHIVE_OK) failDamaged(archive);
    QStringList found;
    archive_entry* entry = nullptr;
    int code;
    while ((code = archive_read_next_header(tar.get(), &entry)) == ARCHIVE_OK) {
        const char* utf8 = archive_entry_pathname_utf8(entry);
        const QString name = QString::fromUtf8(utf8 ? utf8 : "");
        if (!names.contains(name) || found.contains(name)) continue;
        extractMember(tar.get(), entry, QDir(folder).filePath(name), source);
        found += name;
    }
    if (code != ARCHIVE_EOF) failDamaged(archive);
    return found;
}

}  // namespace copies
