#include "data/serverdescription.h"

#include <QFile>
#include <QFileInfo>

#include "data/error.h"

namespace data {
namespace {

struct Key {
    const char16_t* name;
    QString ServerDescription::*value;
};

// The first name of a value is the one that is written.
constexpr Key keys[] = {
    {u"host", &ServerDescription::host},         {u"port", &ServerDescription::port},
    {u"database", &ServerDescription::database}, {u"user", &ServerDescription::user},
    {u"password", &ServerDescription::password}, {u"sslmode", &ServerDescription::sslMode},
    {u"service", &ServerDescription::service},   {u"schema", &ServerDescription::schema},
    {u"server", &ServerDescription::host},       {u"dbname", &ServerDescription::database},
};

constexpr qint64 longestFile = 64 * 1024;

[[noreturn]] void refuse(const QString& what) {
    throw Error(ErrorCategory::Connection, what);
}

void set(ServerDescription& server, const QString& name, const QString& value, const QString& where) {
    for (const Key& key : keys)
        if (name.compare(QStringView(key.name), Qt::CaseInsensitive) == 0) {
            server.*key.value = value;
            return;
        }
    refuse(QStringLiteral("%1 το «%2» δεν είναι στοιχείο διακομιστή. Δεκτά είναι: host, port, database, user, sslmode, "
                          "service, schema.")
               .arg(where, name.left(40)));
}

}  // namespace

ServerDescription parseServerDescription(const QString& text, const QString& file) {
    ServerDescription server;
    int number = 0;
    for (const QString& raw : text.split(u'\n')) {
        ++number;
        QString line = raw.trimmed();
        if (number == 1 && line.startsWith(QChar(0xFEFF))) line = line.mid(1).trimmed();
        if (line.isEmpty() || line.startsWith(u'#') || line.startsWith(u'[')) continue;
        const QString where = QStringLiteral("Στο αρχείο «%1», γραμμή %2,").arg(QFileInfo(file).fileName()).arg(number);
        const qsizetype equals = line.indexOf(u'=');
        set(server, line.left(equals).trimmed(), equals < 0 ? QString() : line.mid(equals + 1).trimmed(), where);
    }
    return server;
}

ServerDescription readServerDescription(const QString& file) {
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        refuse(QStringLiteral("Το αρχείο «%1» δεν διαβάζεται: %2").arg(file, source.errorString()));
    return parseServerDescription(QString::fromUtf8(source.read(longestFile)), file);
}

ServerDescription serverFromOptions(const QString& text) {
    ServerDescription server;
    const QString where = QStringLiteral("Στα στοιχεία του διακομιστή");
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
        if (quoted && end < 0) refuse(where + QStringLiteral(" λείπει το κλείσιμο εισαγωγικών."));
        if (!quoted)
            while (end < text.size() && !text[end].isSpace()) ++end;
        set(server, name, quoted ? text.mid(at + 1, end - at - 1) : text.mid(at, end - at), where);
        at = quoted ? end + 1 : end;
    }
    return server;
}

void writeServerDescription(const QString& file, const ServerDescription& server) {
    QString text = QStringLiteral("# Η βάση αυτή βρίσκεται σε διακομιστή PostgreSQL.\n");
    for (const Key& key : keys) {
        const QString value = server.*key.value;
        if (value.isEmpty()) continue;
        if (QStringView(key.name) == u"server") break;
        text += QStringLiteral("%1 = %2\n").arg(QStringView(key.name), value);
    }
    QFile target(file);
    const QByteArray bytes = text.toUtf8();
    if (!target.open(QIODevice::WriteOnly | QIODevice::NewOnly) || target.write(bytes) != bytes.size() ||
        !target.flush())
        failWriting(target);
}

}  // namespace data
