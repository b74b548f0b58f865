#pragma once

#include <QProxyStyle>

namespace controls {

// The Fusion style with the program's own pictures in message boxes, flat frames for the windows inside the main
// window, no icons on dialog buttons, and what follows a separator on a menu bar at its right end.
class LookStyle : public QProxyStyle {
public:
    LookStyle();
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

private:
    void drawTitleBar(const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) const;
};

}  // namespace controls
