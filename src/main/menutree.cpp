#include "main/menutree.h"

#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QShortcut>

#include "controls/names.h"
#include "controls/theme.h"
#include "core/guard.h"

using namespace Qt::Literals::StringLiterals;

namespace entry {

MenuTree::MenuTree(core::MainMod& mod, QMainWindow* window, core::Windows& windows, QHash<QString, OwnEntry> own)
    : QObject(window), mod_(mod), windows_(windows), own_(std::move(own)) {
    QMenuBar* bar = window->menuBar();
    bar->setFont(controls::font(u"Arial Greek"_s, 10));
    bar->setNativeMenuBar(false);
    QSet<QString> parents;
    for (const MenuDef& def : menuDefs()) parents.insert(def.parent);
    for (const MenuDef& def : menuDefs()) {
        QAction* made = parents.contains(def.name) ? buildMenu(def, window) : buildEntry(def, window);
        entries_.insert(def.name, made);
        QWidget* parent = def.parent.isEmpty() ? static_cast<QWidget*>(bar) : entry(def.parent)->menu();
        parent->addAction(made);
    }
    // The toolkit knows the Alt key alone.
    connect(new QShortcut(Qt::Key_F10, window), &QShortcut::activated, bar,
            [bar] { bar->setActiveAction(bar->actions().constFirst()); });
}

QAction* MenuTree::buildMenu(const MenuDef& def, QMainWindow* window) {
    auto* menu = controls::named(new QMenu(window), def.name);
    // What a mark stands for may have been changed elsewhere: the preview switches itself off.
    connect(menu, &QMenu::aboutToShow, this, &MenuTree::refreshMarks);
    return menu->menuAction();
}

QAction* MenuTree::buildEntry(const MenuDef& def, QMainWindow* window) {
    auto* made = controls::named(new QAction(window), def.name);
    made->setSeparator(def.caption == u"-"_s);
    made->setCheckable(own_.value(def.name).checked != nullptr);
    core::onSignal(mod_, window, made, &QAction::triggered, [this, def] { trigger(def); });
    return made;
}

void MenuTree::trigger(const MenuDef& def) {
    if (const auto own = own_.value(def.form.isEmpty() ? def.name : def.form).run)
        own();
    else
        windows_.open(def.form, qobject_cast<QWidget*>(parent()));
    refresh();
}

void MenuTree::refresh() {
    const int category = mod_.services.settings.number(u"Settings"_s, u"Category"_s, 1);
    const core::ContactNoun noun = core::contactNoun(category);
    const MenuState state{mod_.gUserGroup, category,
                          [this](const QString& form) { return windows_.knows(form) || own_.contains(form); }};
    for (const MenuDef& def : menuDefs()) {
        entry(def.name)->setText(menuCaption(def, noun));
        entry(def.name)->setVisible(menuVisible(def, state));
    }
    hideEmptyMenus();
    refreshMarks();
}

void MenuTree::refreshMarks() {
    for (auto own = own_.cbegin(); own != own_.cend(); ++own)
        if (own->checked) entry(own.key())->setChecked(own->checked());
}

// A submenu shows when something in it does; separators at an end or beside another one are folded away by the menu.
void MenuTree::hideEmptyMenus() {
    const auto& defs = menuDefs();
    for (auto def = defs.rbegin(); def != defs.rend(); ++def) {
        QAction* title = entry(def->name);
        if (!title->menu() || !title->isVisible()) continue;
        const auto inside = title->menu()->actions();
        title->setVisible(std::any_of(inside.begin(), inside.end(),
                                      [](const QAction* each) { return each->isVisible() && !each->isSeparator(); }));
    }
}

}  // namespace entry
