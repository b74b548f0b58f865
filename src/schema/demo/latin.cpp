#include "schema/demo/latin.h"

#include "data/fold.h"

namespace schema::demo {
namespace {

struct Sound {
    const char16_t* greek;
    const char* latin;
};

// Two letters before one, since the first match counts.
constexpr Sound sounds[] = {
    {u"ου", "ou"}, {u"αυ", "av"}, {u"ευ", "ev"}, {u"γγ", "ng"}, {u"γχ", "nch"}, {u"μπ", "b"}, {u"α", "a"}, {u"β", "v"},
    {u"γ", "g"},   {u"δ", "d"},   {u"ε", "e"},   {u"ζ", "z"},   {u"η", "i"},    {u"θ", "th"}, {u"ι", "i"}, {u"κ", "k"},
    {u"λ", "l"},   {u"μ", "m"},   {u"ν", "n"},   {u"ξ", "x"},   {u"ο", "o"},    {u"π", "p"},  {u"ρ", "r"}, {u"σ", "s"},
    {u"τ", "t"},   {u"υ", "y"},   {u"φ", "f"},   {u"χ", "ch"},  {u"ψ", "ps"},   {u"ω", "o"},
};

}  // namespace

QString latinName(QStringView greek) {
    const QString folded = data::fold(greek);
    QString latin;
    for (qsizetype at = 0; at < folded.size();) {
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

}  // namespace schema::demo
