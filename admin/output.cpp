#include "admin/output.h"

#include <cstdio>

using namespace Qt::Literals::StringLiterals;

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

QString escaped(QString text) {
    return text.replace(u'\\', u"\\\\"_s).replace(u'\t', u"\\t"_s).replace(u'\r', u"\\r"_s).replace(u'\n', u"\\n"_s);
}

}  // namespace admin
