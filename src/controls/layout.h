// Layouts of windows, all with the same distances: pages, dialogs, rows of widgets and rows of a form.
#pragma once

#include <QBoxLayout>
#include <QFormLayout>
#include <QLabel>
#include <initializer_list>

namespace controls {

// Columns of widgets with the margins of a window inside the main window, of a dialog, of a tab's page, and without
// any. The layout belongs to `widget`.
QVBoxLayout* pageLayout(QWidget* widget);
QVBoxLayout* dialogLayout(QWidget* widget);
QVBoxLayout* tabLayout(QWidget* widget);
QVBoxLayout* bareLayout(QWidget* widget);

// One thing in a row or column: a widget or a layout with its share of the room that is left (0 for its own size), a
// gap of so many pixels, or a stretch that takes the rest.
struct Item {
    Item(QWidget* widget, int share = 0) : widget(widget), share(share) {}
    Item(QLayout* layout, int share = 0) : layout(layout), share(share) {}
    static Item gap(int pixels) { return Item(pixels, 0); }
    static Item rest() { return Item(-1, 1); }

    QWidget* widget = nullptr;
    QLayout* layout = nullptr;
    int space = -1;
    int share = 0;

private:
    Item(int space, int share) : space(space), share(share) {}
};

// Beside each other, without margins.
QHBoxLayout* row(std::initializer_list<Item> items, int spacing = 6);
// A row that goes on below itself where it is too wide. What must stay beside each other in it is an item of its own.
QLayout* flow(std::initializer_list<Item> items, int spacing = 6);
// Below each other, without margins.
QVBoxLayout* column(std::initializer_list<Item> items, int spacing = 8);
// A row as a widget, which can be hidden or put into a form.
QWidget* rowWidget(std::initializer_list<Item> items, int spacing = 6);
// Adds the items to a layout that is there.
void add(QBoxLayout* layout, std::initializer_list<Item> items);

// Captions to the right above each other, fields that take the width. Without margins.
QFormLayout* formLayout(QWidget* parent = nullptr);

// A caption and its field, tied to each other: the caption's mnemonic leads to the field, and a screen reader names the
// field by it. `holder` stands in the field's place when the field has something beside it. A caption is shown as it
// is, since it may be one that an office typed. Returns the caption's label.
QLabel* addField(QFormLayout* form, const QString& caption, QWidget* field, QWidget* holder = nullptr);
// Likewise for a field that stands in a row of its own making.
QLabel* captionOf(const QString& caption, QWidget* field);

}  // namespace controls
