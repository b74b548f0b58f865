// A fuzzer's corpus in one text file: an entry a line, with \n, \\ and \xNN for the bytes that a line can't hold.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QVector>

inline QByteArray escapedEntry(const QByteArray& entry) {
    const bool isText = QString::fromUtf8(entry).toUtf8() == entry;
    QByteArray out;
    for (const char c : entry) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n')
            out += "\\n";
        else if (c == '\\')
            out += "\\\\";
        else if (byte < 0x20 || byte == 0x7F || (byte >= 0x80 && !isText))
            out += "\\x" + QByteArray(1, c).toHex();
        else
            out += c;
    }
    return out;
}

inline QByteArray plainEntry(const QByteArray& line) {
    QByteArray out;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line[i] != '\\' || i + 1 == line.size()) {
            out += line[i];
        } else if (line[++i] == 'x') {
            out += QByteArray::fromHex(line.mid(i + 1, 2));
            i += 2;
        } else {
            out += line[i] == 'n' ? '\n' : line[i];
        }
    }
    return out;
}

inline QVector<QByteArray> readCorpus(const QString& name) {
    QFile file(name);
    QVector<QByteArray> entries;
    if (!file.open(QIODevice::ReadOnly)) return entries;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (!line.isEmpty()) entries << plainEntry(line);
    return entries;
}
