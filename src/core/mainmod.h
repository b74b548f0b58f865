// State that all windows share, and the few routines that belong to none of them.
#pragma once

#include <QSet>
#include <QString>
#include <functional>

#include "copies/seatlock.h"
#include "core/doors.h"
#include "core/logondelay.h"
#include "data/connection.h"
#include "platform/filesystemkind.h"
#include "platform/services.h"

namespace core {

// The program's title: caption of message boxes and name of the settings store.
QString programTitle();
QString programVersion();  // "major.minor.revision"

// Rights groups that the program acts on; every other number has the ordinary rights.
constexpr int groupAdministrators = 1;
constexpr int groupRestricted = 3;

// One per program run. Windows get it by reference and keep nothing of their own that belongs here.
class MainMod {
public:
    explicit MainMod(platform::Services services) : services(services) {}

    platform::Services services;
    copies::SeatLock::Probe fileSystemKind = platform::fileSystemKind;

    copies::SeatLock gSeat;       // given back after the databases are closed
    data::Connection gConn;       // dorvalist.mdb
    data::Connection gConnUsers;  // dorvalistu.mdb
    QString gDataPath;            // folder of both files, without a trailing separator
    QString gMainDbPath;
    QString gUsersDbPath;

    QString gUserName;  // "Admin" for the built-in user
    int gUserGroup = 0;
    bool onlyReads() const { return gUserGroup == groupRestricted; }  // cards and what belongs to them
    // Whether whoever is at work may change an appointment or task of this user.
    bool mayChange(const QString& owner) const;
    LogonDelay logonDelay;

    QString gSqlOrdr, gSqlOrdr1, gSqlOrdr2;  // sort columns of the list in front, the newest first

    QSet<QString> reminded;  // the reminders that this run has shown to remindedUser
    QString remindedUser;

    Doors doors;

    bool gAddressOpen = false;  // frmAddress is loaded

    // Numbers of a card, non-empty ones in the order home 1, work 1, home 2, work 2, mobile, joined by ", ".
    QString GetPhones(qint64 cardCode);

    void playSound(const QString& file) { services.sound.play(file); }
    void playButtonSound(const QString& fileName);  // of the delivered sounds, unless the user switched them off
    void beep() { services.sound.beep(); }
};

// Greek as code page 737, for dot-matrix printers. Characters that page 1253 has and the conversion doesn't name keep
// their 1253 code; characters outside 1253 become '?'.
QByteArray AnsiToDos(const QString& text);

}  // namespace core
