// The one comparison of texts: everything that compares, sorts or searches text does it on the fold.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace data {

// Lower case, no tonos, dialytika or other Latin and Greek accents, final sigma as sigma. The binary
// order of folded Greek is alphabetical order. fold(fold(x)) == fold(x), and no text grows.
QString fold(QStringView text);

// The same on UTF-8, without a detour through QString; what the engines call per row. Bytes that aren't
// valid UTF-8 come back as they were.
QByteArray foldUtf8(const char* text, qsizetype size);

// The same into the caller's memory, which has room for size * 3 / 2 bytes; the number of bytes written.
qsizetype foldUtf8Into(const char* text, qsizetype size, char* out);

}  // namespace data
