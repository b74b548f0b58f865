#include "data/dialect/places.h"

#include <vector>

#include "data/values/fold.h"

using namespace Qt::Literals::StringLiterals;

namespace data::dialect {

QString Places::place(qsizetype position) const {
    qsizetype line = 1;
    qsizetype lineStart = 0;
    bool severalLines = false;
    for (qsizetype i = 0; i < statement_.size(); ++i) {
        const QChar c = statement_[i];
        const bool ends = c == u'\n' || (c == u'\r' && (i + 1 == statement_.size() || statement_[i + 1] != u'\n'));
        if (!ends) continue;
        severalLines = true;
        if (i < position) {
            ++line;
            lineStart = i + 1;
        }
    }
    if (!severalLines) return u"Στη θέση %1"_s.arg(position + 1);
    return u"Στη γραμμή %1, στήλη %2"_s.arg(line).arg(position - lineStart + 1);
}

void Places::fail(qsizetype position, const QString& what, ErrorCategory category) const {
    throw Error(category, place(position) + u": "_s + what, statement_);
}

QString shown(QStringView text) {
    constexpr qsizetype longest = 40;
    QString out = text.left(longest).toString().simplified();
    // The text may have been cut before it came here.
    if (!out.isEmpty() && out.back().isHighSurrogate()) out.chop(1);
    if (text.size() > longest) out += u'…';
    return u'«' + out + u'»';
}

// Insertions, deletions, replacements and swaps of neighbours between two short texts.
static int editDistance(const QString& a, const QString& b) {
    const int width = int(b.size()) + 1;
    std::vector<int> table((size_t(a.size()) + 1) * size_t(width));
    const auto at = [&](int i, int j) -> int& { return table[size_t(i) * size_t(width) + size_t(j)]; };
    for (int j = 0; j < width; ++j) at(0, j) = j;
    for (int i = 1; i <= a.size(); ++i) {
        at(i, 0) = i;
        for (int j = 1; j < width; ++j) {
            int best = std::min(at(i - 1, j), at(i, j - 1)) + 1;
            best = std::min(best, at(i - 1, j - 1) + (a[i - 1] == b[j - 1] ? 0 : 1));
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                best = std::min(best, at(i - 2, j - 2) + 1);
            at(i, j) = best;
        }
    }
    return at(int(a.size()), width - 1);
}

QString suggestion(QStringView name, const QStringList& candidates) {
    constexpr qsizetype longestName = 64;
    if (name.size() > longestName) return {};
    const QString wanted = fold(name);
    const int allowed = wanted.size() <= 3 ? 1 : wanted.size() <= 7 ? 2 : 3;
    int best = allowed + 1;
    QString found;
    for (const QString& candidate : candidates) {
        if (std::abs(candidate.size() - wanted.size()) > allowed) continue;
        const int distance = editDistance(wanted, fold(candidate));
        if (distance < best) {
            best = distance;
            found = candidate;
        }
    }
    return found.isEmpty() ? QString() : u" · μήπως εννοείτε «%1»;"_s.arg(found);
}

}  // namespace data::dialect
