// Lists on paper: a ruled table over the pages, under one of three headings.
#pragma once

#include "controls/listview.h"
#include "core/printout.h"

namespace core {

enum class ListHeading { Plain, Owner };  // date and title; with the owner's block above them

// The list as it stands, every column, also those of width 0. True when printed; a failure ends in a box. An empty
// title leaves the heading out.
bool gPrintListView(MainMod& mod, QWidget* parent, const controls::ListView& list, const QString& title,
                    ListHeading heading = ListHeading::Plain);
// With the owner's block and a card's.
bool gPrintListView(MainMod& mod, QWidget* parent, const controls::ListView& list, const QString& title,
                    const QString& surname, const QString& firstName, const QString& telephone, const QString& mobile);

}  // namespace core
