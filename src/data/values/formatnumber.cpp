#include <charconv>
#include <cmath>

#include "data/values/formatparts.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

constexpr QStringView placeholders = u"0#";
constexpr int seenDigits = 15;  // what a double holds of any decimal number

// What a pattern of a number asks for.
struct Layout {
    QString prefix, suffix;
    QChar exponent;             // "E" or "e" of a power of ten, none otherwise
    bool exponentPlus = false;  // its sign stands before a positive one, too
    int exponentZeros = 0;
    int integerPlaces = 0;
    int integerZeros = 0;
    int fractionZeros = 0;
    int fractionPlaces = 0;
    bool grouped = false;
    bool point = false;
    bool percent = false;
    bool hasDigits = false;
};

// How long the part for a power of ten is at the start of the pattern, 0 if there is none.
qsizetype exponentSize(QStringView pattern) {
    if (pattern.size() < 3 || pattern[0].toLower() != u'e' || !QStringView(u"+-").contains(pattern[1])) return 0;
    qsizetype size = 2;
    while (size < pattern.size() && placeholders.contains(pattern[size])) ++size;
    return size > 2 ? size : 0;
}

Layout layoutOf(QStringView pattern) {
    Layout layout;
    // Reports carry "#.##0,00", a pattern already in Greek dress.
    const bool greek = pattern.contains(u'.') && pattern.lastIndexOf(u',') > pattern.lastIndexOf(u'.');
    const QChar decimalSign = greek ? u',' : u'.', groupSign = greek ? u'.' : u',';
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        const bool mayFollow = layout.hasDigits && layout.exponent.isNull();
        if (const qsizetype size = mayFollow ? exponentSize(pattern.mid(i)) : 0) {
            layout.exponent = c;
            layout.exponentPlus = pattern[i + 1] == u'+';
            layout.exponentZeros = int(pattern.mid(i, size).count(u'0'));
            i += size - 1;
        } else if (placeholders.contains(c)) {
            layout.hasDigits = true;
            if (!layout.point) {
                ++layout.integerPlaces;
                layout.integerZeros += c == u'0';
                continue;
            }
            ++layout.fractionPlaces;
            if (c == u'0') layout.fractionZeros = layout.fractionPlaces;
        } else if (c == decimalSign && !layout.point) {
            layout.point = true;
        } else if (c == groupSign && layout.hasDigits) {
            layout.grouped |= !layout.point;
        } else {
            layout.percent |= c == u'%';
            (layout.hasDigits || layout.point ? layout.suffix : layout.prefix) += c;
        }
    }
    return layout;
}

// Sections "positive;negative;zero"; a missing one is the first.
QStringView sectionFor(const Decimal& value, QStringView pattern, bool* ownNegative) {
    const auto sections = pattern.split(u';');
    *ownNegative = false;
    if (value.digits.isEmpty()) return sections.size() > 2 && !sections[2].isEmpty() ? sections[2] : sections[0];
    if (!value.negative || sections.size() < 2 || sections[1].isEmpty()) return sections[0];
    *ownNegative = true;
    return sections[1];
}

QString integerText(const Decimal& value, const Layout& layout) {
    QString text;
    if (value.point > 0) text = QString::fromUtf8(value.digits.left(value.point).leftJustified(value.point, '0'));
    text = text.rightJustified(layout.integerZeros, u'0');
    if (!layout.grouped) return text;
    QString grouped;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (i > 0 && (text.size() - i) % 3 == 0) grouped += u'.';
        grouped += text[i];
    }
    return grouped;
}

// Leaves the digits before the decimal sign that the pattern has places for, and says which power of ten they lack.
QString takeExponent(Decimal& value, const Layout& layout) {
    int power = 0;
    if (!value.digits.isEmpty()) {
        // Rounding may carry into one more digit.
        for (int i = 0; i < 2; ++i) {
            power += value.point - layout.integerPlaces;
            value.point = layout.integerPlaces;
            value.round(layout.fractionPlaces);
        }
    }
    const QString sign = power < 0 ? u"-"_s : layout.exponentPlus ? u"+"_s : QString();
    return layout.exponent + sign + QString::number(qAbs(power)).rightJustified(layout.exponentZeros, u'0');
}

QString fractionText(const Decimal& value, const Layout& layout) {
    QByteArray text;
    if (value.point < 0) text = QByteArray(qMin(-value.point, layout.fractionPlaces), '0');
    text += value.digits.mid(qMax(0, value.point));
    return QString::fromUtf8(text.leftJustified(layout.fractionZeros, '0'));
}

}  // namespace

Decimal Decimal::of(double value) {
    Decimal result;
    char buffer[40];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::scientific, seenDigits - 1)
            .ptr;
    const QByteArray text(buffer, end - buffer);
    const qsizetype e = text.indexOf('e');
    result.digits = text.left(e).replace(".", "");
    result.point = text.mid(e + 1).toInt() + 1;
    while (result.digits.endsWith('0')) result.digits.chop(1);
    if (result.digits.isEmpty()) return {};
    result.negative = value < 0;
    return result;
}

Decimal Decimal::of(qint64 value) {
    Decimal result;
    if (value == 0) return result;
    result.negative = value < 0;
    result.digits = QByteArray::number(value).mid(result.negative ? 1 : 0);
    result.point = int(result.digits.size());
    while (result.digits.endsWith('0')) result.digits.chop(1);
    return result;
}

void Decimal::round(int places) {
    const int keep = point + places;
    if (keep >= digits.size()) return;
    const bool up = keep >= 0 && digits[keep] >= '5';
    digits.truncate(qMax(0, keep));
    if (up) {
        qsizetype i = digits.size() - 1;
        while (i >= 0 && digits[i] == '9') --i;
        digits.truncate(i + 1);
        if (i >= 0) {
            digits[i] = char(digits[i] + 1);
        } else {
            digits = "1";
            ++point;
        }
    }
    while (digits.endsWith('0')) digits.chop(1);
    if (digits.isEmpty()) *this = {};
}

QString formatNumber(Decimal value, QStringView pattern) {
    bool ownNegative = false;
    Layout layout = layoutOf(sectionFor(value, pattern, &ownNegative));
    if (!layout.hasDigits) return layout.prefix + layout.suffix;
    if (layout.percent) value.point += 2;
    const QString exponent = layout.exponent.isNull() ? QString() : takeExponent(value, layout);
    value.round(layout.fractionPlaces);
    QString text = layout.prefix + integerText(value, layout);
    if (layout.point) text += u',' + fractionText(value, layout);
    text += exponent + layout.suffix;
    return value.negative && !ownNegative ? u'-' + text : text;
}

}  // namespace data
