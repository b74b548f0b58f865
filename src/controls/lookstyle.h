#pragma once

#include <QProxyStyle>

namespace controls {

// The Fusion style with the program's own pictures in message boxes and no icons on dialog buttons.
class LookStyle : public QProxyStyle {
public:
    LookStyle();
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
};

}  // namespace controls
