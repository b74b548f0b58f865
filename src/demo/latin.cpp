#include "demo/latin.h"

#include "data/values/fold.h"

namespace demo {
namespace {

struct Sound {
    const char16_t* greek;
    const char* latin;
};

// Two letters before one, since the first match counts.
constexpr Sound sounds[] = {
    {u"ου", "ou"}, {u"γγ", "ng"}, {u"γχ", "nch"}, {u"α", "a"},  {u"β", "v"}, {u"γ", "g"}, {u"δ", "d"},
    {u"ε", "e"},   {u"ζ", "z"},   {u"η", "i"},    {u"θ", "th"}, {u"ι", "i"}, {u"κ", "k"}, {u"λ", "l"},
    {u"μ", "m"},   {u"ν", "n"},   {u"ξ", "x"},    {u"ο", "o"},  {u"π", "p"}, {u"ρ", "r"}, {u"σ", "s"},
    {u"τ", "t"},   {u"φ", "f"},   {u"χ", "ch"},   {u"ψ", "ps"}, {u"ω", "o"},
};

constexpr QStringView voiceless = u"θκξπστφχψ";

// αυ and ευ sound as av and ev, before a voiceless consonant as af and ef.
const char* upsilon(QStringView text, qsizetype at) {
    const bool afterVowel = at > 0 && (text[at - 1] == u'α' || text[at - 1] == u'ε');
    if (!afterVowel) return "y";
    return at + 1 < text.size() && voiceless.contains(text[at + 1]) ? "f" : "v";
}

}  // namespace

QString latinName(QStringView greek) {
    const QString folded = data::fold(greek);
    QString latin;
    for (qsizetype at = 0; at < folded.size();) {
        if (folded[at] == u'υ') {
            latin += QLatin1StringView(upsilon(folded, at++));
            continue;
        }
        qsizetype step = 1;
        for (const Sound& sound : sounds) {
            const QStringView letters(sound.greek);
            if (!QStringView(folded).mid(at).startsWith(letters)) continue;
            latin += QLatin1StringView(sound.latin);
            step = letters.size();
            break;
        }
        at += step;
    }
    return latin;
}

}  // namespace demo
