// The printout of one card: its fields, its photo, its notes on a page of their own.
#pragma once

#include <QImage>
#include <QPair>
#include <QVector>

#include "core/printheading.h"
#include "core/printout.h"

namespace cards {

// What is printed, as it stands on screen.
struct Kartela {
    using Line = QPair<QString, QString>;  // label, value

    QString title;  // empty leaves both headings out
    core::OwnerDetails owner;
    QDate today;
    QVector<Line> basic;
    QVector<Line> special;  // the parametric fields that show
    QImage photo;           // null when there is none
    QString surname;
    QString notes;
};

// Two pages, more when the fields or the notes don't fit on theirs.
void drawKartela(platform::Printer& printer, const Kartela& card);

// Label plain, value bold behind it, between `left` and `right`; a value that is too long goes on below its beginning.
void gPrintLine(platform::Printer& printer, double left, double right, const QString& label, const QString& value);

// Small and slanted, at most 120 characters a line, broken at blanks; each line of the text begins a new one. Nothing
// is left out, whatever the text is.
void PrintNotes(platform::Printer& printer, const QString& text);

}  // namespace cards
