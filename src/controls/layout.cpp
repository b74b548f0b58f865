#include "controls/layout.h"

#include "controls/flow.h"
#include "controls/names.h"

namespace controls {

namespace {

QVBoxLayout* columnIn(QWidget* widget, QMargins margins, int spacing) {
    auto* layout = new QVBoxLayout(widget);
    layout->setContentsMargins(margins);
    layout->setSpacing(spacing);
    return layout;
}

}  // namespace

QVBoxLayout* pageLayout(QWidget* widget) {
    return columnIn(widget, {14, 12, 14, 10}, 10);
}

QVBoxLayout* dialogLayout(QWidget* widget) {
    return columnIn(widget, {18, 16, 18, 14}, 12);
}

QVBoxLayout* tabLayout(QWidget* widget) {
    return columnIn(widget, {14, 14, 14, 14}, 8);
}

QVBoxLayout* bareLayout(QWidget* widget) {
    return columnIn(widget, {}, 8);
}

void add(QBoxLayout* layout, std::initializer_list<Item> items) {
    for (const Item& item : items) {
        if (item.widget)
            layout->addWidget(item.widget, item.share);
        else if (item.layout)
            layout->addLayout(item.layout, item.share);
        else if (item.space >= 0)
            layout->addSpacing(item.space);
        else
            layout->addStretch(item.share);
    }
}

QVBoxLayout* column(std::initializer_list<Item> items, int spacing) {
    auto* layout = new QVBoxLayout;
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    add(layout, items);
    return layout;
}

QHBoxLayout* row(std::initializer_list<Item> items, int spacing) {
    auto* layout = new QHBoxLayout;
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    add(layout, items);
    return layout;
}

QLayout* flow(std::initializer_list<Item> items, int spacing) {
    auto* layout = new FlowLayout(spacing);
    for (const Item& item : items) {
        if (item.widget)
            layout->addWidget(item.widget);
        else if (item.layout)
            layout->addNested(item.layout);
        else if (item.space < 0)
            layout->addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding));
    }
    return layout;
}

QWidget* rowWidget(std::initializer_list<Item> items, int spacing) {
    auto* widget = new QWidget;
    widget->setLayout(row(items, spacing));
    return widget;
}

QFormLayout* formLayout(QWidget* parent) {
    auto* form = new QFormLayout(parent);
    form->setContentsMargins({});
    form->setHorizontalSpacing(10);
    form->setVerticalSpacing(8);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return form;
}

QLabel* captionOf(const QString& caption, QWidget* field) {
    auto* label = new QLabel(caption);
    label->setTextFormat(Qt::PlainText);
    tie(label, field);
    return label;
}

QLabel* addField(QFormLayout* form, const QString& caption, QWidget* field, QWidget* holder) {
    QLabel* label = captionOf(caption, field);
    form->addRow(label, holder ? holder : field);
    if (holder && holder != field && holder->isAncestorOf(field)) tieInside(field, caption);
    return label;
}

}  // namespace controls
