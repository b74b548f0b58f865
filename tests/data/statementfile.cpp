#include "statementfile.h"

#include <QFile>
#include <QFileInfo>
#include <QVariant>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

void readOption(TypedStatement& statement, const QString& text) {
    if (text == u"user")
        statement.user = true;
    else if (text == u"users")
        statement.usersDatabase = true;
    else
        statement.parameters.insert(text.section(u'=', 0, 0).trimmed(),
                                    text.contains(u'=') ? QVariant(text.section(u'=', 1).trimmed()) : QVariant());
}

void readRefusal(TypedStatement& statement, const QString& text) {
    statement.category = text.section(u' ', 0, 0);
    statement.position = text.section(u' ', 1, 1).toInt();
    statement.says = text.section(u' ', 2).split(u" | "_s);
}

}  // namespace

QVector<TypedStatement> readStatements(const QString& name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error(qPrintable(name));
    QVector<TypedStatement> all;
    TypedStatement next;
    int number = 0;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        ++number;
        if (line.isEmpty() || line.startsWith(u'#')) continue;
        const QString rest = line.mid(2);
        const QChar sign = line.size() > 1 && line[1] == u' ' ? line[0] : QChar();
        if (sign == u'@') {
            readOption(next, rest);
            continue;
        }
        if (all.isEmpty() || !u"=>!?"_s.contains(sign) || sign.isNull()) {
            next.name = QFileInfo(name).fileName() + u':' + QString::number(number);
            next.sql = line;
            next.sql.replace(u"\\r\\n"_s, u"\r\n"_s).replace(u"\\n"_s, u"\n"_s);
            all << std::exchange(next, {});
            continue;
        }
        TypedStatement& last = all.last();
        if (sign == u'=') {
            last.count = rest.toInt();
        } else if (sign == u'>') {
            last.rows << rest;
            last.hasRows = true;
        } else if (sign == u'?') {
            last.look = rest;
        } else {
            readRefusal(last, rest);
        }
    }
    return all;
}
