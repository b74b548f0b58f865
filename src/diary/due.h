// The cards whose visit or subscription falls due: so many days after the last movement.
#pragma once

#include <QDateTime>

#include "controls/listview.h"
#include "data/connection.h"
#include "data/values/money.h"

namespace diary {

struct Due {
    QVector<controls::ListRow> rows;  // surname, name, company, day, amount; the tag is the card's code
    data::Money sum;
};

// From the first to the last day, both included, in the order of their days. Cards without a frequency fall due on the
// day of their last movement; `withFrequency` leaves them out. Throws data::Error.
class DueReader {
public:
    DueReader(data::Connection& connection, QDate from, QDate to, bool withFrequency)
        : connection_(connection), from_(from), to_(to), withFrequency_(withFrequency) {}

    bool step();                              // reads the next cards; false when there are none left
    const Due& read() const { return due_; }  // so far

private:
    data::Connection& connection_;
    QDate from_, to_;
    bool withFrequency_;
    Due due_;
    QDateTime lastDay_;  // with the last card's code where the next step goes on
    qint64 lastCode_ = 0;
};

// All of them at once.
Due dueCards(data::Connection& connection, QDate from, QDate to, bool withFrequency);

// The columns of lists of such cards.
QVector<controls::ListColumn> dueColumns();

}  // namespace diary
