#include "data/values/fold.h"

#include <array>
#include <cstring>

namespace data {
namespace {

constexpr char16_t dropped = 0xFFFF;  // a noncharacter: it can stand for nothing else

bool isAccent(char32_t c) {
    return (c >= 0x0300 && c <= 0x036F) || (c >= 0x1AB0 && c <= 0x1AFF) || (c >= 0x1DC0 && c <= 0x1DFF) ||
           (c >= 0x20D0 && c <= 0x20FF) || (c >= 0xFE20 && c <= 0xFE2F);
}

// One step of the fold of one BMP character. A letter whose base is not a single unit only loses its capital.
char16_t foldStep(char16_t c) {
    if (isAccent(c)) return dropped;
    char32_t base = c;
    if (QChar::decompositionTag(c) == QChar::Canonical) {
        QString parts = QString(QChar(c)).normalized(QString::NormalizationForm_D);
        parts.removeIf([](QChar part) { return isAccent(part.unicode()); });
        if (parts.size() == 1) base = parts[0].unicode();
    }
    if (base == 0x00B5) return 0x03BC;  // the micro sign is typed for μ
    base = QChar::toLower(base);
    if (base == u'ς') return u'σ';
    return base <= 0xFFFF ? char16_t(base) : c;
}

struct Utf8Unit {
    unsigned char size;
    char bytes[3];
};

Utf8Unit encode(char16_t c) {
    if (c == dropped) return {0, {}};
    if (c < 0x80) return {1, {char(c)}};
    if (c < 0x800) return {2, {char(0xC0 | (c >> 6)), char(0x80 | (c & 0x3F))}};
    return {3, {char(0xE0 | (c >> 12)), char(0x80 | ((c >> 6) & 0x3F)), char(0x80 | (c & 0x3F))}};
}

struct Tables {
    std::array<char16_t, 0x10000> unit;
    std::array<Utf8Unit, 0x800> encoded;  // what a character of one or two bytes becomes

    Tables() {
        for (int c = 0; c < 0x10000; ++c) unit[c] = QChar::isSurrogate(c) || c == dropped ? c : foldStep(char16_t(c));
        // A step may land on a character that folds further; the table holds the end of the chain.
        for (auto& target : unit)
            for (int i = 0; i < 8 && target != dropped && unit[target] != target; ++i) target = unit[target];
        for (int c = 0; c < 0x800; ++c) encoded[c] = encode(unit[c]);
    }
};

const Tables& tables() {
    static const Tables t;
    return t;
}

// Lower case of eight ASCII bytes at once; the caller has seen that none has its high bit set.
quint64 lowerAscii(quint64 eight) {
    constexpr quint64 ones = 0x0101010101010101u;
    const quint64 fromA = eight + ones * (0x80 - 'A');
    const quint64 afterZ = eight + ones * (0x80 - 'Z' - 1);
    return eight | (((fromA & ~afterZ) & (ones * 0x80)) >> 2);
}

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// The character of three or four bytes at `in`; 0 when the bytes are none.
char32_t decodeLong(const unsigned char* in, const unsigned char* end) {
    if (in[0] >= 0xE0 && in[0] < 0xF0 && end - in >= 3 && isContinuation(in[1]) && isContinuation(in[2])) {
        const char32_t c = (in[0] & 0x0F) << 12 | (in[1] & 0x3F) << 6 | (in[2] & 0x3F);
        return c >= 0x800 && !QChar::isSurrogate(c) ? c : 0;
    }
    if (in[0] >= 0xF0 && in[0] < 0xF5 && end - in >= 4 && isContinuation(in[1]) && isContinuation(in[2]) &&
        isContinuation(in[3])) {
        const char32_t c = (in[0] & 0x07) << 18 | (in[1] & 0x3F) << 12 | (in[2] & 0x3F) << 6 | (in[3] & 0x3F);
        return c >= 0x10000 && c <= 0x10FFFF ? c : 0;
    }
    return 0;
}

// Always writes three bytes, which is quicker than the right number; the room for a growing letter takes them.
char* putUnit(char* out, Utf8Unit unit) {
    std::memcpy(out, unit.bytes, 3);
    return out + unit.size;
}

char* putSupplementary(char* out, char32_t c) {
    c = QChar::toLower(c);
    *out++ = char(0xF0 | (c >> 18));
    *out++ = char(0x80 | ((c >> 12) & 0x3F));
    *out++ = char(0x80 | ((c >> 6) & 0x3F));
    *out++ = char(0x80 | (c & 0x3F));
    return out;
}

}  // namespace

QString fold(QStringView text) {
    const auto& unit = tables().unit;
    QString result(text.size(), Qt::Uninitialized);
    QChar* const begin = result.data();
    QChar* out = begin;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (QChar::isHighSurrogate(c) && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            const char32_t lower = QChar::toLower(QChar::surrogateToUcs4(c, text[++i].unicode()));
            *out++ = QChar(QChar::highSurrogate(lower));
            *out++ = QChar(QChar::lowSurrogate(lower));
        } else if (unit[c] != dropped || c == dropped) {
            *out++ = QChar(unit[c]);
        }
    }
    result.truncate(out - begin);
    return result;
}

qsizetype foldUtf8Into(const char* text, qsizetype size, char* out) {
    const Tables& t = tables();
    char* const begin = out;
    auto in = reinterpret_cast<const unsigned char*>(text);
    const auto end = in + size;
    while (in < end) {
        quint64 eight;
        if (end - in >= 8 && (std::memcpy(&eight, in, 8), (eight & 0x8080808080808080u) == 0)) {
            eight = lowerAscii(eight);
            std::memcpy(out, &eight, 8);
            in += 8;
            out += 8;
        } else if (*in < 0x80) {
            *out++ = t.encoded[*in++].bytes[0];
        } else if (*in >= 0xC2 && *in < 0xE0 && end - in >= 2 && isContinuation(in[1])) {
            out = putUnit(out, t.encoded[(in[0] & 0x1F) << 6 | (in[1] & 0x3F)]);
            in += 2;
        } else if (const char32_t c = decodeLong(in, end)) {
            if (c <= 0xFFFF)
                out = putUnit(out, c == dropped ? Utf8Unit{3, {'\xEF', '\xBF', '\xBF'}} : encode(t.unit[c]));
            else
                out = putSupplementary(out, c);
            in += c <= 0xFFFF ? 3 : 4;
        } else {
            *out++ = char(*in++);
        }
    }
    return out - begin;
}

QByteArray foldUtf8(const char* text, qsizetype size) {
    // Two bytes become three at worst (Ⱥ to ⱥ).
    QByteArray result(size + size / 2 + 1, Qt::Uninitialized);
    result.truncate(foldUtf8Into(text, size, result.data()));
    return result;
}

}  // namespace data
