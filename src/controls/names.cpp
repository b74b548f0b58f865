#include "controls/names.h"

namespace controls {

namespace {

QString spoken(QString caption) {
    const QString doubled(u'\x01');  // stands for "&&", which shows as one ampersand
    caption.replace(QLatin1String("&&"), doubled).remove(u'&').replace(doubled, QLatin1String("&"));
    caption = caption.simplified();
    while (caption.endsWith(u':') || caption.endsWith(u' ')) caption.chop(1);
    return caption;
}

}  // namespace

void tie(QLabel* label, QWidget* field) {
    label->setBuddy(field);
    setAccessibleCaption(field, label->text());
}

void setAccessibleCaption(QWidget* field, const QString& caption) {
    field->setAccessibleName(spoken(caption));
}

}  // namespace controls
