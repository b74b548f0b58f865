#include "data/opening/connectionstring.h"

namespace data {
namespace {

// Reads a quoted value from its opening quote on; leaves `at` behind the closing one.
QString readQuoted(QStringView text, qsizetype& at) {
    const QChar quote = text[at];
    QString value;
    for (++at; at < text.size(); ++at) {
        if (text[at] == quote) {
            if (at + 1 >= text.size() || text[at + 1] != quote) break;
            ++at;
        }
        value += text[at];
    }
    ++at;
    return value;
}

qsizetype nextSemicolon(QStringView text, qsizetype from) {
    const qsizetype at = from < text.size() ? text.indexOf(u';', from) : -1;
    return at < 0 ? text.size() : at;
}

}  // namespace

QHash<QString, QString> parseConnectionString(QStringView text) {
    QHash<QString, QString> properties;
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype equals = text.indexOf(u'=', at), end = nextSemicolon(text, at);
        if (equals < 0 || equals > end) {
            at = end + 1;
            continue;
        }
        const QString key = text.mid(at, equals - at).trimmed().toString().toLower();
        at = equals + 1;
        while (at < text.size() && text[at].isSpace()) ++at;
        if (at < text.size() && (text[at] == u'"' || text[at] == u'\'')) {
            properties[key] = readQuoted(text, at);
            at = nextSemicolon(text, at) + 1;
        } else {
            const qsizetype stop = nextSemicolon(text, at);
            properties[key] = text.mid(at, stop - at).trimmed().toString();
            at = stop + 1;
        }
    }
    return properties;
}

}  // namespace data
