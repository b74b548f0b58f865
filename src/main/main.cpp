#include <QApplication>

#include "controls/theme.h"
#include "core/guard.h"
#include "core/mainmod.h"
#include "core/waitingbar.h"
#include "main/program.h"

using namespace Qt::Literals::StringLiterals;

namespace {

// Handlers catch their own failures; this is the last wall, so that none takes the program down.
class Application : public QApplication {
public:
    using QApplication::QApplication;
    core::MainMod* mod = nullptr;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& error) {
            if (mod) core::showFailure(*mod, activeWindow(), error);
            return true;
        }
    }
};

}  // namespace

int main(int argc, char** argv) {
    Application app(argc, argv);
    QApplication::setApplicationName(core::programTitle());
    QApplication::setApplicationVersion(core::programVersion());
    QApplication::setQuitOnLastWindowClosed(false);

    const auto settings = platform::iniSettings(qEnvironmentVariable("DORVALIST_SETTINGS"));
    platform::SystemClock clock;
    platform::DesktopPrompts prompts;
    const auto sound = platform::systemSound();
    platform::DesktopShell shell;
    platform::SystemPrinters printers;
    const auto notifier = platform::desktopNotifier();
    controls::applyTheme(app, static_cast<controls::ThemeKind>(settings->number(u"Options"_s, u"Theme"_s, 0)));

    core::MainMod mod({*settings, clock, prompts, *sound, shell, printers, *notifier});
    app.mod = &mod;
    const core::WaitingBar waitingBar;
    entry::Program program(mod);
    QObject::connect(&program, &entry::Program::finished, &app, &QApplication::quit, Qt::QueuedConnection);
    return program.start() ? QApplication::exec() : 0;
}
