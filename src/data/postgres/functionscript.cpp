#include "data/postgres/functionscript.h"

#include <QLocale>

#include "data/postgres/pgdialect.h"
#include "data/values/fold.h"
#include "data/values/formatparts.h"

using namespace Qt::Literals::StringLiterals;

namespace data::postgres {
namespace {

QByteArray quoted(const QString& text) {
    return pgDialect().EngineDialect::textLiteral(text);
}

// The two lists of SQL's translate(): characters, and what each becomes; those without a partner are dropped.
struct Exchange {
    QString from, to, dropped;

    void add(const QString& character, const QString& becomes) {
        if (becomes.isEmpty())
            dropped += character;
        else if (becomes != character)
            from += character, to += becomes;
    }
    QByteArray of(const QByteArray& text) const {
        return "translate(" + text + ", " + quoted(from + dropped) + ", " + quoted(to) + ')';
    }
};

QString character(char32_t code) {
    return QString::fromUcs4(&code, 1);
}

template <class Becomes>
Exchange exchange(char32_t first, char32_t last, Becomes becomes) {
    Exchange list;
    for (char32_t code = first; code <= last; ++code)
        if (!QChar::isSurrogate(code)) list.add(character(code), becomes(character(code)));
    return list;
}

// Inside a word, since a letter that stands alone follows rules of its own.
QString upper(const QString& letter) {
    static const QLocale greek(QLocale::Greek, QLocale::Greece);
    const QString word = greek.toUpper(u'Α' + letter + u'Α');
    return word.size() == letter.size() + 2 ? word.mid(1, letter.size()) : letter;
}

QString lower(const QString& letter) {
    const QString word = letter.toLower();
    return word.size() == letter.size() ? word : letter;
}

QByteArray lettersFunction(const QByteArray& name, const Exchange& letters, const QByteArray& of) {
    return "CREATE OR REPLACE FUNCTION " + name +
           "(value text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $case$ SELECT " + letters.of(of) +
           " $case$;\n";
}

// A named pattern as the one it stands for; it has the small letters of its name when it has no other.
QByteArray namedPatternsFunction() {
    QByteArray cases;
    for (const NamedPattern& one : allNamedPatterns())
        cases += " WHEN " + quoted(one.name.toString()) + " THEN " + quoted(one.pattern.toString());
    return "CREATE OR REPLACE FUNCTION jet_resolved(pattern text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS "
           "$named$ SELECT CASE lower(pattern COLLATE \"C\")" +
           cases + " ELSE pattern END $named$;\n";
}

}  // namespace

// translate() walks its list for every character. Nearly all texts are plain Latin and Greek, for which the list is
// short. fold is a bound expression that the planner writes out in place; the long list stays in a function of its own,
// lest every plan copies it, and parts the languages of Europe from all others.
QByteArray foldScript() {
    const auto folded = [](const QString& text) { return fold(text); };
    Exchange everyday = exchange(0x386, 0x3CE, folded);
    everyday.add(character(0xB5), fold(character(0xB5)));
    Exchange european = exchange(0x80, 0x24F, folded);
    const Exchange greek = exchange(0x370, 0x3FF, folded), all = exchange(0x80, 0x1FFFF, folded);
    european.from += greek.from, european.to += greek.to, european.dropped += greek.dropped;
    const QByteArray latin = "lower(value COLLATE \"C\")";
    return "CREATE FUNCTION _fold_rare(value text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS "
           "$fold$ "
           "BEGIN IF value COLLATE \"C\" !~ '[^\\u0001-\\u024f\\u0370-\\u03ff\\u2010-\\u20cf]' THEN RETURN " +
           european.of(latin) + "; END IF; RETURN " + all.of(latin) +
           "; END $fold$;\n"
           "CREATE FUNCTION fold(value text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE RETURN CASE WHEN value "
           "COLLATE "
           "\"C\" !~ '[^\\u0001-\\u007f\\u0386-\\u03ce\\u2010-\\u2030\\u20ac«»·°]' THEN " +
           everyday.of(latin) + " ELSE _fold_rare(value) END;\n";
}

QByteArray functionsScript() {
    QByteArray script = numberFunctions;
    script += dateFunctions;
    script += textFunctions;
    Exchange capitals = exchange(0x61, 0x24FF, upper);
    capitals.add(character(0xE000), u"Ή"_s);
    script += lettersFunction("jet_ucase", capitals, "jet_uppermarks($1)");
    script += lettersFunction("jet_lowerletters", exchange(0x41, 0x24FF, lower), "$1");
    script += namedPatternsFunction();
    script += formatFunctions;
    script += conversionFunctions;
    return script;
}

}  // namespace data::postgres
