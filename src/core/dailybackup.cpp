#include "core/dailybackup.h"

#include "core/guard.h"

#include <QDir>

#include "copies/backup.h"
#include "copies/servertools.h"
#include "core/browsemod.h"
#include "core/damage.h"
#include "data/opening/fileidentity.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

namespace {

const QString section = u"Options"_s;
const QString futureKey = u"BackupOfTheFuture"_s;  // the last that was told of

bool isOpen(const MainMod& mod) {
    return mod.gConn.isOpen() && mod.gConnUsers.isOpen();
}

bool isOnServer(const QString& file) {
    return data::identifyFile(file).kind == data::FileKind::ServerDescription;
}

}  // namespace

// What the thread needs, and what it leaves; nobody else touches the latter before it has ended.
struct DailyBackup::Work {
    BackupKind kind;
    QString dataPath, folder, file;
    QDateTime now;
    std::atomic<bool> stop = false;
    copies::ServerTools tools;
    QString failure, ofTheFuture;
    bool damaged = false;

    void run() {
        try {
            requireBackupFolder(folder);
            const bool isDaily = kind == BackupKind::Daily;
            if (isDaily) ofTheFuture = backupsOfTheFuture(folder, dataPath, now).value(0);
            if (isDaily && hasDailyBackup(folder, dataPath, now.date())) return;
            copies::BackupOptions options;
            options.now = now;
            options.replace = true;  // only a copy of this same office and second has this name
            options.tools = tools;
            options.progress = [this](const QString&, int) { return !stop; };
            copies::backupOffice(dataPath, file, options);
            if (isDaily) dropOldBackups(folder, dataPath, now);
        } catch (const data::Error& error) {
            failure = error.text();
            damaged = error.category() == data::ErrorCategory::Corrupt;
        } catch (const std::exception& error) {
            failure = data::sentenceOf(error);
        }
    }
};

DailyBackup::DailyBackup(MainMod& mod) : mod_(mod) {}

DailyBackup::~DailyBackup() {
    if (!thread_) return;
    thread_->disconnect(this);
    stop();
    thread_->wait();
}

void DailyBackup::stop() {
    if (work_) work_->stop = true;
}

void DailyBackup::startIfDue(QWidget* parent) {
    if (isRunning() || !isOpen(mod_)) return;
    // A seat without the server's programs leaves the copy to one that has them.
    if ((isOnServer(mod_.gMainDbPath) || isOnServer(mod_.gUsersDbPath)) && !findTools().found()) return;
    start(BackupKind::Daily, parent);
}

void DailyBackup::startByHand(QWidget* parent) {
    const auto tell = [&](const QString& text) {
        mod_.services.prompts.message(parent, platform::MessageIcon::Information, programTitle(), text);
    };
    if (isRunning())
        tell(u"Γίνεται ήδη ένα αντίγραφο ασφαλείας. Δοκιμάστε ξανά σε λίγο."_s);
    else if (!isOpen(mod_))
        tell(u"Από εδώ αντιγράφονται μόνο βάσεις δεδομένων που είναι ανοιχτές."_s);
    else
        start(BackupKind::ByHand, parent);
}

void DailyBackup::chooseFolder(QWidget* parent) {
    const QString folder = mod_.services.prompts.chooseFolder(parent, u"Φάκελος για τα αντίγραφα ασφαλείας ..."_s);
    if (!folder.isEmpty()) setBackupFolder(mod_.services.settings, folder);
}

void DailyBackup::start(BackupKind kind, QWidget* parent) {
    work_ = std::make_shared<Work>();
    work_->kind = kind;
    work_->dataPath = mod_.gDataPath;
    work_->folder = backupFolder(mod_.services.settings);
    work_->tools = findTools();
    work_->now = mod_.services.clock.now();
    work_->file = QDir(work_->folder).filePath(backupName(work_->dataPath, work_->now, kind));
    parent_ = parent;
    thread_.reset(QThread::create([work = work_] { work->run(); }));
    connect(thread_.get(), &QThread::finished, this, &DailyBackup::end);
    thread_->start(QThread::LowPriority);
}

void DailyBackup::end() {
    thread_->wait();
    thread_.release()->deleteLater();
    const std::shared_ptr<Work> work = std::move(work_);
    if (!work->stop) tell(*work);
    if (!work->stop && work->damaged) damageWasTold();  // a copy reads every page, and is the first to notice
    emit finished();
}

void DailyBackup::tell(const Work& work) {
    const auto message = [this](platform::MessageIcon icon, const QString& text) {
        mod_.services.prompts.message(frontWindow(parent_), icon, programTitle(), text);
    };
    if (!work.failure.isEmpty())
        message(platform::MessageIcon::Warning, u"Το αντίγραφο ασφαλείας δεν έγινε στον φάκελο «%1».\n%2"_s.arg(
                                                    QDir::toNativeSeparators(work.folder), work.failure));
    else if (work.kind == BackupKind::ByHand)
        message(platform::MessageIcon::Information,
                u"Το αντίγραφο ασφαλείας γράφτηκε και ελέγχθηκε:\n%1"_s.arg(QDir::toNativeSeparators(work.file)));
    platform::Settings& settings = mod_.services.settings;
    if (work.ofTheFuture.isEmpty() || settings.value(section, futureKey) == work.ofTheFuture) return;
    settings.setValue(section, futureKey, work.ofTheFuture);
    message(platform::MessageIcon::Warning,
            u"Υπάρχει αντίγραφο ασφαλείας με μελλοντική ημερομηνία:\n%1\nΕλέγξτε την ημερομηνία του "
            "υπολογιστή. Αν είναι σωστή, το αντίγραφο έγινε όταν δεν ήταν: δεν θα σβηστεί από το "
            "πρόγραμμα και σε ανάγκη θα προταθεί τελευταίο."_s.arg(QDir::toNativeSeparators(work.ofTheFuture)));
}

}  // namespace core
