#include "controls/names.h"

#include <QAccessible>
#include <QTabBar>

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

void tieInside(QWidget* field, const QString& caption) {
    QLabel* beside = nullptr;
    for (QLabel* each : field->parentWidget()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly))
        if (each->buddy() == field) beside = each;
    if (!beside) {
        beside = new QLabel(field->parentWidget());
        beside->setTextFormat(Qt::PlainText);
        beside->setBuddy(field);
        beside->hide();
    }
    beside->setText(spoken(caption));
}

void tellSelectedTab(QTabWidget* tabs) {
    const auto tell = [tabs](int selected) {
        QTabBar* bar = tabs->tabBar();
        for (int i = 0; i < tabs->count(); ++i) {
            const QString name = spoken(tabs->tabText(i));
            bar->setAccessibleTabName(i, i == selected ? name + u", επιλεγμένη καρτέλα"_s : name);
        }
        QAccessibleEvent changed(bar, QAccessible::NameChanged);
        changed.setChild(selected);
        QAccessible::updateAccessibility(&changed);
    };
    QObject::connect(tabs, &QTabWidget::currentChanged, tabs, tell);
    tell(tabs->currentIndex());
}

void setAccessibleCaption(QWidget* field, const QString& caption) {
    field->setAccessibleName(spoken(caption));
}

}  // namespace controls
