#include "admin/output.h"

#include <cstdio>

namespace admin {
namespace {

QTextStream& utf8(QTextStream& stream) {
    stream.setEncoding(QStringConverter::Utf8);
    return stream;
}

}  // namespace

QTextStream& out() {
    static QTextStream stream(stdout, QIODevice::WriteOnly);
    return utf8(stream);
}

QTextStream& err() {
    static QTextStream stream(stderr, QIODevice::WriteOnly);
    return utf8(stream);
}

}  // namespace admin
