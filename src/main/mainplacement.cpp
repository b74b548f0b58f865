#include "main/mainplacement.h"

#include <QLayout>
#include <QScreen>
#include <QWindow>

#include "controls/theme.h"
#include "core/placement.h"

using namespace Qt::Literals::StringLiterals;

namespace entry {

namespace {

const QString section = u"Settings"_s, width = u"MainWidth"_s, height = u"MainHeight"_s;

// `wanted` is the frame's corner and the size inside.
void putFrame(QWidget& window, QRect wanted) {
    // A window that was only just shown has no frame yet as far as the toolkit knows.
    const QSize frame = (window.frameGeometry().size() - window.size()).expandedTo({8, 36});
    wanted.setSize(wanted.size() + frame);
    wanted = core::fitInto(wanted, window.screen()->availableGeometry());
    window.resize(wanted.size() - frame);
    window.move(wanted.topLeft());
    // Without a frame yet the toolkit takes the corner for that of the inside, and the title lands above the screen.
    if (QWindow* handle = window.windowHandle(); handle && window.frameGeometry() == window.geometry())
        handle->setFramePosition(wanted.topLeft());
}

}  // namespace

void place(QWidget& window, const platform::Settings& settings) {
    const QSize size(controls::toPixels(settings.number(section, width, 11655)),
                     controls::toPixels(settings.number(section, height, 8445)));
    putFrame(window, {core::loadPosition(settings, {u"Main"_s, 105, 45}), size});
}

bool hasStoredSize(const platform::Settings& settings) {
    return !settings.value(section, width).isEmpty();
}

void storePlacement(const QWidget& window, platform::Settings& settings) {
    if (window.isMinimized()) return;
    // The corner of the frame, as it is moved to, and the size inside it.
    const QRect rect = window.isMaximized() ? window.normalGeometry() : QRect(window.pos(), window.size());
    core::storePosition(settings, {u"Main"_s}, rect.topLeft());
    settings.setNumber(section, width, controls::toTwips(rect.width()));
    settings.setNumber(section, height, controls::toTwips(rect.height()));
}

void grow(QWidget& window, QSize missing) {
    if (window.isMaximized()) return;
    putFrame(window, {window.pos(), window.size() + missing});
    window.layout()->activate();
}

}  // namespace entry
