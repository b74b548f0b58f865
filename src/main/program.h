// The course of a run: entry, logon, main window, and logon again after a log-off.
#pragma once

#include <QObject>
#include <memory>

#include "core/backupfolder.h"
#include "core/dailybackup.h"
#include "core/mainmod.h"
#include "main/mdimain.h"
#include "platform/endrequests.h"
#include "users/frmlogon.h"

namespace entry {

class Program : public QObject {
    Q_OBJECT
public:
    explicit Program(core::MainMod& mod);
    ~Program() override;

    // False when the program is to end at once.
    bool start();

    users::frmLogon* logon() const { return logon_.get(); }
    MDIMain* mainWindow() const { return main_.get(); }
    core::DailyBackup& backup() { return backup_; }
    bool isEnding() const { return ending_; }  // because the system asked for it

signals:
    void finished();

private:
    void showLogon();
    void whileOpening(const std::function<void()>& work);
    void settingsRefused(const QString& file);
    void showMain();
    void endNow();
    void seatLost();
    void offerRestore();
    void chooseAndRestore();

    core::MainMod& mod_;
    std::unique_ptr<users::frmLogon> logon_;
    std::unique_ptr<MDIMain> main_;
    core::DailyBackup backup_;
    core::ListedBackup restoring_;  // its file is empty unless a copy was chosen
    bool opening_ = false, lost_ = false, ending_ = false;
    platform::EndRequests endRequests_;
};

}  // namespace entry
