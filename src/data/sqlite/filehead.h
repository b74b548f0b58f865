#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace data::sqlite {

// The first bytes of a plain file, at most so many; nothing when it can't be read. Goes through the embedded engine's
// own files: closing a database in any other way would give up the locks that this process holds on it.
std::optional<QByteArray> readFileHead(const QString& file, int most);

}  // namespace data::sqlite
