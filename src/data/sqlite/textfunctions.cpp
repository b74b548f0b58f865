#include "data/sqlite/functionparts.h"
#include "data/values/fold.h"
#include "data/values/lettercase.h"
#include "data/values/phonekey.h"

using namespace Qt::Literals::StringLiterals;

namespace data::sqlite {

namespace {

bool continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Where the character with this number (from 0) starts, or the end.
qsizetype offsetOf(const Utf8& text, qint64 character) {
    qsizetype at = 0;
    while (character > 0 && at < text.size) {
        ++at;
        while (at < text.size && continues(text.data[at])) ++at;
        --character;
    }
    return at;
}

qint64 characters(const char* data, qsizetype size) {
    return std::count_if(data, data + size, [](char byte) { return !continues(byte); });
}

qsizetype nextCharacter(const char* data, qsizetype size, qsizetype at) {
    ++at;
    while (at < size && continues(data[at])) ++at;
    return at;
}

// The remembered % is the only one that ever needs another try, so no pattern takes more than
// text times pattern.
bool matches(const char* text, qsizetype size, const char* pattern, qsizetype patternSize) {
    qsizetype t = 0;
    qsizetype p = 0;
    qsizetype retryPattern = -1;
    qsizetype retryText = 0;
    while (t < size) {
        if (p < patternSize && pattern[p] == '%') {
            retryPattern = ++p;
            retryText = t;
        } else if (p < patternSize && pattern[p] == '_') {
            t = nextCharacter(text, size, t);
            ++p;
        } else if (p < patternSize && pattern[p] == text[t]) {
            ++t;
            ++p;
        } else if (retryPattern >= 0) {
            retryText = nextCharacter(text, size, retryText);
            t = retryText;
            p = retryPattern;
        } else {
            return false;
        }
    }
    while (p < patternSize && pattern[p] == '%') ++p;
    return p == patternSize;
}

void foldSql(Context context, int, Values values) {
    const Folded folded(values[0]);
    result(context, folded.data(), folded.size());
}

// For the word index, whose tokenizer would stop at a character 0.
void wordtext(Context context, int, Values values) {
    const Folded folded(values[0]);
    QByteArray text(folded.data(), folded.size());
    result(context, text.replace('\0', ' ').constData(), text.size());
}

void like(Context context, int, Values values) {
    const Folded text(values[0]);
    const Utf8 pattern = utf8(values[1]);
    const bool contains = pattern.size >= 2 && pattern.data[0] == '%' && pattern.data[pattern.size - 1] == '%' &&
                          !memchr(pattern.data + 1, '%', size_t(pattern.size - 2)) &&
                          !memchr(pattern.data + 1, '_', size_t(pattern.size - 2));
    const bool found =
        contains ? QByteArrayView(text.data(), text.size()).contains(QByteArrayView(pattern.data + 1, pattern.size - 2))
                 : matches(text.data(), text.size(), pattern.data, pattern.size);
    sqlite3_result_int(context, found);
}

qint64 countArgument(sqlite3_value* value) {
    return std::clamp<qint64>(wholeNumber(value).value_or(0), 0, 0x7fffffff);
}

void left(Context context, int, Values values) {
    const Utf8 text = utf8(values[0]);
    result(context, text.data, offsetOf(text, countArgument(values[1])));
}

void right(Context context, int, Values values) {
    const Utf8 text = utf8(values[0]);
    const qsizetype from = offsetOf(text, characters(text.data, text.size) - countArgument(values[1]));
    result(context, text.data + from, text.size - from);
}

void mid(Context context, int count, Values values) {
    const Utf8 text = utf8(values[0]);
    const qsizetype from = offsetOf(text, std::max<qint64>(countArgument(values[1]), 1) - 1);
    const Utf8 rest{text.data + from, text.size - from};
    result(context, rest.data, count > 2 ? offsetOf(rest, countArgument(values[2])) : rest.size);
}

void len(Context context, int, Values values) {
    const Utf8 text = utf8(values[0]);
    sqlite3_result_int64(context, characters(text.data, text.size));
}

void ucase(Context context, int, Values values) {
    result(context, upperText(text(values[0])));
}

void lcase(Context context, int, Values values) {
    result(context, lowerText(text(values[0])));
}

void trimmed(Context context, Utf8 text, bool atLeft, bool atRight) {
    while (atLeft && text.size > 0 && *text.data == ' ') {
        ++text.data;
        --text.size;
    }
    while (atRight && text.size > 0 && text.data[text.size - 1] == ' ') --text.size;
    result(context, text.data, text.size);
}

void trim(Context context, int, Values values) {
    trimmed(context, utf8(values[0]), true, true);
}

void ltrim(Context context, int, Values values) {
    trimmed(context, utf8(values[0]), true, false);
}

void rtrim(Context context, int, Values values) {
    trimmed(context, utf8(values[0]), false, true);
}

// Finds by the fold. Positions carry over as long as the fold drops no character of the text; otherwise
// the texts are taken as they are.
struct Finder {
    Utf8 text;
    Folded foldedText;
    Folded foldedWanted;
    Utf8 in;
    Utf8 wanted;

    Finder(sqlite3_value* textValue, sqlite3_value* wantedValue)
        : text(utf8(textValue)), foldedText(textValue), foldedWanted(wantedValue) {
        const bool carriesOver = characters(text.data, text.size) == characters(foldedText.data(), foldedText.size());
        in = carriesOver ? Utf8{foldedText.data(), foldedText.size()} : text;
        wanted = carriesOver ? Utf8{foldedWanted.data(), foldedWanted.size()} : utf8(wantedValue);
    }
    qsizetype find(qsizetype from) const {
        return QByteArrayView(in.data, in.size).indexOf(QByteArrayView(wanted.data, wanted.size), from);
    }
};

void instr(Context context, int, Values values) {
    const qint64 start = std::max<qint64>(countArgument(values[0]), 1);
    const Finder finder(values[1], values[2]);
    const qsizetype from = offsetOf(finder.in, start - 1);
    const bool behindEnd = start > 1 && from >= finder.in.size;
    const qsizetype at = behindEnd ? -1 : finder.find(from);
    sqlite3_result_int64(context, at < 0 ? 0 : characters(finder.in.data, at) + 1);
}

void replace(Context context, int, Values values) {
    const Finder finder(values[0], values[1]);
    const Utf8 by = utf8(values[2]);
    if (finder.wanted.size == 0) return result(context, finder.text.data, finder.text.size);
    QByteArray out;
    Utf8 rest = finder.text;
    const qint64 wantedCharacters = characters(finder.wanted.data, finder.wanted.size);
    qsizetype from = 0;
    while (true) {
        const qsizetype at = finder.find(from);
        if (at < 0) break;
        const qsizetype kept = offsetOf(rest, characters(finder.in.data + from, at - from));
        out.append(rest.data, kept).append(by.data, by.size);
        rest = {rest.data + kept, rest.size - kept};
        const qsizetype cut = offsetOf(rest, wantedCharacters);
        rest = {rest.data + cut, rest.size - cut};
        from = at + finder.wanted.size;
    }
    out.append(rest.data, rest.size);
    result(context, out.constData(), out.size());
}

void phonekey(Context context, int, Values values) {
    result(context, phoneKey(text(values[0])));
}

void space(Context context, int, Values values) {
    const QByteArray blanks(std::min<qint64>(countArgument(values[0]), 65535), ' ');
    result(context, blanks.constData(), blanks.size());
}

}  // namespace

Folded::Folded(sqlite3_value* value) {
    const Utf8 text = utf8(value);
    const qsizetype room = text.size + text.size / 2 + 1;
    char* out = stack_;
    if (room > qsizetype(sizeof stack_)) {
        heap_.resize(room);
        out = heap_.data();
    }
    size_ = foldUtf8Into(text.data, text.size, out);
}

const std::vector<SqlFunction>& textFunctions() {
    static const std::vector<SqlFunction> functions = {
        {"fold", 1, foldSql},          {"jet_like", 2, like},         {"jet_left", 2, left},
        {"jet_right", 2, right},       {"jet_mid", 2, mid},           {"jet_mid", 3, mid},
        {"jet_len", 1, len},           {"jet_ucase", 1, ucase},       {"jet_lcase", 1, lcase},
        {"jet_trim", 1, trim},         {"jet_ltrim", 1, ltrim},       {"jet_rtrim", 1, rtrim},
        {"jet_instr", 3, instr},       {"jet_replace", 3, replace},   {"jet_space", 1, space},
        {"jet_wordtext", 1, wordtext}, {"jet_phonekey", 1, phonekey},
    };
    return functions;
}

}  // namespace data::sqlite
