// fuzz_corpus unpack FILE FOLDER | pack FOLDER FILE: between the one file in the tree and the folder a fuzzer works in.
#include <QCryptographicHash>
#include <QDir>
#include <cstdio>

#include "corpusfile.h"

static bool unpack(const QString& name, const QString& folder) {
    if (!QDir().mkpath(folder)) return false;
    for (const QByteArray& entry : readCorpus(name)) {
        const QByteArray hash = QCryptographicHash::hash(entry, QCryptographicHash::Sha1).toHex();
        QFile file(folder + u'/' + QString::fromLatin1(hash));
        if (!file.open(QIODevice::WriteOnly) || file.write(entry) != entry.size()) return false;
    }
    return true;
}

static bool pack(const QString& folder, const QString& name) {
    QByteArrayList lines;
    for (const QString& each : QDir(folder).entryList(QDir::Files)) {
        QFile file(folder + u'/' + each);
        if (!file.open(QIODevice::ReadOnly)) return false;
        lines << escapedEntry(file.readAll());
    }
    std::sort(lines.begin(), lines.end());
    QFile out(name);
    const QByteArray all = lines.join('\n') + '\n';
    return out.open(QIODevice::WriteOnly) && out.write(all) == all.size();
}

int main(int count, char** words) {
    const QString what = count == 4 ? QString::fromLocal8Bit(words[1]) : QString();
    const QString from = QString::fromLocal8Bit(count == 4 ? words[2] : "");
    const QString to = QString::fromLocal8Bit(count == 4 ? words[3] : "");
    if (what == u"unpack") return unpack(from, to) ? 0 : 1;
    if (what == u"pack") return pack(from, to) ? 0 : 1;
    fputs("fuzz_corpus unpack FILE FOLDER | pack FOLDER FILE\n", stderr);
    return 2;
}
