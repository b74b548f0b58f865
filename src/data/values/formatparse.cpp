#include <QStringList>
#include <cmath>

#include "data/values/fold.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

constexpr qsizetype longestDate = 64;
constexpr qsizetype longestNumber = 400;

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

std::optional<int> smallNumber(QStringView text, qsizetype maxDigits) {
    if (text.isEmpty() || text.size() > maxDigits || !std::all_of(text.begin(), text.end(), isDigit)) return {};
    return text.toInt();
}

// The numbers of "5/11/2026" and its kin: two or three of them around one kind of separator.
std::optional<QVector<QStringView>> dateParts(QStringView text) {
    for (const QChar separator : QStringView(u"/-.")) {
        if (!text.contains(separator)) continue;
        const auto pieces = text.split(separator);
        if (pieces.size() < 2 || pieces.size() > 3) return {};
        for (const QStringView piece : pieces)
            if (!smallNumber(piece, 4)) return {};
        return QVector<QStringView>(pieces.begin(), pieces.end());
    }
    return {};
}

int fullYear(QStringView digits) {
    const int year = digits.toInt();
    if (digits.size() > 2) return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

QDate dateOf(int year, int a, int b, bool dayIsA) {
    if (year < 100) return {};
    QDate first(year, dayIsA ? b : a, dayIsA ? a : b);
    return first.isValid() ? first : QDate(year, dayIsA ? a : b, dayIsA ? b : a);
}

QDate parseDay(QStringView text, DateOrder order, QDate today) {
    const auto parts = dateParts(text);
    if (!parts) return {};
    const bool dayFirst = order == DateOrder::DayFirst;
    const auto& p = *parts;
    if (p.size() == 3 && p[0].size() >= 3) {
        return p[1].size() > 2 || p[2].size() > 2 ? QDate() : dateOf(p[0].toInt(), p[1].toInt(), p[2].toInt(), false);
    }
    if (p[0].size() > 2 || p[1].size() > 2) return {};
    const int year = p.size() == 3 ? fullYear(p[2]) : (today.isValid() ? today : QDate::currentDate()).year();
    return dateOf(year, p[0].toInt(), p[1].toInt(), dayFirst);
}

enum class HalfDay { None, Morning, Afternoon };

// Cuts "πμ", "μμ", "AM", "PM" off the end.
HalfDay takeHalfDay(QString& text) {
    static const struct {
        QString word;
        HalfDay half;
    } words[] = {{u"πμ"_s, HalfDay::Morning},     {u"μμ"_s, HalfDay::Afternoon}, {u"π.μ."_s, HalfDay::Morning},
                 {u"μ.μ."_s, HalfDay::Afternoon}, {u"am"_s, HalfDay::Morning},   {u"pm"_s, HalfDay::Afternoon}};
    for (const auto& [word, half] : words) {
        if (!text.endsWith(word)) continue;
        text = text.chopped(word.size()).trimmed();
        return half;
    }
    return HalfDay::None;
}

QTime parseTime(QStringView text, HalfDay half) {
    const auto pieces = text.split(u':');
    if (pieces.size() > 3 || (pieces.size() == 1 && half == HalfDay::None)) return {};
    int values[3] = {0, 0, 0};
    for (qsizetype i = 0; i < pieces.size(); ++i) {
        const auto value = smallNumber(pieces[i], 2);
        if (!value) return {};
        values[i] = *value;
    }
    if (half != HalfDay::None) {
        if (values[0] < 1 || values[0] > 12) return {};
        values[0] = values[0] % 12 + (half == HalfDay::Afternoon ? 12 : 0);
    }
    return QTime(values[0], values[1], values[2]);
}

// "1.234.567": one to three digits, then threes.
bool isGrouped(QStringView integer) {
    const auto groups = integer.split(u'.');
    if (groups[0].isEmpty() || groups[0].size() > 3) return false;
    return std::all_of(groups.begin() + 1, groups.end(), [](QStringView group) { return group.size() == 3; });
}

// The digits with a decimal point for the machine, or nothing when commas and points make no sense.
std::optional<QByteArray> plainNumber(QStringView text) {
    const qsizetype points = text.count(u'.'), commas = text.count(u',');
    QString plain = text.toString();
    if (commas > 1) return {};
    if (commas == 1) {
        const qsizetype comma = text.indexOf(u',');
        const QStringView integer = text.first(comma);
        if (text.mid(comma).contains(u'.') || (points > 0 && !isGrouped(integer))) return {};
        plain.remove(u'.').replace(u',', u'.');
    } else if (points > 1) {
        if (!isGrouped(text)) return {};
        plain.remove(u'.');
    } else if (points == 1 && text.size() - text.indexOf(u'.') == 4) {
        plain.remove(u'.');
    }
    return plain.toLatin1();
}

}  // namespace

std::optional<QDateTime> parseDate(QStringView text, DateOrder order, QDate today) {
    if (text.size() > longestDate) return {};
    QString rest = fold(text).simplified();
    const HalfDay half = takeHalfDay(rest);
    if (rest.size() > 10 && rest[10] == u't') rest[10] = u' ';
    const QStringList pieces = rest.split(u' ', Qt::SkipEmptyParts);
    if (pieces.isEmpty() || pieces.size() > 2) return {};
    QDate date;
    QTime time;
    for (const QString& piece : pieces) {
        const bool isTime = piece.contains(u':') || smallNumber(piece, 2);
        if (isTime ? time.isValid() : date.isValid()) return {};
        if (isTime)
            time = parseTime(piece, half);
        else
            date = parseDay(piece, order, today);
        if (isTime ? !time.isValid() : !date.isValid()) return {};
    }
    if (half != HalfDay::None && !time.isValid()) return {};
    return wallClock(date.isValid() ? date : QDate(1899, 12, 30), time.isValid() ? time : QTime(0, 0));
}

std::optional<double> parseNumber(QStringView text) {
    text = text.trimmed();
    if (text.size() > longestNumber) return {};
    const bool negative = text.startsWith(u'-');
    if (negative || text.startsWith(u'+')) text = text.mid(1);
    qsizetype mantissa = 0, digits = 0;
    for (; mantissa < text.size() && (isDigit(text[mantissa]) || text[mantissa] == u'.' || text[mantissa] == u',');
         ++mantissa)
        digits += isDigit(text[mantissa]);
    if (digits == 0) return {};
    auto plain = plainNumber(text.first(mantissa));
    if (!plain) return {};
    if (mantissa < text.size()) {
        QStringView exponent = text.mid(mantissa + 1);
        if (text[mantissa].toLower() != u'e') return {};
        if (exponent.startsWith(u'+')) exponent = exponent.mid(1);
        if (!smallNumber(exponent.startsWith(u'-') ? exponent.mid(1) : exponent, 4)) return {};
        *plain += 'e' + exponent.toLatin1();
    }
    bool ok = false;
    const double value = plain->toDouble(&ok);  // the C locale's rules, whatever the machine's
    if (!ok || !std::isfinite(value)) return {};
    return negative ? -value : value;
}

}  // namespace data
