// Between a row of Cards and the card's controls, both ways.
#pragma once

#include <QDate>
#include <optional>

#include "cards/cardview.h"
#include "data/recordset.h"

namespace cards {

inline const QDate noBirthDate(1900, 1, 1);  // of a new card

// The display of an empty new card: first real category, today in the parametric dates, 01/01/1900 as birth date.
void clearControls(CardView& view, QDate today);

void clearField(CardView& view, const CardField& field, QDate today);  // the same for one

// One field from a row. A Null leaves the control as clearControls left it.
void showField(CardView& view, const CardField& field, const QVariant& value, const QString& categoryName);

// One field into a row, for the columns that are a plain value; throws data::Error for a value that doesn't fit.
// A text that stands as it was shown isn't written, since a one-line box can't show every character that a
// column can hold. `category` is the number behind the category's name; `year` the year of a name day.
void writeField(const CardView& view, const CardField& field, data::Recordset& row, std::optional<qint64> category,
                int year);

// A value of a column as its control shows it.
QString shownAs(const CardField& field, const QVariant& value, const QString& categoryName);
// What the control holds, likewise.
QString typedText(const CardView& view, const CardField& field);

// A text into a column of a text kind; left alone when it stands as it was shown.
void writeText(data::Field column, const QString& text);

// Whether a text ends in a day as a name-day line does, "name   dd/mm".
bool isNameDayLine(const QString& line);
// The date "dd/mm/yyyy" of a name-day line "name   dd/mm" in the given year.
QString nameDayDate(const QString& line, int year);
// A name-day line as the list shows it.
QString nameDayLine(const QString& name, const QDateTime& feast);

void setLastVisit(CardView& view, QDate date);
void setEditable(CardView& view, bool editable);

}  // namespace cards
