// The frame of the program: child windows, menus, status bar, rights.
#pragma once

#include "main/formarea.h"
#include "main/menutree.h"
#include "main/statusbar.h"

namespace entry {

class MDIMain : public QMainWindow {
    Q_OBJECT
public:
    explicit MDIMain(core::MainMod& mod);
    ~MDIMain() override;

    // Caption, placement, noun, rights, and the windows that open by themselves. Before the first show().
    void load();

    core::Windows& windows() { return windows_; }
    QAction* menu(const QString& name) const { return menus_->entry(name); }  // an entry or a submenu's title
    QLabel* statusPanel(int number) const { return status_->panel(number); }  // from 1

signals:
    void loggedOff();  // the window is closed and can be deleted
    void exited();
    void backupWanted();
    void backupFolderWanted();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QHash<QString, OwnEntry> ownEntries();
    void setTheme(int kind);
    void logOff();

    core::MainMod& mod_;
    FormArea* area_;
    core::Windows windows_;
    StatusBar* status_;
    MenuTree* menus_;
    bool loggingOff_ = false;
};

}  // namespace entry
