#include "controls/names.h"

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

QString spoken(QString caption) {
    const QString doubled(u'\x01');  // stands for "&&", which shows as one ampersand
    caption.replace(u"&&"_s, doubled).remove(u'&').replace(doubled, u"&"_s);
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
