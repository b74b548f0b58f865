#include "controls/lookstyle.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleFactory>
#include <QStyleOption>

#include "controls/color.h"
#include "controls/icons.h"
#include "controls/themecolors.h"

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

// The sign on a title bar's button, in a square of `reach` pixels to each side of its centre.
void drawSign(QPainter& painter, QStyle::SubControl button, QPointF centre, double reach) {
    const auto at = [&](double x, double y) { return centre + QPointF(x * reach, y * reach); };
    switch (button) {
        case QStyle::SC_TitleBarMinButton:
            painter.drawLine(at(-1, 0.7), at(1, 0.7));
            break;
        case QStyle::SC_TitleBarMaxButton:
            painter.drawRoundedRect(QRectF(at(-1, -1), at(1, 1)), 1, 1);
            break;
        case QStyle::SC_TitleBarNormalButton:
            painter.drawRoundedRect(QRectF(at(-1, -0.4), at(0.4, 1)), 1, 1);
            painter.drawPolyline(QPolygonF({at(-0.4, -0.8), at(1, -0.8), at(1, 0.5)}));
            break;
        default:
            painter.drawLine(at(-1, -1), at(1, 1));
            painter.drawLine(at(1, -1), at(-1, 1));
    }
}

}  // namespace

LookStyle::LookStyle() : QProxyStyle(QStyleFactory::create(u"Fusion"_s)) {}

QIcon LookStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
    switch (which) {
        case SP_MessageBoxInformation:
            return icon(u"box-info"_s);
        case SP_MessageBoxQuestion:
            return icon(u"box-question"_s);
        case SP_MessageBoxWarning:
            return icon(u"box-warning"_s);
        case SP_MessageBoxCritical:
            return icon(u"box-critical"_s);
        default:
            return QProxyStyle::standardIcon(which, option, widget);
    }
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const {
    if (hint == SH_DrawMenuBarSeparator) return 1;
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons || hint == SH_WindowFrame_Mask) return 0;
    return QProxyStyle::styleHint(hint, option, widget, result);
}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    if (metric == PM_TitleBarHeight) return 28;
    if (metric == PM_MdiSubWindowFrameWidth) return 3;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (element != PE_FrameWindow) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const bool active = option->state & State_Active;
    painter->save();
    painter->setPen(active ? mixed(theme().border, theme().accent, 0.6) : theme().border);
    painter->drawRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
    painter->restore();
}

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                   const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    if (control != CC_TitleBar || !bar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    drawTitleBar(*bar, *painter, widget);
    painter->restore();
}

void LookStyle::drawTitleBar(const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) const {
    const Theme& look = theme();
    const bool active = bar.titleBarState & State_Active;
    const QColor frame = active ? mixed(look.border, look.accent, 0.6) : look.border;
    const QColor ground = active ? mixed(look.window, look.accent, 0.22) : mixed(look.window, look.text, 0.04);
    const QColor ink = active ? look.text : look.mutedText;
    painter.fillRect(bar.rect, ground);
    painter.setPen(frame);
    painter.drawRect(QRectF(bar.rect).adjusted(0.5, 0.5, -0.5, -0.5));

    const QRect menu = subControlRect(CC_TitleBar, &bar, SC_TitleBarSysMenu, widget);
    if (menu.isValid() && !bar.icon.isNull()) bar.icon.paint(&painter, menu.adjusted(2, 2, -2, -2));
    QRect label = subControlRect(CC_TitleBar, &bar, SC_TitleBarLabel, widget);
    label.setLeft(std::max(label.left(), menu.isValid() ? menu.right() + 6 : bar.rect.left() + 10));
    painter.setPen(ink);
    painter.setFont(widget ? widget->font() : painter.font());
    painter.drawText(label, Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(bar.text, Qt::ElideRight, label.width()));

    for (const SubControl button :
         {SC_TitleBarMinButton, SC_TitleBarMaxButton, SC_TitleBarNormalButton, SC_TitleBarCloseButton}) {
        const QRect place = subControlRect(CC_TitleBar, &bar, button, widget);
        if (!(bar.subControls & button) || !place.isValid()) continue;
        const bool touched = bar.activeSubControls & button && bar.state & (State_MouseOver | State_Sunken);
        if (touched) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(mixed(ground, button == SC_TitleBarCloseButton ? look.danger : look.accent,
                                   bar.state & State_Sunken ? 0.5 : 0.3));
            painter.drawRoundedRect(place, 4, 4);
        }
        painter.setPen(QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        drawSign(painter, button, QRectF(place).center(), 4);
    }
}

}  // namespace controls
