#include "data/opening/serverdescription.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include "data/error.h"
#include "data/opening/privatefile.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

struct Key {
    QString name;
    QString ServerDescription::*value;
};

// The first name of a value is the one that is written.
const Key keys[] = {
    {u"host"_s, &ServerDescription::host},         {u"port"_s, &ServerDescription::port},
    {u"database"_s, &ServerDescription::database}, {u"user"_s, &ServerDescription::user},
    {u"password"_s, &ServerDescription::password}, {u"sslmode"_s, &ServerDescription::sslMode},
    {u"service"_s, &ServerDescription::service},   {u"schema"_s, &ServerDescription::schema},
    {u"server"_s, &ServerDescription::host},       {u"dbname"_s, &ServerDescription::database},
};

constexpr qint64 longestFile = 64 * 1024;
// Bytes of the server's 63, less those of "_YYYYMMDD-HHMMSS" behind a schema that a restored one takes the place of.
constexpr qsizetype longestSchema = 63 - 16;

[[noreturn]] void refuse(const QString& what) {
    throw Error(ErrorCategory::Connection, what);
}

void set(ServerDescription& server, const QString& name, const QString& value, const QString& where,
         qsizetype schemaBytes = longestSchema) {
    for (const Key& key : keys)
        if (name.compare(key.name, Qt::CaseInsensitive) == 0) {
            server.*key.value = value;
            if (key.value == &ServerDescription::schema && value.toUtf8().size() > schemaBytes)
                refuse(where +
                       u" το όνομα του σχήματος είναι πολύ μακρύ (έως %1 ελληνικά γράμματα)."_s.arg(schemaBytes / 2));
            return;
        }
    refuse(
        u"%1 το «%2» δεν είναι στοιχείο διακομιστή. Δεκτά είναι: host, port, database, user, sslmode, "
        "service, schema."_s.arg(where, name.left(40)));
}

// What a value means: between quotes everything, else up to a comment. A password is never cut.
QString unwrapped(const QString& text, bool password) {
    const QChar quote = text.isEmpty() ? QChar() : text.front();
    if (quote == u'"' || quote == u'\'') {
        const qsizetype end = password ? text.lastIndexOf(quote) : text.indexOf(quote, 1);
        const QString rest = text.mid(end + 1).trimmed();
        if (end > 0 && (rest.isEmpty() || (!password && rest.startsWith(u'#')))) return text.mid(1, end - 1);
    }
    const qsizetype comment = password ? -1 : text.indexOf(u" #"_s);
    return comment < 0 ? text : text.left(comment).trimmed();
}

QString wrapped(const QString& value) {
    const bool plain =
        !value.contains(u" #"_s) && !value.startsWith(u'"') && !value.startsWith(u'\'') && value == value.trimmed();
    const QChar quote = value.contains(u'"') ? u'\'' : u'"';
    return plain ? value : quote + value + quote;
}

// "key = value" of a line; an empty key when there is none in it. False for what needn't be read.
bool split(const QString& raw, QString& key, QString& value) {
    const QString line = raw.trimmed();
    if (line.isEmpty() || line.startsWith(u'#') || line.startsWith(u'[')) return false;
    const qsizetype equals = line.indexOf(u'=');
    key = line.left(equals).trimmed();
    value = equals < 0 ? QString()
                       : unwrapped(line.mid(equals + 1).trimmed(), key.compare(u"password", Qt::CaseInsensitive) == 0);
    return true;
}

}  // namespace

QString decodeDescription(const QByteArray& bytes) {
    const auto encoding = QStringConverter::encodingForData(bytes).value_or(QStringConverter::Utf8);
    return QStringDecoder(encoding).decode(bytes);
}

bool looksLikeDescription(const QString& text) {
    bool names = false;
    QString key, value;
    for (const QString& line : text.split(u'\n')) {
        for (const QChar c : line)
            if (c < u' ' && c != u'\t' && c != u'\r') return false;
        if (!split(line, key, value) || !line.contains(u'=')) continue;
        for (const Key& known : keys)
            names |= key.compare(known.name, Qt::CaseInsensitive) == 0 &&
                     (known.value == &ServerDescription::host || known.value == &ServerDescription::database ||
                      known.value == &ServerDescription::service);
    }
    return names;
}

ServerDescription parseServerDescription(const QString& text, const QString& file) {
    ServerDescription server;
    int number = 0;
    QString key, value;
    for (const QString& line : text.split(u'\n')) {
        ++number;
        if (!split(line, key, value)) continue;
        set(server, key, value, u"Στο αρχείο «%1», γραμμή %2,"_s.arg(QFileInfo(file).fileName()).arg(number));
    }
    return server;
}

ServerDescription readServerDescription(const QString& file) {
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) refuse(u"Το αρχείο «%1» δεν διαβάζεται: %2"_s.arg(file, reasonOf(source)));
    return parseServerDescription(decodeDescription(source.read(longestFile)), file);
}

ServerDescription serverFromOptions(const QString& text) {
    ServerDescription server;
    const QString where = u"Στα στοιχεία του διακομιστή"_s;
    for (qsizetype at = 0; at < text.size();) {
        if (text[at].isSpace()) {
            ++at;
            continue;
        }
        const qsizetype equals = text.indexOf(u'=', at);
        const QString name = text.mid(at, equals < 0 ? -1 : equals - at).trimmed();
        if (equals < 0) set(server, name.contains(u'=') ? name : name + u'=', {}, where);
        at = equals + 1;
        const bool quoted = at < text.size() && (text[at] == u'\'' || text[at] == u'"');
        qsizetype end = quoted ? text.indexOf(text[at], at + 1) : at;
        if (quoted && end < 0) refuse(where + u" λείπει το κλείσιμο εισαγωγικών."_s);
        if (!quoted)
            while (end < text.size() && !text[end].isSpace()) ++end;
        set(server, name, quoted ? text.mid(at + 1, end - at - 1) : text.mid(at, end - at), where,
            longestSchema - 1);  // the users' schema has one letter more
        at = quoted ? end + 1 : end;
    }
    return server;
}

void writeServerDescription(const QString& file, const ServerDescription& server) {
    QString text = u"# Η βάση αυτή βρίσκεται σε διακομιστή PostgreSQL.\n"_s;
    for (const Key& key : keys) {
        const QString value = server.*key.value;
        if (value.isEmpty()) continue;
        if (key.name == u"server") break;
        text += u"%1 = %2\n"_s.arg(key.name, wrapped(value));
    }
    QFile target(file);
    const QByteArray bytes = text.toUtf8();
    if (!target.open(QIODevice::WriteOnly | QIODevice::NewOnly)) failWriting(target);
    closeToOthers(file);  // before a password is in it
    if (target.write(bytes) != bytes.size() || !target.flush()) failWriting(target);
}

}  // namespace data
