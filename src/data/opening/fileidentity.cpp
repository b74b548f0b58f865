#include "data/opening/fileidentity.h"

#include <QDir>
#include <QFileInfo>
#include <QtEndian>

#include "data/opening/serverdescription.h"
#include "data/sqlite/filehead.h"
#include "data/types.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

constexpr int headBytes = 4096;
constexpr qsizetype sqliteHeader = 100;

bool isJet(const QByteArray& head) {
    const QByteArray name = head.mid(4, 15);
    return name == "Standard Jet DB" || name == "Standard ACE DB";
}

FileIdentity identifySqlite(const QByteArray& head) {
    if (head.size() < sqliteHeader) return {FileKind::Noise, 0};
    const auto number = [&head](int offset) { return qFromBigEndian<quint32>(head.constData() + offset); };
    switch (number(68)) {
        case mainApplicationId:
            return {FileKind::Main, int(number(60))};
        case usersApplicationId:
            return {FileKind::Users, int(number(60))};
        default:
            return {FileKind::ForeignSqlite, 0};
    }
}

}  // namespace

QStringList sqliteSideFiles(const QString& file) {
    return {file + u"-wal"_s, file + u"-shm"_s, file + u"-journal"_s};
}

FileIdentity identifyFile(const QString& file) {
    const QFileInfo info(file);
    if (!info.exists()) return {FileKind::Missing, 0};
    // A pipe or a device would wait for ever; only a plain file is read.
    if (!info.isFile()) return {FileKind::Unreadable, 0};
    const auto found = sqlite::readFileHead(file, headBytes);
    if (!found) return {FileKind::Unreadable, 0};
    const QByteArray& head = *found;
    if (head.isEmpty()) return {FileKind::Empty, 0};
    if (isJet(head)) return {FileKind::Jet, 0};
    if (head.startsWith(QByteArray("SQLite format 3\0", 16))) return identifySqlite(head);
    return {looksLikeDescription(decodeDescription(head)) ? FileKind::ServerDescription : FileKind::Noise, 0};
}

QString fileKindText(const QString& file, FileKind kind) {
    const auto about = [&file](const QString& what) {
        return u"Το αρχείο «%1» %2"_s.arg(QDir::toNativeSeparators(file), what);
    };
    switch (kind) {
        case FileKind::Missing:
            return about(u"δεν υπάρχει. Ελέγξτε τον φάκελο των δεδομένων."_s);
        case FileKind::Unreadable:
            return about(u"δεν διαβάζεται. Ελέγξτε αν είναι αρχείο και αν έχετε δικαίωμα ανάγνωσης."_s);
        case FileKind::Empty:
            return about(u"είναι άδειο. Επαναφέρετε ένα αντίγραφο ασφαλείας ή φτιάξτε νέα βάση."_s);
        case FileKind::Jet:
            return about(
                u"είναι βάση Microsoft Access (Jet), που δεν ανοίγει εδώ. "
                "Διαλέξτε τον φάκελο με τη βάση αυτού του προγράμματος."_s);
        case FileKind::ServerDescription:
            return about(u"περιγράφει βάση σε διακομιστή και δεν είναι το ίδιο βάση δεδομένων."_s);
        case FileKind::ForeignSqlite:
            return about(
                u"είναι βάση SQLite άλλου προγράμματος. "
                "Διαλέξτε τον φάκελο με τη βάση αυτού του προγράμματος."_s);
        case FileKind::Noise:
            return about(
                u"δεν είναι βάση δεδομένων ή έχει καταστραφεί. "
                "Επαναφέρετε ένα αντίγραφο ασφαλείας."_s);
        case FileKind::Main:
        case FileKind::Users:
            break;
    }
    return {};
}

}  // namespace data
