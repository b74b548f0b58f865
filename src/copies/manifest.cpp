#include "copies/manifest.h"

#include <QCryptographicHash>
#include <QFile>

#include "data/dialect/enginedialect.h"
#include "data/smallrows.h"

namespace copies {
namespace {

using namespace Qt::Literals::StringLiterals;

const QByteArray firstLine = "dorvalist-backup\t1";

// A folder's name may hold what separates the cells and lines.
QByteArray escaped(const QString& text) {
    return text.toUtf8().toPercentEncoding("/ :\\");
}

QString unescaped(const QByteArray& text) {
    return QString::fromUtf8(QByteArray::fromPercentEncoding(text));
}

}  // namespace

RowCounts rowCounts(data::Connection& connection) {
    RowCounts counts;
    for (const data::TableInfo& table : connection.catalog().tables()) {
        const QByteArray from = connection.engine().dialect().identifier(table.name);
        counts.insert(table.name, data::textRows(connection.engine(), "SELECT count(*) FROM " + from).firstNumber());
    }
    return counts;
}

QByteArray Manifest::toText() const {
    QByteArrayList lines = {firstLine, "made\t" + made.toString(Qt::ISODate).toUtf8(), "folder\t" + escaped(folder)};
    for (auto member = members.cbegin(); member != members.cend(); ++member) {
        lines += "file\t" + escaped(member.key()) + '\t' + member->sha256;
        if (!member->schema.isEmpty()) lines += "schema\t" + escaped(member.key()) + '\t' + escaped(member->schema);
        for (auto table = member->rows.cbegin(); table != member->rows.cend(); ++table)
            lines += "rows\t" + escaped(member.key()) + '\t' + escaped(table.key()) + '\t' +
                     QByteArray::number(table.value());
    }
    return lines.join('\n') + '\n';
}

Manifest Manifest::fromText(const QByteArray& text) {
    Manifest manifest;
    const QByteArrayList lines = text.split('\n');
    for (const QByteArray& line : lines.mid(1)) {
        const QByteArrayList cells = line.split('\t');
        if (cells[0] == "made" && cells.size() == 2)
            manifest.made = QDateTime::fromString(QString::fromUtf8(cells[1]), Qt::ISODate);
        else if (cells[0] == "folder" && cells.size() == 2)
            manifest.folder = unescaped(cells[1]);
        else if (cells[0] == "file" && cells.size() == 3)
            manifest.members[unescaped(cells[1])].sha256 = cells[2];
        else if (cells[0] == "schema" && cells.size() == 3)
            manifest.members[unescaped(cells[1])].schema = unescaped(cells[2]);
        else if (cells[0] == "rows" && cells.size() == 4)
            manifest.members[unescaped(cells[1])].rows[unescaped(cells[2])] = cells[3].toLongLong();
    }
    if (lines[0] != firstLine || !manifest.made.isValid())
        throw data::Error(data::ErrorCategory::Corrupt,
                          u"Ο κατάλογος περιεχομένων του αντιγράφου ασφαλείας δεν διαβάζεται."_s);
    return manifest;
}

QByteArray sha256Of(const QString& file) {
    QFile source(file);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!source.open(QIODevice::ReadOnly) || !hash.addData(&source))
        throw data::Error(data::ErrorCategory::Connection,
                          u"Το αρχείο «%1» δεν διαβάζεται: %2"_s.arg(file, data::reasonOf(source)));
    return hash.result().toHex();
}

}  // namespace copies
