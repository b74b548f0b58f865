#include "main/entry.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include "copies/restore.h"
#include "copies/upgradecopy.h"
#include "core/backupfolder.h"
#include "core/browsemod.h"
#include "core/workprogress.h"
#include "data/values/format.h"
#include "platform/folders.h"
#include "schema/office.h"
#include "schema/progress.h"

using namespace Qt::Literals::StringLiterals;

namespace entry {

namespace {

const QString section = u"Startup"_s;
const QString pathKey = u"Path"_s;
const QString mainFile = u"dorvalist.mdb"_s;

void tell(core::MainMod& mod, const QString& text) {
    mod.services.prompts.message(nullptr, platform::MessageIcon::Critical, core::programTitle(), text);
}

bool exists(const QString& file) {
    return QFileInfo(file).isFile();
}

void setPaths(core::MainMod& mod) {
    mod.gMainDbPath = schema::mainDatabasePath(mod.gDataPath);
    mod.gUsersDbPath = schema::usersDatabasePath(mod.gDataPath);
}

QString upperPath(const core::MainMod& mod) {
    return QLocale(QLocale::Greek, QLocale::Greece).toUpper(QDir::toNativeSeparators(mod.gDataPath));
}

schema::Progress told(const core::Tell& tell) {
    return [tell](const QString& what, int percent) {
        tell(what, percent);
        return true;
    };
}

// Opens one database; the failure, if there is one, is kept for a message after both were tried.
std::optional<data::Error> openOne(data::Connection& connection, schema::Database database, const QString& file) {
    try {
        connection.close();
        // A server may be far or asleep, and a newer version may have much to do.
        core::inBackground(nullptr, u"Ανοίγουν τα δεδομένα του γραφείου"_s, [&](const core::Tell& tell) {
            copies::openUpgraded(connection, schema::connectionString(database, file), told(tell));
        });
        return std::nullopt;
    } catch (const data::Error& error) {
        return error;
    }
}

std::optional<data::Error> takeSeat(core::MainMod& mod) {
    mod.gConn.close();
    mod.gConnUsers.close();
    mod.gSeat.giveBack();
    try {
        mod.gSeat.take(mod.gDataPath, mod.fileSystemKind);
        return std::nullopt;
    } catch (const data::Error& error) {
        return error;
    }
}

// The databases that are damaged beyond opening; the first failure is told.
QVector<schema::Database> openAndTell(core::MainMod& mod) {
    using schema::Database;
    const auto seatFailure = takeSeat(mod);
    const auto mainFailure = seatFailure ? seatFailure : openOne(mod.gConn, Database::Main, mod.gMainDbPath);
    const auto usersFailure = seatFailure ? seatFailure : openOne(mod.gConnUsers, Database::Users, mod.gUsersDbPath);
    const auto& failure = mainFailure ? mainFailure : usersFailure;
    if (failure)
        tell(mod, u"Πρόβλημα στο main αρχείο της εφαρμογής (Dorvalist.mdb)%1 %2"_s.arg(failure->number())
                      .arg(failure->text()));
    const auto damaged = [](const auto& e) { return e && e->category() == data::ErrorCategory::Corrupt; };
    QVector<Database> found;
    if (damaged(mainFailure)) found += Database::Main;
    if (damaged(usersFailure)) found += Database::Users;
    return found;
}

// None, too, when the copies can't be looked into, which is told.
std::optional<core::FoundBackup> newestGoodBackup(core::MainMod& mod) {
    const QString folder = core::backupFolder(mod.services.settings);
    try {
        std::optional<core::FoundBackup> copy;
        const QDateTime now = mod.services.clock.now();
        core::inBackground(nullptr, u"Ελέγχονται τα αντίγραφα ασφαλείας"_s,
                           [&](const core::Tell&) { copy = core::newestGoodBackup(folder, mod.gDataPath, now); });
        return copy;
    } catch (const data::Error& error) {
        tell(mod, u"Τα αντίγραφα ασφαλείας στον φάκελο «%1» δεν ελέγχθηκαν.\n%2"_s.arg(QDir::toNativeSeparators(folder),
                                                                                       error.text()));
        return std::nullopt;
    }
}

// Puts the newest good copy in the place of what is damaged, if there is one and the user wants it.
bool restored(core::MainMod& mod, const QVector<schema::Database>& damaged) {
    const auto copy = newestGoodBackup(mod);
    if (!copy) return false;
    const QString made = data::format(copy->made, u"dd/mm/yyyy hh:nn");
    const QString doubt = copy->notChecked.isEmpty()
                              ? QString()
                              : u"\n\nΈνα νεότερο αντίγραφο δεν μπόρεσε να ελεγχθεί: "_s + copy->notChecked;
    if (!mod.services.prompts.question(
            nullptr, core::programTitle(),
            u"Υπάρχει ένα καλό αντίγραφο ασφαλείας της %1.\nΝα επαναφερθεί στη θέση του κατεστραμμένου "
            "αρχείου; Ό,τι γράφτηκε μετά από τότε δεν θα υπάρχει. Το κατεστραμμένο θα κρατηθεί."_s.arg(made) +
                doubt))
        return false;
    try {
        copies::RestoreOptions options;
        options.force = true;
        options.databases = damaged;
        options.now = mod.services.clock.now();
        core::inBackground(nullptr, u"Επαναφορά του αντιγράφου"_s, [&](const core::Tell& tell) {
            options.progress = told(tell);
            copies::restoreOffice(copy->file, mod.gDataPath, options);
        });
        return true;
    } catch (const data::Error& error) {
        tell(mod, u"Το αντίγραφο δεν επαναφέρθηκε. "_s + error.text());
        return false;
    }
}

void openBoth(core::MainMod& mod) {
    const auto damaged = openAndTell(mod);
    if (!damaged.isEmpty() && restored(mod, damaged)) openAndTell(mod);
}

void findFolder(core::MainMod& mod) {
    mod.gDataPath = mod.services.settings.value(section, pathKey, platform::programFolder());
    if (!mod.gDataPath.isEmpty() && exists(schema::mainDatabasePath(mod.gDataPath))) return;
    core::GivePath(mod, mainFile);
}

}  // namespace

Outcome run(core::MainMod& mod) {
    for (;;) {
        findFolder(mod);
        if (mod.gDataPath.isEmpty()) return Outcome::End;
        setPaths(mod);
        if (!QFileInfo(mod.gDataPath).isDir()) {
            tell(mod, u"Δεν υπάρχει το directory "_s + mod.gDataPath);
            continue;
        }
        openBoth(mod);
        if (!exists(mod.gMainDbPath)) {
            tell(mod, u"Δεν υπάρχουν στο [ %1 ]\nτα αρχεία του προγράμματος"_s.arg(upperPath(mod)));
            continue;
        }
        if (!exists(mod.gUsersDbPath)) {
            tell(mod, u"Δεν υπάρχουν στο [ %1 ]\n όλα τα αρχεία του προγράμματος! (Λείπει το Dorvalistu.mdb!!!)"_s.arg(
                          upperPath(mod)));
            return Outcome::End;
        }
        mod.services.settings.setValue(section, pathKey, mod.gDataPath);
        return Outcome::Logon;
    }
}

}  // namespace entry
