// The menus of the main window, built from their table.
#pragma once

#include <QAction>
#include <QHash>
#include <QMainWindow>

#include "core/windows.h"
#include "main/menus.h"

namespace entry {

// What an entry does that opens no window.
struct OwnEntry {
    std::function<void()> run;
    std::function<bool()> checked = {};  // of an entry that bears a mark
};

class MenuTree : public QObject {
    Q_OBJECT
public:
    // On the bar of `window`, whose windows the entries open. `own` goes by the names of the entries, or of the forms
    // that they stand for.
    MenuTree(core::MainMod& mod, QMainWindow* window, core::Windows& windows, QHash<QString, OwnEntry> own);

    // Captions, marks and what is shown: after a logon and a change of settings.
    void refresh();
    QAction* entry(const QString& name) const { return entries_.value(name); }  // or a submenu's title

private:
    QAction* buildMenu(const MenuDef& def, QMainWindow* window);
    QAction* buildEntry(const MenuDef& def, QMainWindow* window);
    void trigger(const MenuDef& def);
    void refreshMarks();
    void hideEmptyMenus();
    void enterBar(QMenuBar* bar);

    core::MainMod& mod_;
    core::Windows& windows_;
    QHash<QString, OwnEntry> own_;
    QHash<QString, QAction*> entries_;
};

}  // namespace entry
