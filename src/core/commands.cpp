#include "core/commands.h"

#include "controls/names.h"
#include "controls/theme.h"
#include "core/guard.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

Commands::Commands(MainMod& mod, QWidget* window, QVector<Command> commands)
    : QObject(window), mod_(mod), window_(window) {
    for (Command& command : commands) {
        const QString name = command.menuName.isEmpty() ? command.name : command.menuName;
        auto* action = controls::named(
            new QAction(command.menuCaption.isEmpty() ? command.caption : command.menuCaption, window), name);
        if (!command.icon.isEmpty()) action->setIcon(controls::icon(command.icon));
        onSignal(mod_, window_, action, &QAction::triggered, command.run);
        entries_.append({std::move(command), action});
    }
    refresh();
}

Commands::Entry& Commands::entry(const QString& name) {
    for (Entry& each : entries_)
        if (each.command.name == name) return each;
    qFatal("%s has no command %s", qUtf8Printable(window_->objectName()), qUtf8Printable(name));
}

QStringList Commands::orAll(const QStringList& names) const {
    if (!names.isEmpty()) return names;
    QStringList all;
    for (const Entry& each : entries_) all << each.command.name;
    return all;
}

void Commands::refresh() {
    for (const Entry& each : entries_) each.action->setEnabled(!each.command.enabled || each.command.enabled());
}

void Commands::run(const QString& name) {
    refresh();
    entry(name).action->trigger();
}

QAction* Commands::action(const QString& name) const {
    return const_cast<Commands*>(this)->entry(name).action;
}

void Commands::follow(QAbstractButton* button, QAction* action) {
    const auto copy = [button, action] { button->setEnabled(action->isEnabled()); };
    copy();
    connect(action, &QAction::enabledChanged, button, copy);
    connect(button, &QAbstractButton::clicked, action, &QAction::trigger);
}

QPushButton* Commands::button(const QString& name) {
    const Entry& from = entry(name);
    auto* made = controls::named(new QPushButton(from.command.caption), name);
    made->setIcon(from.action->icon());
    follow(made, from.action);
    return made;
}

controls::PictureButton* Commands::picture(const QString& name) {
    const Entry& from = entry(name);
    auto* made = controls::named(new controls::PictureButton(from.command.caption, from.command.icon), name);
    if (!from.command.keys.isEmpty())
        made->setToolTip(u"%1 (%2)"_s.arg(from.command.caption, from.command.keys.last().toString()));
    follow(made, from.action);
    if (!sounds_) return made;
    connect(made, &controls::PictureButton::hovered, this, [this] { mod_.playButtonSound(u"NIMOver.wav"_s); });
    connect(made, &controls::PictureButton::pressed, this, [this] { mod_.playButtonSound(u"NIMClick.wav"_s); });
    return made;
}

QToolButton* Commands::toolButton(const QString& name) {
    const Entry& from = entry(name);
    auto* made = controls::named(new QToolButton, name);
    made->setIcon(from.action->icon());
    made->setToolTip(from.command.caption);
    made->setAccessibleName(from.command.caption);
    made->setFocusPolicy(Qt::TabFocus);
    follow(made, from.action);
    return made;
}

void Commands::addButtons(QBoxLayout* layout, const QStringList& names) {
    for (const QString& name : orAll(names)) layout->addWidget(button(name));
}

void Commands::addPictures(QBoxLayout* layout, const QStringList& names) {
    for (const QString& name : orAll(names)) layout->addWidget(picture(name));
}

QToolBar* Commands::toolBar(const QString& objectName, const QStringList& names) {
    auto* bar = controls::named(new QToolBar, objectName);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    for (const QString& name : orAll(names)) bar->addAction(entry(name).action);
    return bar;
}

QMenu* Commands::menu(const QString& objectName, const QStringList& names) {
    auto* made = controls::named(new QMenu(window_), objectName);
    for (const QString& name : orAll(names)) made->addAction(entry(name).action);
    connect(made, &QMenu::aboutToHide, this, &Commands::refresh);
    return made;
}

void Commands::bindKeys(QWidget* widget, const QStringList& names) {
    for (const QString& name : orAll(names)) {
        const Entry& from = entry(name);
        if (from.command.keys.isEmpty()) continue;
        from.action->setShortcuts(from.command.keys);
        from.action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        widget->addAction(from.action);
    }
}

void Commands::popUp(QMenu* menu, int row, QPoint globalPosition) {
    refresh();
    for (const Entry& each : entries_)
        if (each.command.onRow && row < 0) each.action->setEnabled(false);
    menu->popup(globalPosition);
}

}  // namespace core
