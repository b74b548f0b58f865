#include "main/mdimain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>

#include "cards/windows.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/contactnoun.h"
#include "core/printsettings.h"
#include "data/values/format.h"
#include "users/windows.h"

using namespace Qt::Literals::StringLiterals;

namespace entry {

namespace {

const QString settingsSection = u"Settings"_s;
const QString optionsSection = u"Options"_s;

}  // namespace

MDIMain::MDIMain(core::MainMod& mod) : mod_(mod), windows_(*this), area_(new QMdiArea) {
    setObjectName(u"MDIMain"_s);
    setWindowTitle(u"Velmarine %1 Ver. %2"_s.arg(core::programTitle(), core::programVersion()));
    setWindowIcon(controls::icon(u"dorvalist"_s));
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setBackground(controls::theme().window.darker(controls::theme().dark ? 130 : 105));
    setCentralWidget(area_);
    ownActions_ = {
        {u"mnuLogOff"_s, [this] { logOff(); }},
        {u"mnuExit"_s, [this] { close(); }},
        {u"mnuBackupNow"_s, [this] { emit backupWanted(); }},
        {u"mnuBackupFolder"_s, [this] { emit backupFolderWanted(); }},
        {u"mnuRestore"_s, [this] { emit restoreWanted(); }},
        {u"mnuSounds"_s,
         [this] { mod_.services.settings.setNumber(optionsSection, u"Sounds"_s, menu(u"mnuSounds"_s)->isChecked()); }},
        {u"mnuPreview"_s,
         [this] { core::setPreviewsPrints(mod_.services.settings, menu(u"mnuPreview"_s)->isChecked()); }},
    };
    for (int i = 1; i <= 3; ++i) ownActions_.insert(controls::arrayName(u"MnuCat"_s, i), [this, i] { setNoun(i); });
    for (int i = 0; i <= 2; ++i) ownActions_.insert(controls::arrayName(u"mnuTheme"_s, i), [this, i] { setTheme(i); });
    core::addWindows(windows_, mod_);
    cards::addWindows(windows_, mod_);
    users::addWindows(windows_, mod_);
    buildMenus();
    buildStatusBar();
}

MDIMain::~MDIMain() {
    mod_.doors = {};
}

void MDIMain::load() {
    place();
    mod_.gAddressOpen = false;
    refreshMenus();
    panels_[4]->setText(u"Χρήστης: "_s + mod_.gUserName);
    tick();
    if (mod_.services.settings.value(settingsSection, u"Name"_s).isEmpty())
        windows_.open(u"frmOwner"_s, isVisible() ? this : nullptr);
    for (const QString& name : {u"frmTodayShow"_s, u"frmNameDay"_s})
        if (windows_.knows(name) && mod_.services.settings.number(optionsSection, name + u"Start"_s, 1) == 1)
            windows_.front(name);
}

void MDIMain::buildMenus() {
    menuBar()->setFont(controls::font(u"Arial Greek"_s, 10));
    menuBar()->setNativeMenuBar(false);
    QSet<QString> parents;
    for (const MenuDef& def : menuDefs()) parents.insert(def.parent);
    for (const MenuDef& def : menuDefs()) {
        QMenu* parent = menus_.value(def.parent);
        if (parents.contains(def.name)) {
            auto* submenu = controls::named(new QMenu(this), def.name);
            menus_.insert(def.name, submenu);
            entries_.insert(def.name, parent ? parent->addMenu(submenu) : menuBar()->addMenu(submenu));
            continue;
        }
        QAction* entry = buildEntry(def);
        parent ? parent->addAction(entry) : menuBar()->addAction(entry);
    }
    // The preview itself can switch it off.
    connect(menus_.value(u"mnuView"_s), &QMenu::aboutToShow, menu(u"mnuPreview"_s),
            [this] { menu(u"mnuPreview"_s)->setChecked(core::previewsPrints(mod_.services.settings)); });
}

QAction* MDIMain::buildEntry(const MenuDef& def) {
    auto* entry = new QAction(this);
    entry->setObjectName(def.name);
    entry->setSeparator(def.caption == u"-"_s);
    entry->setCheckable(def.name.startsWith(u"MnuCat"_s) || def.name.startsWith(u"mnuTheme"_s) ||
                        def.name == u"mnuSounds"_s || def.name == u"mnuPreview"_s);
    core::onSignal(mod_, this, entry, &QAction::triggered, [this, def] { trigger(def); });
    entries_.insert(def.name, entry);
    return entry;
}

void MDIMain::trigger(const MenuDef& def) {
    if (const auto own = ownActions_.value(def.form.isEmpty() ? def.name : def.form))
        own();
    else
        windows_.open(def.form, this);
}

void MDIMain::refreshMenus() {
    const int category = mod_.services.settings.number(settingsSection, u"Category"_s, 1);
    const core::ContactNoun noun = core::contactNoun(category);
    const MenuState state{mod_.gUserGroup, category,
                          [this](const QString& form) { return windows_.knows(form) || ownActions_.contains(form); }};
    for (const MenuDef& def : menuDefs()) {
        entries_[def.name]->setText(menuCaption(def, noun));
        entries_[def.name]->setVisible(menuVisible(def, state));
    }
    for (int i = 1; i <= 3; ++i) menu(controls::arrayName(u"MnuCat"_s, i))->setChecked(i == category);
    const int theme = mod_.services.settings.number(optionsSection, u"Theme"_s, 0);
    for (int i = 0; i <= 2; ++i) menu(controls::arrayName(u"mnuTheme"_s, i))->setChecked(i == theme);
    menu(u"mnuSounds"_s)->setChecked(mod_.services.settings.number(optionsSection, u"Sounds"_s, 1) == 1);
    menu(u"mnuPreview"_s)->setChecked(core::previewsPrints(mod_.services.settings));
    hideEmptyMenus();
}

// A submenu shows when something in it does; separators at an end or beside another one are folded away by the menu.
void MDIMain::hideEmptyMenus() {
    const auto& defs = menuDefs();
    for (auto def = defs.rbegin(); def != defs.rend(); ++def) {
        QMenu* submenu = menus_.value(def->name);
        if (!submenu || !entries_[def->name]->isVisible()) continue;
        const auto actions = submenu->actions();
        entries_[def->name]->setVisible(std::any_of(actions.begin(), actions.end(),
                                                    [](QAction* a) { return a->isVisible() && !a->isSeparator(); }));
    }
}

void MDIMain::buildStatusBar() {
    statusBar()->setObjectName(u"StatusBar1"_s);
    statusBar()->setContentsMargins(8, 0, 8, 0);
    for (int i = 0; i < 5; ++i) {
        auto* panel = controls::named(new QLabel, u"Panel%1"_s.arg(i + 1));
        panel->setTextFormat(Qt::PlainText);
        panel->setAlignment(Qt::AlignCenter);
        statusBar()->addWidget(panel, i == 2 || i == 3);
        panels_.append(panel);
    }
    panels_[4]->setMinimumWidth(controls::toPixels(3000));
    connect(&clock_, &QTimer::timeout, this, &MDIMain::tick);
    clock_.start(1000);
}

void MDIMain::tick() {
    const QDateTime now = mod_.services.clock.now();
    panels_[0]->setText(data::format(now, u"dd/mm/yyyy"));
    panels_[1]->setText(data::format(now, u"hh:nn"));
}

void MDIMain::setNoun(int category) {
    mod_.services.settings.setNumber(settingsSection, u"Category"_s, category);
    refreshMenus();
}

void MDIMain::setTheme(int kind) {
    mod_.services.settings.setNumber(optionsSection, u"Theme"_s, kind);
    controls::applyTheme(*qApp, static_cast<controls::ThemeKind>(kind));
    area_->setBackground(controls::theme().window.darker(controls::theme().dark ? 130 : 105));
    refreshMenus();
}

void MDIMain::logOff() {
    loggingOff_ = true;
    close();
    loggingOff_ = false;
}

void MDIMain::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (!loggingOff_ &&
        !mod_.services.prompts.question(this, u"Ερώτηση..."_s, u"Είστε σίγουρος για έξοδο απο το πρόγραμμα; "_s))
        return;
    if (!windows_.unloadAll()) return;
    storePlacement();
    event->accept();
    loggingOff_ ? emit loggedOff() : emit exited();
}

void MDIMain::place() {
    const auto& settings = mod_.services.settings;
    const QPoint corner = core::loadPosition(settings, {u"Main"_s, 105, 45});
    const QSize size(controls::toPixels(settings.number(settingsSection, u"MainWidth"_s, 11655)),
                     controls::toPixels(settings.number(settingsSection, u"MainHeight"_s, 8445)));
    putFrame({corner, size});
}

// `wanted` is the frame's corner and the size inside; the title bar stays on the screen.
void MDIMain::putFrame(QRect wanted) {
    const QSize frame = isVisible() ? frameGeometry().size() - size() : QSize(8, 36);
    wanted.setSize(wanted.size() + frame);
    wanted = core::fitInto(wanted, screen()->availableGeometry());
    move(wanted.topLeft());
    resize(wanted.size() - frame);
}

void MDIMain::storePlacement() {
    if (isMinimized()) return;
    auto& settings = mod_.services.settings;
    // The corner of the frame, as it is moved to, and the size inside it.
    const QRect rect = isMaximized() ? normalGeometry() : QRect(pos(), size());
    core::storePosition(settings, {u"Main"_s}, rect.topLeft());
    settings.setNumber(settingsSection, u"MainWidth"_s, controls::toTwips(rect.width()));
    settings.setNumber(settingsSection, u"MainHeight"_s, controls::toTwips(rect.height()));
}

FormFrame* MDIMain::frameOf(core::Form* form) const {
    return qobject_cast<FormFrame*>(form->parentWidget());
}

void MDIMain::add(core::Form* form) {
    auto* frame = new FormFrame(form, [this, name = form->objectName()] { windows_.unload(name); });
    area_->addSubWindow(frame);
    frame->resize(frame->sizeHint());
    frame->move(core::loadPosition(mod_.services.settings, form->placement()));
    makeRoomFor(frame);
}

// A window that wouldn't fit makes the main window grow as far as the screen allows, so that nothing is cut off at its
// first opening.
void MDIMain::makeRoomFor(QWidget* frame) {
    const QSize wanted = frame->geometry().size().expandedTo(frame->minimumSizeHint());
    const QSize needed = QSize(frame->x(), frame->y()) + wanted;
    const QSize missing = (needed - area_->viewport()->size()).expandedTo({0, 0});
    if ((missing.width() > 0 || missing.height() > 0) && !isMaximized()) {
        putFrame({pos(), size() + missing});
        layout()->activate();
    }
    frame->setGeometry(core::fitInto({frame->pos(), wanted}, area_->viewport()->rect()));
}

void MDIMain::bringToFront(core::Form* form) {
    FormFrame* frame = frameOf(form);
    if (frame->isMinimized())
        frame->showNormal();
    else
        frame->show();
    area_->setActiveSubWindow(frame);
}

bool MDIMain::isMinimised(core::Form* form) const {
    return frameOf(form)->isMinimized();
}

QPoint MDIMain::position(core::Form* form) const {
    return frameOf(form)->pos();
}

void MDIMain::remove(core::Form* form) {
    FormFrame* frame = frameOf(form);
    area_->removeSubWindow(frame);
    frame->deleteLater();
}

}  // namespace entry
