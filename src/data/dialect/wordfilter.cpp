#include "data/dialect/wordfilter.h"

#include "data/values/fold.h"

namespace data::dialect {
namespace {

constexpr qsizetype shortestPiece = 3;  // characters; what a word index can look up
constexpr size_t mostAlternatives = 24;

// The parts of a pattern between its wildcards. A character 0 parts them too: no index holds it.
QStringList pieces(const QString& pattern) {
    QStringList found;
    QString piece;
    const auto finish = [&] {
        if (piece.toUcs4().size() >= shortestPiece && !found.contains(piece)) found += piece;
        piece.clear();
    };
    for (const QChar c : fold(pattern)) {
        if (c == u'%' || c == u'_' || c.isNull())
            finish();
        else
            piece += c;
    }
    finish();
    return found;
}

std::optional<WordFilter> ofLike(const Expr& like) {
    const Expr& text = *like.arguments[0];
    const Expr& pattern = *like.arguments[1];
    if (like.negated || text.kind != ExprKind::Column || !text.source->table ||
        !text.source->table->words.columns.contains(text.column) || pattern.kind != ExprKind::Literal ||
        pattern.type.kind != ValueKind::Text)
        return std::nullopt;
    const QStringList wanted = pieces(pattern.value.toString());
    if (wanted.isEmpty()) return std::nullopt;
    return WordFilter{text.source, {wanted}};
}

// All must hold, so any one of them will do; two of one table narrow further together.
std::optional<WordFilter> ofAll(const Expr& conditions) {
    std::optional<WordFilter> found;
    for (const ExprPtr& condition : conditions.arguments) {
        const std::optional<WordFilter> filter = wordFilter(*condition);
        if (!filter) continue;
        if (!found)
            found = filter;
        else if (found->source == filter->source && found->alternatives.size() == 1 && filter->alternatives.size() == 1)
            found->alternatives[0] += filter->alternatives[0];
    }
    return found;
}

// One that says nothing leaves all rows open.
std::optional<WordFilter> ofAny(const Expr& conditions) {
    WordFilter found;
    for (const ExprPtr& condition : conditions.arguments) {
        const std::optional<WordFilter> filter = wordFilter(*condition);
        if (!filter || (found.source && found.source != filter->source)) return std::nullopt;
        found.source = filter->source;
        for (const QStringList& alternative : filter->alternatives)
            if (std::find(found.alternatives.begin(), found.alternatives.end(), alternative) ==
                found.alternatives.end())
                found.alternatives.push_back(alternative);
        if (found.alternatives.size() > mostAlternatives) return std::nullopt;
    }
    return found;
}

template <class Test>
bool anyOfAll(const Expr& condition, Test test) {
    if (condition.kind != ExprKind::And) return test(condition);
    return std::any_of(condition.arguments.begin(), condition.arguments.end(),
                       [&](const ExprPtr& part) { return anyOfAll(*part, test); });
}

}  // namespace

std::optional<WordFilter> wordFilter(const Expr& condition) {
    switch (condition.kind) {
        case ExprKind::Like:
            return ofLike(condition);
        case ExprKind::And:
            return ofAll(condition);
        case ExprKind::Or:
            return ofAny(condition);
        default:
            return std::nullopt;
    }
}

bool boundsDate(const Expr& condition) {
    return anyOfAll(condition, [](const Expr& part) {
        if (part.negated || (part.kind != ExprKind::Between && part.kind != ExprKind::Compare)) return false;
        return std::any_of(part.arguments.begin(), part.arguments.end(), [](const ExprPtr& side) {
            return side->kind == ExprKind::Column && side->type.kind == ValueKind::Date;
        });
    });
}

bool offersAlternatives(const Expr& condition) {
    return anyOfAll(condition, [](const Expr& part) { return part.kind == ExprKind::Or; });
}

}  // namespace data::dialect
