#include "core/placement.h"

#include "controls/theme.h"

namespace core {

namespace {
const QString section = QStringLiteral("Settings");
}

QPoint loadPosition(const platform::Settings& settings, const Placement& placement) {
    return {controls::toPixels(settings.number(section, placement.prefix + QStringLiteral("Left"), placement.left)),
            controls::toPixels(settings.number(section, placement.prefix + QStringLiteral("Top"), placement.top))};
}

void storePosition(platform::Settings& settings, const Placement& placement, QPoint position) {
    settings.setNumber(section, placement.prefix + QStringLiteral("Left"), controls::toTwips(position.x()));
    settings.setNumber(section, placement.prefix + QStringLiteral("Top"), controls::toTwips(position.y()));
}

QRect fitInto(QRect wanted, const QRect& area) {
    wanted.setSize(wanted.size().boundedTo(area.size()));
    const int x = std::clamp(wanted.x(), area.left(), area.right() - wanted.width() + 1);
    const int y = std::clamp(wanted.y(), area.top(), area.bottom() - wanted.height() + 1);
    wanted.moveTo(x, y);
    return wanted;
}

}  // namespace core
