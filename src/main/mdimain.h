// The frame of the program: child windows, menus, status bar, rights.
#pragma once

#include <QActionGroup>
#include <QHash>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenu>
#include <QTimer>

#include "core/windows.h"
#include "main/formframe.h"
#include "main/menus.h"

namespace entry {

class MDIMain : public QMainWindow, private core::WindowHost {
    Q_OBJECT
public:
    explicit MDIMain(core::MainMod& mod);
    ~MDIMain() override;

    // Caption, placement, noun, rights, and the windows that open by themselves. Before the first show().
    void load();
    // Closes the windows and itself, unless one of them refuses.
    void logOff();

    core::Windows& windows() { return windows_; }
    QAction* menu(const QString& name) const { return entries_.value(name); }    // an entry or a submenu's title
    QLabel* statusPanel(int number) const { return panels_.value(number - 1); }  // from 1

signals:
    void loggedOff();  // the window is closed and can be deleted
    void exited();
    void backupWanted();
    void backupFolderWanted();
    void restoreWanted();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void add(core::Form* form) override;
    void bringToFront(core::Form* form) override;
    bool isMinimised(core::Form* form) const override;
    QPoint position(core::Form* form) const override;
    void remove(core::Form* form) override;

    void buildMenus();
    QAction* buildEntry(const MenuDef& def);
    void buildStatusBar();
    void refreshMenus();
    void hideEmptyMenus();
    void trigger(const MenuDef& def);
    void setNoun(int category);
    void setTheme(int kind);
    void tick();
    void place();
    void putFrame(QRect wanted);
    void storePlacement();
    void makeRoomFor(QWidget* frame);
    FormFrame* frameOf(core::Form* form) const;

    core::MainMod& mod_;
    core::Windows windows_;
    QMdiArea* area_;
    QHash<QString, QAction*> entries_;
    QHash<QString, QMenu*> menus_;
    QVector<QLabel*> panels_;
    QTimer clock_;
    QHash<QString, std::function<void()>> ownActions_;
    bool loggingOff_ = false;
};

}  // namespace entry
