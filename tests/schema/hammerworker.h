// One of several programs that add, change and delete cards and movements of one office at the same time.
#pragma once

#include <QHash>
#include <QString>

namespace hammer {

constexpr int hotCards = 12;  // codes 1..12: everybody changes them, nobody deletes them

// What a worker did, as far as the database said that it was done.
struct Account {
    QHash<qint64, QString> added;  // mark of each card by its code
    QHash<qint64, int> changed;    // how often the card's counter went up by one
    QHash<qint64, int> moved;      // how often its movement's debit did
    QList<qint64> deleted;
    int conflicts = 0;
    QStringList failures;  // anything that no user should meet
};

// The worker's whole life: `steps` random deeds on the office of `folder`. The account goes to standard output.
int work(const QString& folder, int worker, int steps);

Account readAccount(const QByteArray& output);

}  // namespace hammer
