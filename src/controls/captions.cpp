#include "controls/captions.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

constexpr int widest = 26;  // letters of an ordinary width
constexpr int mostLines = 3;

int widestPixels(const QWidget* widget) {
    return widget->fontMetrics().averageCharWidth() * widest;
}

QString shownAsTyped(QString caption) {
    return caption.replace(u'&', u"&&"_s);
}

}  // namespace

QStringList brokenLines(const QString& text, const QFont& font, int width, int most) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    QStringList lines;
    const QFontMetrics metrics(font);
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const bool isLast = lines.size() + 1 == most;
        const QString piece = text.mid(line.textStart(), isLast ? -1 : line.textLength()).trimmed();
        lines << metrics.elidedText(piece, Qt::ElideRight, width);
        if (isLast) break;
    }
    layout.endLayout();
    return lines;
}

QString plainTip(const QString& text) {
    return Qt::mightBeRichText(text) ? u"<qt>%1</qt>"_s.arg(text.toHtmlEscaped()) : text;
}

void setTypedCaption(QLabel* label, const QString& caption) {
    // Broken here: a form's layout miscounts labels that wrap by themselves when rows are hidden.
    const QStringList lines = brokenLines(caption, label->font(), widestPixels(label), mostLines);
    const QString shown = lines.join(u'\n');
    label->setToolTip(shown.contains(u'…') ? plainTip(caption) : QString());
    // A label without a buddy takes the sign for itself.
    label->setText(label->buddy() ? shownAsTyped(shown) : shown);
}

void setTypedCaption(QAbstractButton* button, const QString& caption) {
    const QString shown = button->fontMetrics().elidedText(caption, Qt::ElideRight, widestPixels(button));
    button->setText(shownAsTyped(shown));
    button->setToolTip(shown == caption ? QString() : plainTip(caption));
}

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 4, QLabel::minimumSizeHint().height()};
}

bool ElidedLabel::isCut() const {
    return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
    if (!isCut()) return QLabel::paintEvent(event);
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(), int(alignment()), palette(), isEnabled(), shown, foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), isCut() ? plainTip(text()) : QString(), this);
    return true;
}

}  // namespace controls
