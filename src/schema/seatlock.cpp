#include "schema/seatlock.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>

#include "data/error.h"

namespace schema {

namespace {

QString holderText(const QLockFile& lock) {
    qint64 pid = 0;
    QString host, program;
    if (!lock.getLockInfo(&pid, &host, &program)) return QStringLiteral("άλλη θέση");
    return QStringLiteral("η θέση «%1»").arg(host);
}

[[noreturn]] void refuse(const QLockFile& lock) {
    if (lock.error() != QLockFile::LockFailedError)
        throw data::Error(data::ErrorCategory::ReadOnly,
                          QStringLiteral("Ο φάκελος των δεδομένων βρίσκεται στο δίκτυο και δεν γράφεται."));
    throw data::Error(
        data::ErrorCategory::Busy,
        QStringLiteral("Ο φάκελος των δεδομένων βρίσκεται στο δίκτυο και τον χρησιμοποιεί %1. Μια βάση σε αρχείο του "
                       "δικτύου την ανοίγει μία θέση κάθε φορά, αλλιώς θα καταστρεφόταν. Κλείστε το πρόγραμμα εκεί, ή "
                       "ζητήστε από τον διαχειριστή να μεταφέρει τα δεδομένα σε διακομιστή βάσεων δεδομένων, όπου "
                       "δουλεύουν όλες οι θέσεις μαζί.")
            .arg(holderText(lock)));
}

}  // namespace

SeatLock::SeatLock() {
    connect(&timer_, &QTimer::timeout, this, &SeatLock::touch);
}

SeatLock::~SeatLock() = default;

void SeatLock::take(const QString& folder, const Probe& probe) {
    giveBack();
    if (probe(folder) == platform::FileSystemKind::Local) return;
    file_ = QDir(folder).filePath(QStringLiteral("dorvalist.seat"));
    auto lock = std::make_unique<QLockFile>(file_);
    lock->setStaleLockTime(staleSeconds * 1000);
    if (!lock->tryLock(0)) refuse(*lock);
    lock_ = std::move(lock);
    timer_.start(touchSeconds * 1000);
}

void SeatLock::giveBack() {
    timer_.stop();
    lock_.reset();
}

void SeatLock::touch() {
    if (!lock_) return;
    qint64 pid = 0;
    QString host, program;
    const bool ours = lock_->getLockInfo(&pid, &host, &program) && pid == QCoreApplication::applicationPid() &&
                      host == QSysInfo::machineHostName();
    QFile file(file_);
    if (ours && file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly) &&
        file.setFileTime(QDateTime::currentDateTime(), QFileDevice::FileModificationTime))
        return;
    timer_.stop();
    emit lost();
}

}  // namespace schema
