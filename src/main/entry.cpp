#include "main/entry.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include "core/browsemod.h"
#include "platform/folders.h"
#include "schema/office.h"

namespace entry {

namespace {

const QString section = QStringLiteral("Startup");
const QString pathKey = QStringLiteral("Path");
const QString mainFile = QStringLiteral("dorvalist.mdb");

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

// Opens one database; the failure, if there is one, is kept for a message after both were tried.
std::optional<data::Error> openOne(data::Connection& connection, schema::Database database, const QString& file) {
    try {
        connection.close();
        schema::open(connection, schema::connectionString(database, file));
        return std::nullopt;
    } catch (const data::Error& error) {
        return error;
    }
}

void openBoth(core::MainMod& mod) {
    const auto mainFailure = openOne(mod.gConn, schema::Database::Main, mod.gMainDbPath);
    const auto usersFailure = openOne(mod.gConnUsers, schema::Database::Users, mod.gUsersDbPath);
    const auto& failure = mainFailure ? mainFailure : usersFailure;
    if (failure)
        tell(mod, QStringLiteral("Πρόβλημα στο main αρχείο της εφαρμογής (Dorvalist.mdb)%1 %2")
                      .arg(failure->number())
                      .arg(failure->text()));
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
            tell(mod, QStringLiteral("Δεν υπάρχει το directory ") + mod.gDataPath);
            continue;
        }
        openBoth(mod);
        if (!exists(mod.gMainDbPath)) {
            tell(mod, QStringLiteral("Δεν υπάρχουν στο [ %1 ]\nτα αρχεία του προγράμματος").arg(upperPath(mod)));
            continue;
        }
        if (!exists(mod.gUsersDbPath)) {
            tell(mod, QStringLiteral(
                          "Δεν υπάρχουν στο [ %1 ]\n όλα τα αρχεία του προγράμματος! (Λείπει το Dorvalistu.mdb!!!)")
                          .arg(upperPath(mod)));
            return Outcome::End;
        }
        mod.services.settings.setValue(section, pathKey, mod.gDataPath);
        return Outcome::Logon;
    }
}

}  // namespace entry
