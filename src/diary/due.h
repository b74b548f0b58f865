// The cards whose visit or subscription falls due: so many days after the last movement.
#pragma once

#include <QDate>

#include "controls/listview.h"
#include "data/connection.h"
#include "data/values/money.h"

namespace diary {

struct Due {
    QVector<controls::ListRow> rows;  // surname, name, company, day, amount; the tag is the card's code
    data::Money sum;
};

// From the first to the last day, both included. Cards without a frequency fall due on the day of their last movement;
// `withFrequency` leaves them out. Throws data::Error.
Due dueCards(data::Connection& connection, QDate from, QDate to, bool withFrequency);

// The columns of lists of such cards.
QVector<controls::ListColumn> dueColumns();

}  // namespace diary
