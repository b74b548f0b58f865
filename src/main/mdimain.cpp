#include "main/mdimain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QTimer>

#include "cards/windows.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/printsettings.h"
#include "diary/windows.h"
#include "main/frmrestore.h"
#include "main/mainplacement.h"
#include "users/windows.h"

using namespace Qt::Literals::StringLiterals;

namespace entry {

namespace {

const QString settingsSection = u"Settings"_s;
const QString optionsSection = u"Options"_s;

}  // namespace

MDIMain::MDIMain(core::MainMod& mod)
    : mod_(mod),
      area_(new FormArea(mod.services.settings)),
      windows_(*area_),
      status_(new StatusBar(mod.services.clock)) {
    setObjectName(u"MDIMain"_s);
    setWindowTitle(u"Velmarine %1 Ver. %2"_s.arg(core::programTitle(), core::programVersion()));
    setWindowIcon(controls::icon(u"dorvalist"_s));
    core::addWindows(windows_, mod_);
    cards::addWindows(windows_, mod_);
    diary::addWindows(windows_, mod_);
    users::addWindows(windows_, mod_);
    mod_.doors.say = [this](const QString& text) { status_->say(text); };
    // With no copies in it; Program gives it those of the folder.
    windows_.addDialog(u"frmRestore"_s, [&mod](QWidget* parent) {
        return std::make_unique<frmRestore>(mod, parent, QVector<core::ListedBackup>());
    });
    menus_ = new MenuTree(mod_, this, windows_, ownEntries());
    setCentralWidget(area_);
    setStatusBar(status_);
    connect(area_, &FormArea::roomWanted, this, [this](QSize missing) {
        // A size that the user chose stays at start.
        if (!openingAtStart_ || !hasStoredSize(mod_.services.settings)) grow(*this, missing);
    });
}

MDIMain::~MDIMain() {
    delete alarm_;  // while there is a place to measure its own from
    mod_.doors = {};
}

QHash<QString, OwnEntry> MDIMain::ownEntries() {
    auto& settings = mod_.services.settings;
    const auto sounds = [&settings] { return settings.number(optionsSection, u"Sounds"_s, 1) == 1; };
    const auto previews = [&settings] { return core::previewsPrints(settings); };
    QHash<QString, OwnEntry> own{
        {u"mnuLogOff"_s, {[this] { logOff(); }}},
        {u"mnuExit"_s, {[this] { close(); }}},
        {u"mnuBackupNow"_s, {[this] { emit backupWanted(); }}},
        {u"mnuBackupFolder"_s, {[this] { emit backupFolderWanted(); }}},
        {u"mnuRestore"_s, {[this] { emit restoreWanted(); }}},
        {u"frmAlarm"_s, {[this] { alarm_->showFront(); }}},
        {u"mnuSounds"_s, {[=, &settings] { settings.setNumber(optionsSection, u"Sounds"_s, !sounds()); }, sounds}},
        {u"mnuPreview"_s, {[=, &settings] { core::setPreviewsPrints(settings, !previews()); }, previews}},
    };
    for (int i = 1; i <= 3; ++i)
        own.insert(controls::arrayName(u"MnuCat"_s, i),
                   {[&settings, i] { settings.setNumber(settingsSection, u"Category"_s, i); },
                    [&settings, i] { return settings.number(settingsSection, u"Category"_s, 1) == i; }});
    for (int i = 0; i <= 2; ++i)
        own.insert(controls::arrayName(u"mnuTheme"_s, i),
                   {[this, i] { setTheme(i); },
                    [&settings, i] { return settings.number(optionsSection, u"Theme"_s, 0) == i; }});
    return own;
}

void MDIMain::load() {
    place(*this, mod_.services.settings);
    mod_.gAddressOpen = false;
    menus_->refresh();
    status_->setUser(mod_.gUserName);
    if (mod_.services.settings.value(settingsSection, u"Name"_s).isEmpty())
        windows_.open(u"frmOwner"_s, isVisible() ? this : nullptr);
    // What was shown in this run isn't shown again, unless somebody else was at work meanwhile.
    if (std::exchange(mod_.remindedUser, mod_.gUserName) != mod_.gUserName) mod_.reminded.clear();
    alarm_ = new diary::frmAlarm(mod_, this);
}

// Once the area has its size, in which they find their places.
void MDIMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!std::exchange(shown_, true)) openAtStart({u"frmTodayShow"_s, u"frmNameDay"_s});
}

// One after the other, each once the one before has done with what it asked or told: that may have closed this window.
void MDIMain::openAtStart(QStringList names) {
    if (!isVisible()) return;
    // A reminder that came before this window stood on the screen would lie behind it.
    if (names.isEmpty()) return alarm_->watch();
    const QString name = names.takeFirst();
    openingAtStart_ = true;
    if (windows_.knows(name) && mod_.services.settings.number(optionsSection, name + u"Start"_s, 1) == 1)
        windows_.front(name);
    openingAtStart_ = false;
    QTimer::singleShot(0, this, [this, names] { openAtStart(names); });
}

void MDIMain::setTheme(int kind) {
    mod_.services.settings.setNumber(optionsSection, u"Theme"_s, kind);
    controls::applyTheme(*qApp, static_cast<controls::ThemeKind>(kind));
    area_->followTheme();
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
    storePlacement(*this, mod_.services.settings);
    event->accept();
    loggingOff_ ? emit loggedOff() : emit exited();
}

}  // namespace entry
