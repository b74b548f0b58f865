// The embedded engine's copy of itself.
#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>

#include "data/sqlite/sqliteengine.h"
#include "data/sqlite/sqliteerror.h"

using namespace Qt::Literals::StringLiterals;

namespace data::sqlite {
namespace {

constexpr int pagesAtOnce = 128;  // half a MB: often enough for whoever watches or breaks off

// The file under construction; goes away unless it is kept.
class Target {
public:
    explicit Target(const QString& file) : file_(file) {
        QFile fresh(file);
        if (!fresh.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            if (!QFileInfo::exists(file)) failWriting(fresh);
            throw Error(ErrorCategory::Constraint, u"Υπάρχει ήδη το αρχείο «%1»."_s.arg(file));
        }
        fresh.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        fresh.close();
        const int code = sqlite3_open_v2(file.toUtf8().constData(), &database_, SQLITE_OPEN_READWRITE, nullptr);
        if (code == SQLITE_OK) return;
        discard();
        throw sqliteOpenError(code, file);
    }
    ~Target() {
        if (!kept_) discard();
    }
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;

    sqlite3* database() const { return database_; }
    void keep() {
        const int code = sqlite3_close(database_);
        if (code != SQLITE_OK) throw sqliteError(database_, code);
        database_ = nullptr;
        kept_ = true;
    }

private:
    void discard() {
        sqlite3_close(database_);
        for (const QString& file : {file_, file_ + u"-journal"_s}) QFile::remove(file);
    }

    QString file_;
    sqlite3* database_ = nullptr;
    bool kept_ = false;
};

void copyPages(sqlite3* source, sqlite3* target, const std::function<bool(qint64, qint64)>& goOn) {
    sqlite3_backup* backup = sqlite3_backup_init(target, "main", source, "main");
    if (!backup) throw sqliteError(target, sqlite3_extended_errcode(target));
    int code = SQLITE_OK;
    bool brokenOff = false;
    while (code == SQLITE_OK && !brokenOff) {
        code = sqlite3_backup_step(backup, pagesAtOnce);
        const qint64 all = sqlite3_backup_pagecount(backup);
        brokenOff = code == SQLITE_OK && goOn && !goOn(all - sqlite3_backup_remaining(backup), all);
    }
    sqlite3_backup_finish(backup);
    if (brokenOff) throw Error(ErrorCategory::Other, u"Το αντίγραφο διακόπηκε."_s);
    if (code != SQLITE_DONE) throw sqliteError(target, code);
}

}  // namespace

// The whole copy runs inside one read transaction. With the journal written ahead a reader holds no writer up, the copy
// never has to start again, and what `atMoment` counts is what the copy holds.
void SqliteEngine::backupTo(const QString& file, const std::function<void()>& atMoment,
                            const std::function<bool(qint64, qint64)>& goOn) {
    Target target(file);
    beginSnapshot();
    try {
        if (atMoment) atMoment();
        copyPages(database_, target.database(), goOn);
    } catch (...) {
        rollback();
        throw;
    }
    rollback();
    target.keep();
}

}  // namespace data::sqlite
