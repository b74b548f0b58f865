#include "controls/datefield.h"

#include "controls/names.h"
#include "controls/walk.h"

using namespace Qt::Literals::StringLiterals;

namespace controls {

DateField::DateField(const QString& boxName, const QString& pickerName, const QString& caption, QWidget* parent)
    : DateField(named(new DateBox, boxName), pickerName, caption, parent) {}

DateField::DateField(DateBox* box, const QString& pickerName, const QString& caption, QWidget* parent)
    : QWidget(parent), caption_(caption), box_(box), picker_(named(new DatePicker, pickerName)) {
    setAccessibleCaption(box_, caption);
    setAccessibleCaption(picker_, u"Ημερολόγιο: "_s + caption);
    pairUp(box_, picker_);
    layout_ = row({box_, picker_, Item::rest()}, 4);
    setLayout(layout_);
    setFocusProxy(box_);
}

void DateField::setDate(QDate date) {
    box_->setDate(date);
    picker_->setValue(date);
}

void DateField::add(QWidget* beside) {
    standBeside(beside);
    layout_->insertWidget(layout_->count() - 1, beside);
}

QLabel* DateField::showCaption() {
    QLabel* label = captionOf(caption_, box_);
    layout_->insertWidget(0, label);
    return label;
}

}  // namespace controls
