#include "diary/clockface.h"

#include <QPainter>
#include <cmath>
#include <numbers>

#include "controls/theme.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

namespace {

// Degrees from three o'clock on, clockwise.
QPointF onCircle(int radius, double length, double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return {length * std::cos(angle) + radius, length * std::sin(angle) + radius};
}

constexpr int markInset = 100, handInset = 250, hourHandInset = 150;  // twips

}  // namespace

std::array<QPointF, 3> handEnds(QTime now, int radius) {
    const auto end = [radius](double dial, double length) {
        return onCircle(radius, length, dial < 90 ? dial + 270 : dial - 90);
    };
    const double length = radius - handInset;
    return {end(now.second() * 6, length), end(now.minute() * 6, length),
            end((now.hour() % 12 + now.minute() / 60.0) * 30, length - hourHandInset)};
}

QString halfOfDay(QTime now) {
    return now.hour() > 12 ? u"MM"_s : u"ΠΜ"_s;
}

ClockFace::ClockFace(QWidget* parent) : QWidget(parent) {
    setMinimumSize(72, 72);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void ClockFace::setTime(QTime now) {
    now_ = now;
    setAccessibleName(u"Ρολόι, "_s + now.toString(u"HH:mm"_s));
    update();
}

void ClockFace::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int side = std::min(width(), height());
    painter.translate((width() - side) / 2.0, (height() - side) / 2.0);
    painter.scale(1.0 / controls::twipsPerPixel, 1.0 / controls::twipsPerPixel);
    const int radius = controls::toTwips(side) / 2;
    const controls::Theme& theme = controls::theme();
    painter.setPen(Qt::NoPen);
    for (int mark = 1; mark <= 60; ++mark) {
        const bool hour = mark % 5 == 0;
        painter.setBrush(hour ? theme.danger : theme.mutedText);
        const double size = hour ? 25 : 12;
        painter.drawEllipse(onCircle(radius, radius - markInset, mark * 6), size, size);
    }
    const auto ends = handEnds(now_, radius);
    const std::pair<QColor, int> pens[] = {{theme.danger, 12}, {theme.text, 25}, {theme.text, 45}};
    for (size_t hand = 0; hand < ends.size(); ++hand) {
        painter.setPen(QPen(pens[hand].first, pens[hand].second, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(radius, radius), ends[hand]);
    }
}

}  // namespace diary
