// The two halves of format(): patterns of dates and patterns of numbers.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>
#include <span>

namespace data {

// The patterns that have a name, and the name in small letters.
struct NamedPattern {
    QStringView name, pattern;
};
std::span<const NamedPattern> allNamedPatterns();
QStringView resolvedPattern(QStringView pattern);  // of a name; any other pattern as it is

// Two that no pattern of letters and digits says: a value as people read it when nothing is asked.
constexpr QStringView generalDate = u"general date", generalNumber = u"general number";

bool isDatePattern(QStringView pattern);
QString formatDate(const QDateTime& wallClock, QStringView pattern);

// A number as the decimal digits that a person sees: at most 15, which hides what binary sums leave behind them and
// keeps every number that was typed with as many.
struct Decimal {
    bool negative = false;
    QByteArray digits;  // '0' to '9', no leading zeros; empty for zero
    int point = 0;      // how many of the digits stand before the decimal sign; may be negative or past the end

    static Decimal of(double value);  // of a finite number
    static Decimal of(qint64 value);
    void round(int places);  // half away from zero
};

QString formatNumber(Decimal value, QStringView pattern);

}  // namespace data
