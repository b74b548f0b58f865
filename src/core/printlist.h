// Lists on paper: a ruled table over the pages, under one of three headings.
#pragma once

#include "controls/listview.h"
#include "core/mainmod.h"
#include "core/printheading.h"
#include "core/printjob.h"

namespace core {

enum class ListHeading { Plain, Owner };  // date and title; with the owner's block above them

struct PrintedCard {
    QString surname, firstName, telephone, mobile;
};

// The list as it stands, every column, also those of width 0. True when printed; a failure ends in a box. An empty
// title leaves the heading out.
bool gPrintListView(MainMod& mod, QWidget* parent, const controls::ListView& list, const QString& title,
                    ListHeading heading = ListHeading::Plain);
// With the owner's block and a card's.
bool gPrintListView(MainMod& mod, QWidget* parent, const controls::ListView& list, const QString& title,
                    const PrintedCard& card);

// What the routine above draws, free of any window.
struct PrintColumn {
    QString header;
    double width = 0;  // in any unit: the table takes its share of the page
    Qt::Alignment alignment = Qt::AlignLeft;
};

struct PrintedList {
    QString title;
    QDate today;
    std::optional<OwnerDetails> owner;
    std::optional<PrintedCard> card;
    QVector<PrintColumn> columns;
    QVector<controls::ListRow> rows;
};

void drawList(platform::Printer& printer, const PrintedList& list, const PrintStep& step);

}  // namespace core
