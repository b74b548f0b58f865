#include "core/pieces.h"

#include <QElapsedTimer>

#include "core/guard.h"

namespace core {

namespace {

constexpr int atOnceMs = 15;

}  // namespace

Pieces::Pieces(MainMod& mod, QWidget* window) : QObject(window), window_(window) {
    next_.setInterval(0);
    onSignal(mod, window, &next_, &QTimer::timeout, [this] { readOn(0); });
}

void Pieces::start(Work work) {
    stop();
    work_ = std::move(work);
    readOn(atOnceMs);
    if (!isRunning()) return;
    window_->setCursor(Qt::BusyCursor);
    next_.start();
}

bool Pieces::finishNow() {
    constexpr int aWhileMs = 1000;
    while (isRunning())
        if (!readOn(aWhileMs)) return false;
    return true;
}

void Pieces::stop() {
    end();
}

// Over before its outcome is told, which may start the next one.
std::optional<Pieces::Work> Pieces::end() {
    next_.stop();
    window_->unsetCursor();
    return std::exchange(work_, std::nullopt);
}

bool Pieces::readOn(int milliseconds) {
    QElapsedTimer clock;
    clock.start();
    try {
        do {
            if (!isRunning()) return true;
            if (work_->step()) continue;
            end()->done();
            return true;
        } while (clock.elapsed() < milliseconds);
    } catch (const data::Error& error) {
        const auto failed = end();
        if (!failed) throw;
        failed->failed(error);
        return false;
    } catch (...) {
        end();
        throw;
    }
    return true;
}

}  // namespace core
