#include <QVector>

#include "data/values/formatparts.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

enum class Part { Literal, Day, Month, Year, Hour, Minute, Second, HalfDay };

struct Token {
    Part part;
    int count = 0;
    QString text;  // of a literal
};

const QString dayNames[] = {u"Δευτέρα"_s,   u"Τρίτη"_s,   u"Τετάρτη"_s, u"Πέμπτη"_s,
                            u"Παρασκευή"_s, u"Σάββατο"_s, u"Κυριακή"_s};
const QString monthNames[] = {u"Ιανουάριος"_s,  u"Φεβρουάριος"_s, u"Μάρτιος"_s,   u"Απρίλιος"_s,
                              u"Μάιος"_s,       u"Ιούνιος"_s,     u"Ιούλιος"_s,   u"Αύγουστος"_s,
                              u"Σεπτέμβριος"_s, u"Οκτώβριος"_s,   u"Νοέμβριος"_s, u"Δεκέμβριος"_s};
const QString monthGenitives[] = {u"Ιανουαρίου"_s,  u"Φεβρουαρίου"_s, u"Μαρτίου"_s,   u"Απριλίου"_s,
                                  u"Μαΐου"_s,       u"Ιουνίου"_s,     u"Ιουλίου"_s,   u"Αυγούστου"_s,
                                  u"Σεπτεμβρίου"_s, u"Οκτωβρίου"_s,   u"Νοεμβρίου"_s, u"Δεκεμβρίου"_s};
const QString monthShort[] = {u"Ιαν"_s,  u"Φεβ"_s, u"Μαρ"_s, u"Απρ"_s, u"Μαϊ"_s, u"Ιουν"_s,
                              u"Ιουλ"_s, u"Αυγ"_s, u"Σεπ"_s, u"Οκτ"_s, u"Νοε"_s, u"Δεκ"_s};

Part partOf(QChar letter) {
    switch (letter.toLower().unicode()) {
        case 'd':
            return Part::Day;
        case 'm':
            return Part::Month;
        case 'y':
            return Part::Year;
        case 'h':
            return Part::Hour;
        case 'n':
            return Part::Minute;
        case 's':
            return Part::Second;
        default:
            return Part::Literal;
    }
}

void addLiteral(QVector<Token>& tokens, QStringView text) {
    if (!tokens.isEmpty() && tokens.last().part == Part::Literal)
        tokens.last().text += text;
    else
        tokens.append({Part::Literal, 0, text.toString()});
}

// Length of a quoted or escaped literal at the start of the pattern, 0 if there is none.
qsizetype quotedLength(QStringView pattern) {
    if (pattern[0] == u'\\' && pattern.size() > 1) return 2;
    if (pattern[0] != u'"') return 0;
    const qsizetype end = pattern.indexOf(u'"', 1);
    return end < 0 ? 0 : end + 1;
}

QVector<Token> tokenize(QStringView pattern) {
    QVector<Token> tokens;
    for (qsizetype i = 0; i < pattern.size();) {
        const QStringView rest = pattern.mid(i);
        if (const qsizetype quoted = quotedLength(rest)) {
            addLiteral(tokens, rest[0] == u'"' ? rest.mid(1, quoted - 2) : rest.mid(1, 1));
            i += quoted;
        } else if (rest.startsWith(u"AM/PM", Qt::CaseInsensitive)) {
            tokens.append({Part::HalfDay, 5, {}});
            i += 5;
        } else if (const Part part = partOf(rest[0]); part != Part::Literal) {
            qsizetype run = 1;
            while (run < rest.size() && rest[run].toLower() == rest[0].toLower()) ++run;
            tokens.append({part, int(run), {}});
            i += run;
        } else {
            addLiteral(tokens, rest.first(1));
            ++i;
        }
    }
    return tokens;
}

// "m" is a month, unless it stands next to an hour or before a second.
void resolveMinutes(QVector<Token>& tokens) {
    Part before = Part::Literal;
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        Token& token = tokens[i];
        if (token.part == Part::Literal) continue;
        if (token.part == Part::Month && token.count <= 2) {
            qsizetype next = i + 1;
            while (next < tokens.size() && tokens[next].part == Part::Literal) ++next;
            if (before == Part::Hour || (next < tokens.size() && tokens[next].part == Part::Second))
                token.part = Part::Minute;
        }
        before = token.part;
    }
}

QString padded(int value, int count, int width = 2) {
    return count == 1 ? QString::number(value) : QString::number(value).rightJustified(width, u'0');
}

QString dayPart(QDate date, int count) {
    if (count <= 2) return padded(date.day(), count);
    const QString name = dayNames[date.dayOfWeek() - 1];
    if (count > 3) return name;
    return date.dayOfWeek() == 6 ? u"Σαβ"_s : name.left(3);
}

QString monthPart(QDate date, int count, bool afterDay) {
    if (count <= 2) return padded(date.month(), count);
    const auto& names = count == 3 ? monthShort : afterDay ? monthGenitives : monthNames;
    return names[date.month() - 1];
}

}  // namespace

bool isDatePattern(QStringView pattern) {
    if (pattern == generalNumber) return false;
    for (const Token& token : tokenize(pattern))
        if (token.part != Part::Literal) return true;
    return false;
}

QString formatDate(const QDateTime& wallClock, QStringView pattern) {
    QVector<Token> tokens = tokenize(pattern);
    resolveMinutes(tokens);
    const bool twelve = std::any_of(tokens.begin(), tokens.end(), [](auto& t) { return t.part == Part::HalfDay; });
    const QDate date = wallClock.date();
    const QTime time = wallClock.time();
    QString result;
    bool afterDay = false;
    for (const Token& token : tokens) {
        switch (token.part) {
            case Part::Literal:
                result += token.text;
                break;
            case Part::Day:
                result += dayPart(date, token.count);
                if (token.count <= 2) afterDay = true;
                break;
            case Part::Month:
                result += monthPart(date, token.count, afterDay);
                break;
            case Part::Year:
                result += token.count <= 2 ? padded(date.year() % 100, 2) : padded(date.year(), 4, 4);
                break;
            case Part::Hour:
                result += padded(twelve ? (time.hour() + 11) % 12 + 1 : time.hour(), token.count);
                break;
            case Part::Minute:
                result += padded(time.minute(), token.count);
                break;
            case Part::Second:
                result += padded(time.second(), token.count);
                break;
            case Part::HalfDay:
                result += time.hour() < 12 ? u"πμ" : u"μμ";
                break;
        }
    }
    return result;
}

QString dayText(const QDateTime& day) {
    if (!day.isValid()) return {};
    int year = 0, month = 0, ofMonth = 0;
    day.date().getDate(&year, &month, &ofMonth);
    QString text(10, u'/');
    const auto put = [&text](int at, int value, int digits) {
        for (int i = digits; i-- > 0; value /= 10) text[at + i] = QChar(u'0' + value % 10);
    };
    put(0, ofMonth, 2);
    put(3, month, 2);
    put(6, year, 4);
    return text;
}

}  // namespace data
