#include "support/sourceliterals.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace support {

namespace {

enum class PieceKind { Code, Blank, Literal };

struct Piece {
    PieceKind kind;
    QString source;
    int line = 1;
};

// The next piece of the source, by the first alternative that fits.
const QRegularExpression& pieces() {
    static const QRegularExpression all(
        uR"re((?<blank>\s+|//[^\n]*|/\*.*?\*/|(?<=\n)[ \t]*#(?:\\\n|[^\n])*))re"
        uR"re(|(?<literal>(?:u8|[uUL])?R"(?<delimiter>[^(]*)\(.*?\)\k<delimiter>"(?:_\w+)?)re"
        uR"re(|(?:u8|[uUL])?"(?:\\.|[^"\\\n])*"(?:_\w+)?))re"
        uR"re(|(?<code>(?:u8|[uUL])?'(?:\\.|[^'\\\n])+'|\d[\w'.]*|\w+|.))re"_s,
        QRegularExpression::DotMatchesEverythingOption | QRegularExpression::UseUnicodePropertiesOption);
    return all;
}

QVector<Piece> split(const QString& source) {
    QVector<Piece> found;
    int line = 1;
    // A preprocessor line is told by the line end before it.
    for (auto it = pieces().globalMatch(u'\n' + source); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const PieceKind kind = match.hasCaptured(u"literal"_s) ? PieceKind::Literal
                               : match.hasCaptured(u"blank"_s) ? PieceKind::Blank
                                                               : PieceKind::Code;
        found += {kind, match.captured(), line - 1};
        line += int(match.captured().count(u'\n'));
    }
    return found;
}

QString unescaped(const QString& quoted) {
    static const QRegularExpression escape(uR"re(\\(?:x([0-9a-fA-F]+)|u([0-9a-fA-F]{4})|(.)))re"_s);
    QString text;
    qsizetype from = 0;
    for (auto it = escape.globalMatch(quoted); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        text += QStringView(quoted).mid(from, match.capturedStart() - from);
        const QString code = match.captured(1) + match.captured(2), sign = match.captured(3);
        if (!code.isEmpty())
            text += QChar(char16_t(code.toUInt(nullptr, 16)));
        else
            text += sign == u"n" ? u"\n"_s : sign == u"t" ? u"\t"_s : sign == u"r" ? u"\r"_s : sign;
        from = match.capturedEnd();
    }
    return text + quoted.mid(from);
}

QString textOf(const QString& literal) {
    const qsizetype quote = literal.indexOf(u'"'), end = literal.lastIndexOf(u'"');
    const QString inside = literal.mid(quote + 1, end - quote - 1);
    if (quote == 0 || literal[quote - 1] != u'R') return unescaped(inside);
    const qsizetype open = inside.indexOf(u'(');
    return inside.mid(open + 1, inside.size() - 2 * open - 2);
}

bool isWide(const QString& literal) {
    return literal.startsWith(u"u\""_s) || literal.startsWith(u"uR"_s);
}

// A few pieces of code on one side of the literals `first` to `last`.
QString around(const QVector<Piece>& pieces, qsizetype from, int step) {
    constexpr int enough = 3;
    QString code;
    for (int taken = 0; from >= 0 && from < pieces.size() && taken < enough; from += step) {
        if (pieces[from].kind == PieceKind::Blank) continue;
        code = step > 0 ? code + pieces[from].source : pieces[from].source + code;
        ++taken;
    }
    return code;
}

}  // namespace

QVector<SourceLiteral> sourceLiterals(const QString& source) {
    const QVector<Piece> all = split(source);
    QVector<SourceLiteral> found;
    for (qsizetype at = 0; at < all.size(); ++at) {
        if (all[at].kind != PieceKind::Literal) continue;
        SourceLiteral literal{
            textOf(all[at].source), isWide(all[at].source), around(all, at - 1, -1), {}, all[at].line};
        qsizetype next = at + 1;
        for (; next < all.size() && all[next].kind != PieceKind::Code; ++next) {
            if (all[next].kind != PieceKind::Literal) continue;
            literal.text += textOf(all[next].source);
            at = next;
        }
        literal.after = around(all, at + 1, 1);
        found += literal;
    }
    return found;
}

}  // namespace support
