#include "copies/seatlock.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryFile>
#include <QUuid>
#include <optional>

#include "data/error.h"
#include "data/opening/fileidentity.h"
#include "platform/processes.h"
#include "schema/office.h"

using namespace Qt::Literals::StringLiterals;

namespace copies {

namespace {

// A machine that slept finds out soon after that its seat was taken.
constexpr int lookSeconds = 5;

// The lines of a lock file; the last one tells two takings of one process apart.
enum Line { Host, Boot, Process, Taking };  // the first three are those of platform::processMark()

QByteArray newMark() {
    return platform::processMark() + QUuid::createUuid().toByteArray(QUuid::WithoutBraces) + '\n';
}

struct Holder {
    QByteArray mark;
    QDateTime touched;

    QByteArray line(Line which) const { return mark.split('\n').value(which); }
};

std::optional<Holder> holderOf(const QString& file) {
    constexpr qint64 most = 4096;
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) return std::nullopt;
    const QByteArray mark = source.read(most);
    return Holder{mark, source.fileTime(QFileDevice::FileModificationTime)};
}

bool isDead(const Holder& holder) {
    return platform::isGone(holder.mark);
}

// Removes the file if it holds this text; it goes out of the others' way first, since one of them may just be putting
// his own in its place.
void removeMarked(const QString& file, const QByteArray& mark) {
    const auto found = holderOf(file);
    if (!found || found->mark != mark) return;
    const QString aside = file + u'.' + QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (!QFile::rename(file, aside)) return;
    const auto moved = holderOf(aside);
    if (moved && moved->mark == mark)
        QFile::remove(aside);
    else
        QFile::rename(aside, file);
}

// False when the file is there already.
bool makeMarked(const QString& file, const QByteArray& mark) {
    QFile target(file);
    if (target.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        if (target.write(mark) == mark.size()) return true;
        target.remove();
    } else if (QFile::exists(file)) {
        return false;
    }
    throw data::Error(data::ErrorCategory::ReadOnly,
                      u"Ο φάκελος των δεδομένων βρίσκεται στο δίκτυο και δεν γράφεται."_s);
}

[[noreturn]] void refuse(const QString& file) {
    const auto holder = holderOf(file);
    const QString host = QString::fromUtf8(holder ? holder->line(Host) : QByteArray());
    throw data::Error(
        data::ErrorCategory::Busy,
        u"Ο φάκελος των δεδομένων βρίσκεται στο δίκτυο και τον χρησιμοποιεί %1. Μια βάση σε αρχείο του "
        "δικτύου την ανοίγει μία θέση κάθε φορά, αλλιώς θα καταστρεφόταν. Κλείστε το πρόγραμμα εκεί (αν "
        "διακόπηκε απότομα, δοκιμάστε ξανά σε %2 λεπτά), ή ζητήστε από τον διαχειριστή να μεταφέρει τα "
        "δεδομένα σε διακομιστή βάσεων δεδομένων, όπου "
        "δουλεύουν όλες οι θέσεις μαζί."_s.arg(host.isEmpty() ? u"άλλη θέση"_s : u"η θέση «%1»"_s.arg(host))
            .arg(SeatLock::staleSeconds / 60));
}

QDateTime timeOfNewFile(const QString& folder) {
    QTemporaryFile file(QDir(folder).filePath(u"dorvalist.seat.XXXXXX"_s));
    if (!file.open() || file.write("\n") != 1 || !file.flush()) return {};
    return file.fileTime(QFileDevice::FileModificationTime);
}

bool isOnServer(const QString& folder) {
    using schema::Database;
    const auto onServer = [&](Database database) {
        return data::identifyFile(schema::databasePath(folder, database)).kind == data::FileKind::ServerDescription;
    };
    return onServer(Database::Main) && onServer(Database::Users);
}

}  // namespace

SeatLock::SeatLock() : folderTime(timeOfNewFile) {
    connect(&timer_, &QTimer::timeout, this, &SeatLock::touchIfDue);
}

SeatLock::~SeatLock() {
    giveBack();
}

void SeatLock::take(const QString& folder, const Probe& probe) {
    giveBack();
    if (probe(folder) == platform::FileSystemKind::Local || isOnServer(folder)) return;
    file_ = QDir(folder).filePath(u"dorvalist.seat"_s);
    const QByteArray mark = newMark();
    if (!makeMarked(file_, mark)) {
        const auto holder = holderOf(file_);
        const QDateTime now = folderTime(folder);
        const bool old = holder && now.isValid() && qAbs(holder->touched.secsTo(now)) > staleSeconds;
        if (!holder || !(old || isDead(*holder))) refuse(file_);
        removeMarked(file_, holder->mark);
        if (!makeMarked(file_, mark)) refuse(file_);
    }
    mark_ = mark;
    touched_ = QDateTime::currentDateTimeUtc();
    timer_.start(lookSeconds * 1000);
}

void SeatLock::giveBack() {
    timer_.stop();
    if (isHeld()) removeMarked(file_, mark_);
    mark_.clear();
}

void SeatLock::touchIfDue() {
    if (qAbs(touched_.secsTo(QDateTime::currentDateTimeUtc())) >= touchSeconds) touch();
}

// Written, because then the file server stamps it by its own clock.
void SeatLock::touch() {
    if (!isHeld()) return;
    touched_ = QDateTime::currentDateTimeUtc();
    QFile file(file_);
    const auto flags = QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered;
    if (file.open(flags) && file.readAll() == mark_ && file.seek(0) && file.write(mark_) == mark_.size()) return;
    timer_.stop();
    emit lost();
}

}  // namespace copies
