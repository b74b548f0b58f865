#include "schema/tabfile.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include "data/error.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qint64 largestFile = 64 * 1024 * 1024;
const QByteArray sinceMark = "#since ";

QByteArray readAll(const QString& file) {
    QFile input(file);
    const QString name = QFileInfo(file).fileName();
    if (QFileInfo(file).isDir() || !input.open(QIODevice::ReadOnly))
        throw data::Error(data::ErrorCategory::Other,
                          u"Δεν διαβάζεται το αρχείο «%1»: %2"_s.arg(name, data::reasonOf(input)));
    if (input.size() > largestFile)
        throw data::Error(data::ErrorCategory::Other, u"Το αρχείο «%1» είναι πάρα πολύ μεγάλο."_s.arg(name));
    QByteArray bytes = input.readAll();
    if (bytes.startsWith("\xEF\xBB\xBF")) bytes.remove(0, 3);
    return bytes;
}

QString decodeLine(const QString& file, int line, const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    if (decoder.hasError()) failAtLine(file, line, u"το κείμενο δεν είναι σε κωδικοποίηση UTF-8"_s);
    for (const QChar c : text)
        if (c != u'\t' && c.category() == QChar::Other_Control) failAtLine(file, line, u"υπάρχει χαρακτήρας ελέγχου"_s);
    return text;
}

}  // namespace

void failAtLine(const QString& file, int line, const QString& what) {
    throw data::Error(data::ErrorCategory::Type,
                      u"Αρχείο «%1», γραμμή %2: %3."_s.arg(QFileInfo(file).fileName()).arg(line).arg(what));
}

QVector<TabRow> readTabFile(const QString& file, int columns) {
    QVector<TabRow> rows;
    int line = 0, since = 1;
    for (QByteArray bytes : readAll(file).split('\n')) {
        ++line;
        if (bytes.endsWith('\r')) bytes.chop(1);
        if (bytes.startsWith(sinceMark)) since = bytes.mid(sinceMark.size()).trimmed().toInt();
        if (bytes.isEmpty() || bytes.startsWith('#')) continue;
        TabRow row{line, decodeLine(file, line, bytes).split(u'\t'), since};
        if (row.cells.size() != columns)
            failAtLine(file, line, u"χρειάζονται %1 στήλες και βρέθηκαν %2"_s.arg(columns).arg(row.cells.size()));
        for (QString& cell : row.cells) cell = cell.trimmed();
        rows += row;
    }
    return rows;
}

}  // namespace schema
