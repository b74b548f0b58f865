#include "controls/picturebutton.h"

#include <QEnterEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include "controls/captions.h"
#include "controls/color.h"
#include "controls/theme.h"

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

constexpr int iconSide = 24;
constexpr int padding = 6;
constexpr int gap = 3;
constexpr int mostLines = 2;

}  // namespace

PictureButton::PictureButton(const QString& caption, const QString& iconName, QWidget* parent)
    : QAbstractButton(parent), iconName_(iconName) {
    setText(caption);
    setIcon(controls::icon(iconName));
    setAccessibleName(caption);
    setToolTip(caption);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

QSize PictureButton::sizeHint() const {
    // Wide enough for the longest single word of the rows' captions, so that all buttons are alike.
    const QFontMetrics metrics(font());
    const int usual = metrics.horizontalAdvance(u"Προηγούμενος"_s) + 2 * padding + 4;
    // A caption that needs a little more gets it; one that needs much more is cut, and told in the tool tip.
    const auto isCut = [&](int width) {
        return brokenLines(text(), font(), width - 2 * padding, mostLines).join(u' ') != text();
    };
    int width = usual;
    while (isCut(width) && width < usual * 3 / 2) width += 4;
    return QSize(isCut(width) ? usual : width, padding + iconSide + gap + mostLines * metrics.lineSpacing() + padding);
}

QSize PictureButton::minimumSizeHint() const {
    constexpr int narrowest = 58;
    return QSize(narrowest, sizeHint().height());
}

void PictureButton::paintEvent(QPaintEvent*) {
    const Theme& look = theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF face = QRectF(rect()).adjusted(1, 1, -1, -1);
    const bool pressed = isDown() && isEnabled();
    if (pressed || isChecked() || (hover_ && isEnabled())) {
        painter.setPen(QPen(mixed(look.window, look.accent, 0.45), 1));
        painter.setBrush(mixed(look.window, look.accent, pressed ? 0.28 : 0.12));
        painter.drawRoundedRect(face.adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    }
    if (hasFocus()) {
        painter.setPen(QPen(look.accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(face, 6, 6);
    }

    const QStringList lines = brokenLines(text(), font(), width() - 2 * padding, mostLines);
    const QFontMetrics metrics(font());
    const int sunk = pressed ? 1 : 0;
    const QRect picture((width() - iconSide) / 2, padding + sunk, iconSide, iconSide);
    const QIcon::Mode mode = !isEnabled() ? QIcon::Disabled : (hover_ || pressed) ? QIcon::Active : QIcon::Normal;
    icon().paint(&painter, picture, Qt::AlignCenter, mode);
    painter.setPen(isEnabled() ? look.text : look.mutedText);
    int top = picture.bottom() + 1 + gap;
    for (const QString& line : lines) {
        painter.drawText(QRect(padding, top, width() - 2 * padding, metrics.height()), Qt::AlignHCenter | Qt::AlignTop,
                         line);
        top += metrics.lineSpacing();
    }
}

void PictureButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    if (hover_) return;
    hover_ = true;
    update();
    if (isEnabled()) emit hovered();
}

void PictureButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    hover_ = false;
    update();
}

void PictureButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QAbstractButton::keyPressEvent(event);
        return;
    }
    event->accept();
    if (!event->isAutoRepeat()) click();
}

}  // namespace controls
