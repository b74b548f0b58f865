#include "admin/terminal.h"

#include <cstdio>

#include "admin/output.h"

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <termios.h>
#include <unistd.h>
#endif

namespace admin {
namespace {

// Switches the terminal's echo off for as long as it lives.
class SilentInput {
public:
#ifdef Q_OS_WIN
    SilentInput() : input_(GetStdHandle(STD_INPUT_HANDLE)) {
        works_ = GetConsoleMode(input_, &before_) && SetConsoleMode(input_, before_ & ~ENABLE_ECHO_INPUT);
    }
    ~SilentInput() {
        if (works_) SetConsoleMode(input_, before_);
    }
#else
    SilentInput() {
        if (!isatty(STDIN_FILENO) || tcgetattr(STDIN_FILENO, &before_) != 0) return;
        termios silent = before_;
        silent.c_lflag &= ~tcflag_t(ECHO);
        works_ = tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent) == 0;
    }
    ~SilentInput() {
        if (works_) tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_);
    }
#endif
    SilentInput(const SilentInput&) = delete;
    SilentInput& operator=(const SilentInput&) = delete;
    bool works() const {
        return works_;
    }

private:
#ifdef Q_OS_WIN
    HANDLE input_;
    DWORD before_ = 0;
#else
    termios before_ = {};
#endif
    bool works_ = false;
};

}  // namespace

std::optional<QString> askHidden(const QString& prompt) {
    const SilentInput silent;
    if (!silent.works()) return std::nullopt;
    err() << prompt << Qt::flush;
    QTextStream input(stdin, QIODevice::ReadOnly);
    const QString line = input.readLine();
    err() << Qt::endl;
    if (line.isNull()) return std::nullopt;
    return line;
}

}  // namespace admin
