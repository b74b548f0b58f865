// The frame of the program: child windows, menus, status bar, rights.
#pragma once

#include "diary/frmalarm.h"
#include "main/formarea.h"
#include "main/menutree.h"
#include "main/statusbar.h"

namespace entry {

class MDIMain : public QMainWindow {
    Q_OBJECT
public:
    explicit MDIMain(core::MainMod& mod);
    ~MDIMain() override;

    // Caption, placement, noun, rights, reminders. Before the first show(), which brings the windows that open by
    // themselves.
    void load();
    // Closes the windows and itself, unless one of them refuses.
    void logOff();

    core::Windows& windows() { return windows_; }
    QAction* menu(const QString& name) const { return menus_->entry(name); }  // an entry or a submenu's title
    diary::frmAlarm* alarm() const { return alarm_; }                         // null before load()
    QLabel* statusPanel(int number) const { return status_->panel(number); }  // from 1

signals:
    void loggedOff();  // the window is closed and can be deleted
    void exited();
    void backupWanted();
    void backupFolderWanted();
    void restoreWanted();

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QHash<QString, OwnEntry> ownEntries();
    void openAtStart(QStringList names);
    void setTheme(int kind);

    core::MainMod& mod_;
    FormArea* area_;
    core::Windows windows_;
    StatusBar* status_;
    MenuTree* menus_;
    diary::frmAlarm* alarm_ = nullptr;
    bool loggingOff_ = false;
    bool shown_ = false;
    bool openingAtStart_ = false;
};

}  // namespace entry
