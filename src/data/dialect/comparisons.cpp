#include "data/dialect/renderer.h"
#include "data/values/fold.h"

using namespace Qt::Literals::StringLiterals;

namespace data::dialect {

static const char* signOf(Operator operation) {
    switch (operation) {
        case Operator::NotEqual:
            return " <> ";
        case Operator::Less:
            return " < ";
        case Operator::LessEqual:
            return " <= ";
        case Operator::Greater:
            return " > ";
        case Operator::GreaterEqual:
            return " >= ";
        default:
            return " = ";
    }
}

// What both sides become. A text beside anything else is read as that; any number but 0 is True.
ValueKind Renderer::comparisonKind(const Expr& left, const Expr& right, Operator operation, qsizetype position) const {
    const ValueKind a = left.type.kind;
    const ValueKind b = right.type.kind;
    const auto open = [](ValueKind kind) { return kind == ValueKind::Null || kind == ValueKind::Any; };
    if (a == b) return a;
    const auto bytesBesideValue = [](ValueKind x, ValueKind y) {
        return x == ValueKind::Binary && y != ValueKind::Null;
    };
    if (bytesBesideValue(a, b) || bytesBesideValue(b, a))
        places_.fail(position, u"τα δεδομένα αρχείου συγκρίνονται μόνο με IS NULL"_s, ErrorCategory::Type);
    if (open(a) && open(b)) return ValueKind::Any;
    if (open(a)) return b;
    if (open(b)) return a;
    if (a == ValueKind::Text) return b;
    if (b == ValueKind::Text) return a;
    const bool hasDate = a == ValueKind::Date || b == ValueKind::Date;
    const bool hasYesNo = a == ValueKind::YesNo || b == ValueKind::YesNo;
    if (hasDate && hasYesNo) return ValueKind::Number;
    if (hasDate) return ValueKind::Date;
    return operation == Operator::Equal || operation == Operator::NotEqual ? ValueKind::YesNo : ValueKind::Number;
}

QByteArray Renderer::comparable(const Expr& expr, ValueKind kind, const Expr& partner) {
    return kind == ValueKind::Text ? folded(expr) : as(expr, kind, Sum, &partner);
}

Renderer::Piece Renderer::compare(const Expr& left, const Expr& right, Operator operation, qsizetype position) {
    const ValueKind kind = comparisonKind(left, right, operation, position);
    return {comparable(left, kind, right) + signOf(operation) + comparable(right, kind, left), Comparison};
}

Renderer::Piece Renderer::comparePart(const Expr& expr) {
    if (expr.kind == ExprKind::Like) return like(expr);
    if (expr.kind == ExprKind::Between) return between(expr);
    return expr.query ? inQuery(expr) : in(expr);
}

Renderer::Piece Renderer::between(const Expr& expr) {
    const Expr& value = *expr.arguments[0];
    const Expr& low = *expr.arguments[1];
    const Expr& high = *expr.arguments[2];
    const ValueKind kind = comparisonKind(value, low, Operator::LessEqual, expr.position);
    if (kind == comparisonKind(value, high, Operator::LessEqual, expr.position))
        return {comparable(value, kind, low) + " BETWEEN " + comparable(low, kind, value) + " AND " +
                    comparable(high, kind, value),
                Comparison};
    return {compare(value, low, Operator::GreaterEqual, expr.position).sql + " AND " +
                compare(value, high, Operator::LessEqual, expr.position).sql,
            And};
}

// Values of several kinds go into a list each.
Renderer::Piece Renderer::in(const Expr& expr) {
    const Expr& value = *expr.arguments[0];
    std::vector<std::pair<ValueKind, QByteArray>> lists;
    for (size_t i = 1; i < expr.arguments.size(); ++i) {
        const Expr& item = *expr.arguments[i];
        const ValueKind kind = comparisonKind(value, item, Operator::Equal, expr.position);
        auto list = std::find_if(lists.begin(), lists.end(), [&](const auto& known) { return known.first == kind; });
        if (list == lists.end()) list = lists.insert(lists.end(), {kind, comparable(value, kind, item) + " IN ("});
        if (!list->second.endsWith('(')) list->second += ", ";
        list->second += comparable(item, kind, value);
    }
    if (lists.size() == 1) return {lists[0].second + ')', Comparison};
    QByteArray out;
    for (const auto& [kind, list] : lists) out += (out.isEmpty() ? "" : " OR ") + list + ')';
    return {out, Or};
}

Renderer::Piece Renderer::inQuery(const Expr& expr) {
    const Expr& value = *expr.arguments[0];
    const Query& rows = *expr.query;
    Expr column;
    column.kind = ExprKind::Column;
    column.position = expr.position;
    column.column = 0;
    column.type = rows.parts.size() > 1 ? rows.unionColumns[0].type : rows.parts[0].outputs[0].expr->type;
    Source source;
    source.sqlName = "\"%s\"";
    source.columns.push_back({QString(), column.type});
    column.source = &source;
    const ValueKind kind = comparisonKind(value, column, Operator::Equal, expr.position);
    const QByteArray left = comparable(value, kind, column);
    // Only what has to be converted needs another query around it.
    if (kind != ValueKind::Text && kind == column.type.kind) {
        const QByteArray values = innerQuery(rows, false);
        return {left + " IN (" + values + ')', Comparison};
    }
    const QByteArray inner = innerQuery(rows, true);
    const Replacements before = replacements_;
    replacements_ = {};
    const QByteArray right = kind == ValueKind::Text ? folded(column) : as(column, kind, Loose);
    replacements_ = before;
    return {left + " IN (SELECT " + right + " FROM (" + inner + ") AS \"%s\")", Comparison};
}

// The first text behind all that start with `prefix`; empty when there is none.
static QString behindPrefix(const QString& prefix) {
    QList<uint> points = prefix.toUcs4();
    while (!points.isEmpty()) {
        uint& last = points.last();
        if (last < 0x10FFFF) {
            last = last == 0xD7FF ? 0xE000 : last + 1;  // nothing is stored between
            return QString::fromUcs4(reinterpret_cast<const char32_t*>(points.constData()), points.size());
        }
        points.removeLast();
    }
    return {};
}

// What a pattern starts with becomes a range, which an index on the fold serves; the rest is asked of what lies in it.
Renderer::Piece Renderer::like(const Expr& expr) {
    const Expr& value = *expr.arguments[0];
    const Expr& wanted = *expr.arguments[1];
    if (wanted.kind != ExprKind::Literal || wanted.type.kind == ValueKind::Null)
        return {dialect_.like(as(value, ValueKind::Text, Whole), dialect_.fold(as(wanted, ValueKind::Text, Loose))),
                Comparison};
    const QString pattern = fold(convertLiteral(wanted, ValueKind::Text, nullptr).toString());
    qsizetype prefix = 0;
    while (prefix < pattern.size() && pattern[prefix] != u'%' && pattern[prefix] != u'_') ++prefix;
    if (prefix == pattern.size()) return {folded(value) + " = " + dialect_.textLiteral(pattern), Comparison};
    const bool restIsPercent = std::all_of(pattern.begin() + prefix, pattern.end(), [](QChar c) { return c == u'%'; });
    QByteArray whole;
    if (!restIsPercent) whole = dialect_.like(as(value, ValueKind::Text, Whole), dialect_.textLiteral(pattern));
    if (prefix == 0 && !restIsPercent) return {whole, Comparison};
    const QString from = pattern.left(prefix);
    const QString behind = behindPrefix(from);
    const QByteArray text = folded(value);
    QByteArray out = text + " >= " + dialect_.textLiteral(from);
    if (!behind.isEmpty()) out += " AND " + text + " < " + dialect_.textLiteral(behind);
    if (!restIsPercent) out += " AND " + whole;
    return {out, And};
}

}  // namespace data::dialect
