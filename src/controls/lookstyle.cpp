#include "controls/lookstyle.h"

#include <QStyleFactory>

#include "controls/theme.h"

namespace controls {

LookStyle::LookStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

QIcon LookStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
    switch (which) {
        case SP_MessageBoxInformation:
            return icon(QStringLiteral("box-info"));
        case SP_MessageBoxQuestion:
            return icon(QStringLiteral("box-question"));
        case SP_MessageBoxWarning:
            return icon(QStringLiteral("box-warning"));
        case SP_MessageBoxCritical:
            return icon(QStringLiteral("box-critical"));
        default:
            return QProxyStyle::standardIcon(which, option, widget);
    }
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, result);
}

}  // namespace controls
