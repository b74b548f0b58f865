#include "main/entry.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include "copies/restore.h"
#include "copies/upgradecopy.h"
#include "core/backupfolder.h"
#include "core/browsemod.h"
#include "core/workprogress.h"
#include "data/opening/fileidentity.h"
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

struct Opened {
    QVector<schema::Database> lost;  // damaged beyond opening, or gone from beside the other one
    bool noRights = false;
};

// The first failure is told.
Opened openAndTell(core::MainMod& mod) {
    using schema::Database;
    const auto seatFailure = takeSeat(mod);
    const auto mainFailure = seatFailure ? seatFailure : openOne(mod.gConn, Database::Main, mod.gMainDbPath);
    const auto usersFailure = seatFailure ? seatFailure : openOne(mod.gConnUsers, Database::Users, mod.gUsersDbPath);
    const auto& failure = mainFailure ? mainFailure : usersFailure;
    if (failure)
        tell(mod, u"Πρόβλημα στο main αρχείο της εφαρμογής (Dorvalist.mdb)%1 %2"_s.arg(failure->number())
                      .arg(failure->text()));
    const auto isOf = [](const auto& e, data::ErrorCategory category) { return e && e->category() == category; };
    const auto lost = [&](const auto& e, const QString& file) {
        const bool alone = !exists(file) && (exists(mod.gMainDbPath) || exists(mod.gUsersDbPath));
        return isOf(e, data::ErrorCategory::Corrupt) || (e && alone && !seatFailure);
    };
    Opened opened;
    if (lost(mainFailure, mod.gMainDbPath)) opened.lost += Database::Main;
    if (lost(usersFailure, mod.gUsersDbPath)) opened.lost += Database::Users;
    opened.noRights =
        isOf(mainFailure, data::ErrorCategory::ReadOnly) || isOf(usersFailure, data::ErrorCategory::ReadOnly);
    return opened;
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

QString restoreQuestion(const QString& made, bool missing) {
    return (missing ? u"Υπάρχει ένα καλό αντίγραφο ασφαλείας της %1.\nΝα επαναφερθεί από αυτό το αρχείο που λείπει; "
                      "Ό,τι γράφτηκε μετά από τότε δεν θα υπάρχει."_s
                    : u"Υπάρχει ένα καλό αντίγραφο ασφαλείας της %1.\nΝα επαναφερθεί στη θέση του κατεστραμμένου "
                      "αρχείου; Ό,τι γράφτηκε μετά από τότε δεν θα υπάρχει. Το κατεστραμμένο θα κρατηθεί."_s)
        .arg(made);
}

// What was done, and where the old files are.
QString restoredText(const QVector<schema::Database>& restored, const QString& made, const QStringList& aside) {
    QStringList names;
    for (const schema::Database database : restored) names += schema::databaseFileName(database);
    QString text = u"Επαναφέρθηκε από το αντίγραφο ασφαλείας της %1: %2."_s.arg(made, names.join(u", "_s));
    for (const QString& kept : aside) text += u"\nΤο παλιό αρχείο κρατήθηκε: "_s + QDir::toNativeSeparators(kept);
    return text;
}

bool restoreAndTell(core::MainMod& mod, const QString& copy, const QString& made,
                    const QVector<schema::Database>& databases) {
    try {
        QStringList aside;
        copies::RestoreOptions options;
        options.force = true;
        options.databases = databases;
        options.now = mod.services.clock.now();
        core::inBackground(nullptr, u"Επαναφορά του αντιγράφου"_s, [&](const core::Tell& tell) {
            options.progress = told(tell);
            aside = copies::restoreOffice(copy, mod.gDataPath, options);
        });
        mod.services.prompts.message(nullptr, platform::MessageIcon::Information, core::programTitle(),
                                     restoredText(databases, made, aside));
        return true;
    } catch (const data::Error& error) {
        tell(mod, u"Το αντίγραφο δεν επαναφέρθηκε. "_s + error.text());
        return false;
    }
}

// Puts the newest good copy in the place of what is damaged or gone, if there is one and the user wants it.
bool restored(core::MainMod& mod, const QVector<schema::Database>& damaged) {
    const auto copy = newestGoodBackup(mod);
    if (!copy) return false;
    const QString made = data::format(copy->made, u"dd/mm/yyyy hh:nn");
    const QString doubt = copy->notChecked.isEmpty()
                              ? QString()
                              : u"\n\nΈνα νεότερο αντίγραφο δεν μπόρεσε να ελεγχθεί: "_s + copy->notChecked;
    const bool missing = !exists(schema::databasePath(mod.gDataPath, damaged.first()));
    if (!mod.services.prompts.question(nullptr, core::programTitle(), restoreQuestion(made, missing) + doubt))
        return false;
    return restoreAndTell(mod, copy->file, made, damaged);
}

Opened openBoth(core::MainMod& mod) {
    const Opened opened = openAndTell(mod);
    return !opened.lost.isEmpty() && restored(mod, opened.lost) ? openAndTell(mod) : opened;
}

// A folder with somebody else's files, or where this user may not write, would be opened again at every start.
bool isWorthRemembering(const core::MainMod& mod, const Opened& opened) {
    const auto isOurs = [](const QString& file) {
        const data::FileKind kind = data::identifyFile(file).kind;
        return kind == data::FileKind::Main || kind == data::FileKind::Users ||
               kind == data::FileKind::ServerDescription;
    };
    return !opened.noRights && isOurs(mod.gMainDbPath) && isOurs(mod.gUsersDbPath);
}

void rememberIfWorth(core::MainMod& mod, const Opened& opened) {
    if (isWorthRemembering(mod, opened)) mod.services.settings.setValue(section, pathKey, mod.gDataPath);
}

// The known office may have lost its main file alone; no other folder has to be looked for, then.
void restoreMissingMain(core::MainMod& mod) {
    mod.gDataPath = mod.services.settings.value(section, pathKey);
    if (mod.gDataPath.isEmpty()) return;
    setPaths(mod);
    if (exists(mod.gMainDbPath) || !exists(mod.gUsersDbPath) || takeSeat(mod)) return;
    restored(mod, {schema::Database::Main});
}

void findFolder(core::MainMod& mod) {
    mod.gDataPath = mod.services.settings.value(section, pathKey, platform::programFolder());
    if (!mod.gDataPath.isEmpty() && exists(schema::mainDatabasePath(mod.gDataPath))) return;
    core::GivePath(mod, mainFile);
}

}  // namespace

void openAgain(core::MainMod& mod) {
    rememberIfWorth(mod, openBoth(mod));
}

void restoreAndReopen(core::MainMod& mod, const QString& copy, const QDateTime& made) {
    mod.gConn.close();
    mod.gConnUsers.close();
    restoreAndTell(mod, copy, data::format(made, u"dd/mm/yyyy hh:nn"),
                   {schema::Database::Main, schema::Database::Users});
    openAndTell(mod);
}

Outcome run(core::MainMod& mod) {
    restoreMissingMain(mod);
    for (;;) {
        findFolder(mod);
        if (mod.gDataPath.isEmpty()) return Outcome::End;
        setPaths(mod);
        if (!QFileInfo(mod.gDataPath).isDir()) {
            tell(mod, u"Δεν υπάρχει το directory "_s + mod.gDataPath);
            continue;
        }
        const Opened opened = openBoth(mod);
        if (!exists(mod.gMainDbPath)) {
            tell(mod, u"Δεν υπάρχουν στο [ %1 ]\nτα αρχεία του προγράμματος"_s.arg(upperPath(mod)));
            continue;
        }
        if (!exists(mod.gUsersDbPath)) {
            tell(mod, u"Δεν υπάρχουν στο [ %1 ]\n όλα τα αρχεία του προγράμματος! (Λείπει το Dorvalistu.mdb!!!)"_s.arg(
                          upperPath(mod)));
            return Outcome::End;
        }
        rememberIfWorth(mod, opened);
        return Outcome::Logon;
    }
}

}  // namespace entry
