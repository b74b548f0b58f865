#include "data/sqlite/filehead.h"

#include <sqlite3.h>

#include <memory>

namespace data::sqlite {

std::optional<QByteArray> readFileHead(const QString& file, int most) {
    if (sqlite3_initialize() != SQLITE_OK) return std::nullopt;
    sqlite3_vfs* system = sqlite3_vfs_find(nullptr);
    QByteArray path(system->mxPathname + 2, '\0');  // two zeros end a path that has no options
    const int named = system->xFullPathname(system, file.toUtf8().constData(), system->mxPathname, path.data());
    if (named != SQLITE_OK && named != SQLITE_OK_SYMLINK) return std::nullopt;

    const auto room = std::make_unique<std::byte[]>(size_t(system->szOsFile));
    auto* source = reinterpret_cast<sqlite3_file*>(room.get());
    const int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_MAIN_DB;
    if (system->xOpen(system, path.constData(), source, flags, nullptr) != SQLITE_OK) return std::nullopt;
    sqlite3_int64 size = 0;
    int code = source->pMethods->xFileSize(source, &size);
    QByteArray head(int(qBound(sqlite3_int64(0), size, sqlite3_int64(most))), '\0');
    if (code == SQLITE_OK) code = source->pMethods->xRead(source, head.data(), int(head.size()), 0);
    source->pMethods->xClose(source);
    return code == SQLITE_OK ? std::optional(head) : std::nullopt;
}

}  // namespace data::sqlite
