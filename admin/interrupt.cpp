#include "admin/interrupt.h"

#include <csignal>

#include "admin/output.h"

namespace admin {
namespace {

using namespace Qt::Literals::StringLiterals;

volatile std::sig_atomic_t interrupted = 0;

void interrupt(int) {
    interrupted = 1;
}

}  // namespace

schema::Progress progressLines() {
    std::signal(SIGINT, interrupt);
    std::signal(SIGTERM, interrupt);
    return [last = QString()](const QString& what, int percent) mutable {
        const int fifths = percent / 20 * 20;
        const QString line = fifths > 0 ? u"%1: %2%"_s.arg(what).arg(fifths) : what;
        if (line != last) err() << line << Qt::endl;
        last = line;
        return interrupted == 0;
    };
}

}  // namespace admin
