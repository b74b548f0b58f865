// The program from its first instruction to a painted logon window, then out: time it as a whole process.
#include <QApplication>
#include <QTimer>

#include "controls/theme.h"
#include "main/program.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const auto settings = platform::iniSettings(qEnvironmentVariable("DORVALIST_SETTINGS"));
    platform::SystemClock clock;
    platform::DesktopPrompts prompts;
    const auto sound = platform::systemSound();
    platform::DesktopShell shell;
    platform::SystemPrinters printers;
    controls::applyTheme(app, controls::ThemeKind::Automatic);
    core::MainMod mod({*settings, clock, prompts, *sound, shell, printers});
    entry::Program program(mod);
    if (!program.start()) return 1;
    QTimer::singleShot(0, &app, [&] { program.logon()->repaint(), QApplication::quit(); });
    return QApplication::exec();
}
