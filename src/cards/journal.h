// The movements of all cards in a period, read in pieces so that a window stays alive meanwhile.
#pragma once

#include <QElapsedTimer>

#include "cards/ledger.h"
#include "data/connection.h"

namespace cards {

struct JournalFilter {
    QDate from, to;  // both days count
    QString reason;  // anywhere in it; empty for any
    std::optional<qint64> category{};
};

// The statement for the days `from` to `to` of a filter.
QString journalStatement(const JournalFilter& filter, QDate from, QDate to);

struct JournalRow {
    QStringList cells;  // date, surname, first name, reason, debit, credit
    qint64 card = 0;
};

// How many days the next piece of a period has: as many as take a few milliseconds, and more when a piece costs the
// same however few it has.
class PieceLength {
public:
    int days() const { return days_; }
    void took(double milliseconds);

private:
    int days_ = 1;
    int daysBefore_ = 0;    // of the piece before; 0 at first
    double dayBefore_ = 0;  // what a day of it took
};

// Goes through the period piece by piece, or reads it at once when only few movements have the words of the reason. The
// order of rows is the one of their days. Each piece is read as it stands at that moment.
class JournalReader {
public:
    // Throws data::Error.
    JournalReader(data::Connection& connection, const JournalFilter& filter);

    // The next piece; false when the period is through. Throws data::Error.
    bool step();

    QVector<JournalRow> takeRows() { return std::exchange(rows_, {}); }
    Money debit() const { return debit_; }
    Money credit() const { return credit_; }

private:
    void read(QDate from, QDate to);

    data::Connection& connection_;
    JournalFilter filter_;
    QDate next_;
    data::OpenOptions options_;
    PieceLength piece_;
    QVector<JournalRow> rows_;
    Money debit_, credit_;
};

}  // namespace cards
