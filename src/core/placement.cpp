#include "core/placement.h"

#include "controls/theme.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

namespace {
const QString section = u"Settings"_s;
}

QPoint loadPosition(const platform::Settings& settings, const Placement& placement) {
    return {controls::toPixels(settings.number(section, placement.prefix + u"Left"_s, placement.left)),
            controls::toPixels(settings.number(section, placement.prefix + u"Top"_s, placement.top))};
}

void storePosition(platform::Settings& settings, const Placement& placement, QPoint position) {
    settings.setNumber(section, placement.prefix + u"Left"_s, controls::toTwips(position.x()));
    settings.setNumber(section, placement.prefix + u"Top"_s, controls::toTwips(position.y()));
}

QRect fitInto(QRect wanted, const QRect& area) {
    wanted.setSize(wanted.size().boundedTo(area.size()));
    const int x = std::clamp(wanted.x(), area.left(), area.right() - wanted.width() + 1);
    const int y = std::clamp(wanted.y(), area.top(), area.bottom() - wanted.height() + 1);
    wanted.moveTo(x, y);
    return wanted;
}

}  // namespace core
