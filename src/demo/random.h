// Pseudo-random numbers that come out the same on every machine and with every standard library.
#pragma once

#include <QVector>
#include <QtGlobal>

namespace demo {

// SplitMix64. Each use takes a generator of its own from (seed, purpose, number), so that a change in what one
// card draws moves no other card.
class Random {
public:
    explicit Random(quint64 seed, quint64 purpose = 0, quint64 number = 0);

    quint64 next();
    int below(int bound);              // 0 .. bound-1; 0 when bound < 1
    int between(int first, int last);  // both ends count
    bool chance(int percent) { return below(100) < percent; }

    template <typename T>
    const T& pick(const QVector<T>& items) {
        return items[below(int(items.size()))];
    }
    // Favours the head of the list, as the common names of a country are common.
    template <typename T>
    const T& pickCommon(const QVector<T>& items) {
        const int size = int(items.size());
        return items[qMin(below(size), below(size))];
    }

private:
    quint64 state_;
};

}  // namespace demo
