#include "demo/latin.h"

#include "data/values/fold.h"

namespace demo {
namespace {

using namespace Qt::Literals::StringLiterals;

struct Sound {
    QString greek;
    QString latin;
};

// Two letters before one, since the first match counts.
const Sound sounds[] = {
    {u"ου"_s, u"ou"_s}, {u"γγ"_s, u"ng"_s}, {u"γχ"_s, u"nch"_s}, {u"α"_s, u"a"_s}, {u"β"_s, u"v"_s},  {u"γ"_s, u"g"_s},
    {u"δ"_s, u"d"_s},   {u"ε"_s, u"e"_s},   {u"ζ"_s, u"z"_s},    {u"η"_s, u"i"_s}, {u"θ"_s, u"th"_s}, {u"ι"_s, u"i"_s},
    {u"κ"_s, u"k"_s},   {u"λ"_s, u"l"_s},   {u"μ"_s, u"m"_s},    {u"ν"_s, u"n"_s}, {u"ξ"_s, u"x"_s},  {u"ο"_s, u"o"_s},
    {u"π"_s, u"p"_s},   {u"ρ"_s, u"r"_s},   {u"σ"_s, u"s"_s},    {u"τ"_s, u"t"_s}, {u"φ"_s, u"f"_s},  {u"χ"_s, u"ch"_s},
    {u"ψ"_s, u"ps"_s},  {u"ω"_s, u"o"_s},
};

constexpr QStringView voiceless = u"θκξπστφχψ";

// αυ and ευ sound as av and ev, before a voiceless consonant as af and ef.
QString upsilon(QStringView text, qsizetype at) {
    const bool afterVowel = at > 0 && (text[at - 1] == u'α' || text[at - 1] == u'ε');
    if (!afterVowel) return u"y"_s;
    return at + 1 < text.size() && voiceless.contains(text[at + 1]) ? u"f"_s : u"v"_s;
}

}  // namespace

QString latinName(QStringView greek) {
    const QString folded = data::fold(greek);
    QString latin;
    for (qsizetype at = 0; at < folded.size();) {
        if (folded[at] == u'υ') {
            latin += upsilon(folded, at++);
            continue;
        }
        qsizetype step = 1;
        for (const Sound& sound : sounds) {
            if (!QStringView(folded).mid(at).startsWith(sound.greek)) continue;
            latin += sound.latin;
            step = sound.greek.size();
            break;
        }
        at += step;
    }
    return latin;
}

}  // namespace demo
