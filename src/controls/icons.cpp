#include "controls/icons.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include "controls/color.h"
#include "controls/resources.h"
#include "controls/themecolors.h"

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

QString pathOf(const QString& name) {
    return u":/dorvalist/icons/%1.svg"_s.arg(name);
}

QColor colorFor(QIcon::Mode mode) {
    const Theme& look = theme();
    switch (mode) {
        case QIcon::Disabled: {
            QColor pale = look.mutedText;
            pale.setAlphaF(0.55F);
            return pale;
        }
        case QIcon::Active:
            return look.dark ? mixed(look.accent, look.text, 0.35) : look.accent;
        case QIcon::Selected:
            return look.accentText;
        case QIcon::Normal:
            break;
    }
    return look.text;
}

// Renders at the size asked for, in the colours of the theme at that moment.
class SymbolEngine : public QIconEngine {
public:
    explicit SymbolEngine(QString name) : name_(std::move(name)) {}

    QIconEngine* clone() const override { return new SymbolEngine(name_); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const qreal scale = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
        const int side = std::min(rect.width(), rect.height());
        QPixmap picture = pixmap(QSize(side, side) * scale, mode, state);
        picture.setDevicePixelRatio(scale);
        painter->drawPixmap(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2, picture);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        if (size.isEmpty()) return {};
        const QColor color = colorFor(mode);
        const QString key = u"symbol/%1/%2x%3/%4/%5"_s.arg(name_)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(color.rgba())
                                .arg(mode == QIcon::Disabled);
        QPixmap picture;
        if (!QPixmapCache::find(key, &picture)) {
            picture = rendered(size, color, mode);
            QPixmapCache::insert(key, picture);
        }
        return picture;
    }

private:
    QPixmap rendered(const QSize& size, const QColor& color, QIcon::Mode mode) const {
        QFile file(pathOf(name_));
        if (!file.open(QIODevice::ReadOnly)) return {};
        QByteArray drawing = file.readAll();
        const bool takesColor = drawing.contains("currentColor");
        drawing.replace("currentColor", color.name(QColor::HexRgb).toLatin1());
        QSvgRenderer renderer(drawing);
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(takesColor ? color.alphaF() : mode == QIcon::Disabled ? 0.5 : 1.0);
        renderer.render(&painter);
        return picture;
    }

    QString name_;
};

}  // namespace

QIcon icon(const QString& name) {
    registerResources();
    return QFile::exists(pathOf(name)) ? QIcon(new SymbolEngine(name)) : QIcon();
}

}  // namespace controls
