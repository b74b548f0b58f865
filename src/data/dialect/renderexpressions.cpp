#include <cmath>

#include "data/dialect/binder.h"
#include "data/dialect/functiontable.h"
#include "data/dialect/renderer.h"
#include "data/values/convert.h"
#include "data/values/fold.h"

using namespace Qt::Literals::StringLiterals;

namespace data::dialect {

bool sameExpr(const Expr& a, const Expr& b) {
    if (&a == &b) return true;
    if (a.kind != b.kind || a.operation != b.operation || a.negated != b.negated || a.star != b.star ||
        a.source != b.source || a.column != b.column || a.parameter != b.parameter || a.function != b.function ||
        a.output != b.output || a.query || b.query || a.arguments.size() != b.arguments.size())
        return false;
    if (a.kind == ExprKind::Literal && (a.value.typeId() != b.value.typeId() || a.value != b.value)) return false;
    for (size_t i = 0; i < a.arguments.size(); ++i)
        if (!sameExpr(*a.arguments[i], *b.arguments[i])) return false;
    return true;
}

class Renderer::Without {
public:
    explicit Without(Renderer& renderer) : renderer_(renderer), before_(renderer.replacements_.active) {
        renderer.replacements_.active = false;
    }
    ~Without() { renderer_.replacements_.active = before_; }

private:
    Renderer& renderer_;
    bool before_;
};

QByteArray Renderer::sql(const Expr& expr, Level atLeast) {
    Piece rendered = piece(expr);
    return rendered.level < atLeast ? '(' + rendered.sql + ')' : rendered.sql;
}

// A query inside a grouped one sees of its columns only what it is grouped by.
class Renderer::Inside {
public:
    explicit Inside(Renderer& renderer) : renderer_(renderer), before_(renderer.replacements_) {
        if (before_.active) renderer.groupsAround_.push_back(before_);
        renderer.replacements_ = {};
    }
    ~Inside() {
        if (before_.active) renderer_.groupsAround_.pop_back();
        renderer_.replacements_ = before_;
    }

private:
    Renderer& renderer_;
    const Replacements before_;
};

const Renderer::Replacements* Renderer::groupOf(const Expr& expr) const {
    if (replacements_.active) return &replacements_;
    if (expr.kind != ExprKind::Column) return nullptr;
    for (const Replacements& group : groupsAround_)
        if (group.select && std::count(group.select->sources.begin(), group.select->sources.end(), expr.source) > 0)
            return &group;
    return nullptr;
}

QByteArray Renderer::innerQuery(const Query& inner, bool named) {
    const Inside inside(*this);
    return query(inner, named);
}

Renderer::Piece Renderer::piece(const Expr& expr) {
    if (expr.kind == ExprKind::Output) return piece(*expr.output);
    if (const Replacements* group = groupOf(expr)) {
        for (const Replacement& replacement : group->list)
            if (sameExpr(*replacement.expr, expr)) return {replacement.sql, Whole};
        if (expr.kind == ExprKind::Column)
            places_.fail(expr.position, group->otherwise + u' ' +
                                            shown(expr.source->table ? expr.source->table->columns[expr.column].name
                                                                     : expr.source->columns[size_t(expr.column)].name));
    }
    return plainPiece(expr);
}

Renderer::Piece Renderer::plainPiece(const Expr& expr) {
    switch (expr.kind) {
        case ExprKind::Literal: {
            const bool negative = expr.type.kind == ValueKind::Number && expr.value.toDouble() < 0;
            return {dialect_.literal(expr.value), negative ? Unary : Whole};
        }
        case ExprKind::Column:
            return {columnSql(*expr.source, expr.column), Whole};
        case ExprKind::Parameter:
            return {dialect_.untypedParameter(expr.parameter), Whole};
        case ExprKind::Negate:
            return {"-(" + operand(*expr.arguments[0], Loose) + ')', Unary};
        case ExprKind::Arithmetic:
            return arithmetic(expr);
        case ExprKind::Concatenate:
            return concatenate(expr);
        case ExprKind::Not:
            return {"NOT " + condition(*expr.arguments[0], Comparison), Not};
        case ExprKind::And:
        case ExprKind::Or:
            return junction(expr, 0, expr.arguments.size());
        case ExprKind::Xor:
            return {condition(*expr.arguments[0], Sum) + " <> " + condition(*expr.arguments[1], Sum), Comparison};
        case ExprKind::Compare:
            return compare(*expr.arguments[0], *expr.arguments[1], expr.operation, expr.position);
        case ExprKind::Like:
        case ExprKind::Between:
        case ExprKind::In: {
            Piece positive = comparePart(expr);
            if (!expr.negated) return positive;
            return {"NOT " + (positive.level < Comparison ? '(' + positive.sql + ')' : positive.sql), Not};
        }
        case ExprKind::IsNull:
            return {sql(*expr.arguments[0], Sum) + (expr.negated ? " IS NOT NULL" : " IS NULL"), Comparison};
        case ExprKind::Exists:
            return {"EXISTS (" + innerQuery(*expr.query, true) + ')', Whole};
        case ExprKind::Scalar:
            return {'(' + innerQuery(*expr.query, false) + ')', Whole};
        case ExprKind::Call:
            return {call(expr), Whole};
        case ExprKind::Name:
        case ExprKind::Output:
            break;
    }
    return {"NULL", Whole};
}

QByteArray Renderer::columnSql(const Source& source, int column) const {
    if (source.table) {
        const QByteArray name = dialect_.identifier(source.table->columns[column].name);
        return source.sqlName.isEmpty() ? name : source.sqlName + '.' + name;
    }
    return source.sqlName + ".c" + QByteArray::number(column);
}

QByteArray Renderer::condition(const Expr& expr, Level atLeast) {
    return as(expr, ValueKind::YesNo, atLeast);
}

// Engines build AND and OR as deep as they are long, and have a limit: a long one is halved into brackets.
Renderer::Piece Renderer::junction(const Expr& expr, size_t first, size_t last) {
    constexpr size_t longest = 64;
    const bool isAnd = expr.kind == ExprKind::And;
    const Level level = isAnd ? And : Or;
    const char* word = isAnd ? " AND " : " OR ";
    if (last - first > longest) {
        const size_t middle = first + (last - first) / 2;
        return {'(' + junction(expr, first, middle).sql + ')' + word + '(' + junction(expr, middle, last).sql + ')',
                level};
    }
    QByteArray out;
    for (size_t i = first; i < last; ++i) {
        if (i > first) out += word;
        out += condition(*expr.arguments[i], level);
    }
    return {out, level};
}

static std::optional<Arithmetic> dateOperation(const Expr& expr) {
    const bool left = expr.arguments[0]->type.kind == ValueKind::Date;
    const bool right = expr.arguments[1]->type.kind == ValueKind::Date;
    if (expr.operation == Operator::Add && left && right) return Arithmetic::DatePlusDate;
    if (expr.operation == Operator::Add && (left || right)) return Arithmetic::DatePlusDays;
    if (expr.operation == Operator::Subtract && left && right) return Arithmetic::DateMinusDate;
    if (expr.operation == Operator::Subtract && left) return Arithmetic::DateMinusDays;
    return std::nullopt;
}

Renderer::Piece Renderer::arithmetic(const Expr& expr) {
    const Expr* left = expr.arguments[0].get();
    const Expr* right = expr.arguments[1].get();
    if (const std::optional<Arithmetic> operation = dateOperation(expr)) {
        if (left->type.kind != ValueKind::Date) std::swap(left, right);
        const ValueKind other = right->type.kind == ValueKind::Date ? ValueKind::Date : ValueKind::Number;
        return {dialect_.arithmetic(*operation, sql(*left, Whole), as(*right, other, Whole)), Whole};
    }
    if (expr.type.kind == ValueKind::Text)
        return {dialect_.arithmetic(Arithmetic::ConcatenateTexts, sql(*left, Whole), sql(*right, Whole)), Whole};
    const auto simple = [&](const char* sign, Level level) -> Piece {
        return {operand(*left, level) + sign + operand(*right, Level(level + 1)), level};
    };
    const auto engines = [&](Arithmetic operation) -> Piece {
        return {
            dialect_.arithmetic(operation, as(*left, ValueKind::Number, Whole), as(*right, ValueKind::Number, Whole)),
            Whole};
    };
    switch (expr.operation) {
        case Operator::Add:
            return simple(" + ", Sum);
        case Operator::Subtract:
            return simple(" - ", Sum);
        case Operator::Multiply:
            return simple(" * ", Product);
        case Operator::WholeDivide:
            return engines(Arithmetic::WholeDivide);
        case Operator::Modulo:
            return engines(Arithmetic::Modulo);
        case Operator::Power:
            return engines(Arithmetic::Power);
        default:
            return engines(Arithmetic::Divide);
    }
}

QByteArray Renderer::operand(const Expr& expr, Level atLeast) {
    const QByteArray cast = dialect_.wideCast(expr.type.column);
    return cast.isEmpty() ? as(expr, ValueKind::Number, atLeast) : as(expr, ValueKind::Number, Whole) + cast;
}

// Null counts as an empty text.
Renderer::Piece Renderer::concatenate(const Expr& expr) {
    QByteArray out;
    for (const ExprPtr& operand : expr.arguments) {
        if (!out.isEmpty()) out += " || ";
        const bool literal = operand->kind == ExprKind::Literal && operand->type.kind != ValueKind::Null;
        const QByteArray text = as(*operand, ValueKind::Text, literal ? Whole : Loose);
        out += literal ? text : "coalesce(" + text + ", '')";
    }
    return {out, Loose};
}

QByteArray Renderer::folded(const Expr& expr) {
    if (expr.kind == ExprKind::Literal && expr.type.kind != ValueKind::Null)
        return dialect_.textLiteral(fold(convertLiteral(expr, ValueKind::Text, nullptr).toString()));
    return dialect_.fold(as(expr, ValueKind::Text, Loose));
}

// A bare whole number would be the position of a column.
static bool looksLikePosition(const QByteArray& sql) {
    return std::all_of(sql.begin(), sql.end(), [](char c) { return (c >= '0' && c <= '9') || strchr("()- ", c); });
}

QByteArray Renderer::key(const Expr& expr) {
    if (expr.type.kind == ValueKind::Text) return folded(expr);
    const QByteArray plain = sql(expr, Sum);
    return looksLikePosition(plain) ? plain + " + 0" : plain;
}

QVariant Renderer::convertLiteral(const Expr& literal, ValueKind kind, const Expr* partner) const {
    if (literal.type.kind == kind || literal.type.kind == ValueKind::Null) return literal.value;
    if (kind == ValueKind::Text) return valueText(literal.value);
    ColumnInfo column;
    column.type = kind == ValueKind::Date    ? ColumnType::DateTime
                  : kind == ValueKind::YesNo ? ColumnType::YesNo
                                             : ColumnType::Double;
    const bool dateAsCondition = kind == ValueKind::YesNo && literal.type.kind == ValueKind::Date;
    try {
        const QVariant value = dateAsCondition ? QVariant(true) : toColumn(literal.value, column);
        // Beside a whole number it is one too: a server would turn the other side into a real, past any index on it.
        const bool whole = kind == ValueKind::Number && partner && isNumber(partner->type.column) &&
                           partner->type.column != ColumnType::Double && partner->type.column != ColumnType::Single;
        constexpr double exact = 9e15;
        if (whole && std::fabs(value.toDouble()) < exact && std::trunc(value.toDouble()) == value.toDouble())
            return value.toLongLong();
        return value;
    } catch (const Error&) {
        const QString wanted = kind == ValueKind::Date    ? u"ημερομηνία"_s
                               : kind == ValueKind::YesNo ? u"True ή False"_s
                                                          : u"αριθμό"_s;
        QString why = u"περίμενα %1, βρήκα %2"_s.arg(wanted, shown(valueText(literal.value)));
        if (partner && partner->kind == ExprKind::Column && partner->source->table)
            why += u" (για τη στήλη «%1»)"_s.arg(partner->source->table->columns[partner->column].name);
        places_.fail(literal.position, why, ErrorCategory::Type);
    }
}

QByteArray Renderer::as(const Expr& expr, ValueKind kind, Level atLeast, const Expr* partner) {
    const ValueKind from = expr.type.kind;
    if (from == ValueKind::Null && expr.kind == ExprKind::Literal) return dialect_.null(kind);
    if (from == kind || kind == ValueKind::Any || kind == ValueKind::Null ||
        (kind == ValueKind::Binary && from != ValueKind::Null))
        return sql(expr, atLeast);
    if (expr.kind == ExprKind::Literal) {
        const QVariant value = convertLiteral(expr, kind, partner);
        const bool negative =
            (value.typeId() == QMetaType::Double || value.typeId() == QMetaType::LongLong) && value.toDouble() < 0;
        return negative && atLeast > Unary ? '(' + dialect_.literal(value) + ')' : dialect_.literal(value);
    }
    return dialect_.convert(sql(expr, Whole), from, kind);
}

// Functions

QByteArray Renderer::argument(const Expr& expr, char takes) {
    switch (takes) {
        case 'T':
        case 'I':
            return as(expr, ValueKind::Text, Loose);
        case 'N':
            return as(expr, ValueKind::Number, Loose);
        case 'D':
            return as(expr, ValueKind::Date, Loose);
        case 'B':
            return as(expr, ValueKind::YesNo, Loose);
        default:
            return sql(expr, Loose);
    }
}

QByteArray Renderer::call(const Expr& expr) {
    const Function& function = *expr.function;
    if (function.isAggregate()) return aggregate(expr);
    const auto arg = [&](size_t i) -> const Expr& { return *expr.arguments[i]; };
    switch (function.form) {
        case FunctionForm::Convert:
            return as(arg(0), function.result, Whole);
        case FunctionForm::IsNull:
            return '(' + sql(arg(0), Sum) + " IS NULL)";
        case FunctionForm::Iif:
        case FunctionForm::Nz:
            return choice(expr);
        case FunctionForm::Whole:
            return dialect_.call("whole", {argument(arg(0), 'N')});
        case FunctionForm::InStr: {
            const size_t skip = expr.arguments.size() == 3 ? 1 : 0;
            return dialect_.call("instr", {skip ? argument(arg(0), 'N') : QByteArray("1"), argument(arg(skip), 'T'),
                                           argument(arg(skip + 1), 'T')});
        }
        default:
            break;
    }
    QVector<QByteArray> arguments;
    const QByteArray takes = function.takes;
    for (size_t i = 0; i < expr.arguments.size(); ++i) {
        arguments << argument(arg(i), takes[std::min(qsizetype(i), takes.size() - 1)]);
        if (i == 0 && function.form == FunctionForm::Tagged)
            arguments << QByteArray("'") + kindTag(arg(0).type.kind) + '\'';
    }
    return dialect_.call(function.name.toUtf8(), arguments);
}

QByteArray Renderer::choice(const Expr& expr) {
    const ValueKind kind = expr.type.kind;
    if (expr.function->form == FunctionForm::Iif)
        return "CASE WHEN " + condition(*expr.arguments[0]) + " THEN " + as(*expr.arguments[1], kind, Loose) +
               " ELSE " + as(*expr.arguments[2], kind, Loose) + " END";
    QByteArray otherwise = kind == ValueKind::Text || kind == ValueKind::Any ? "''" : "0";
    if (kind == ValueKind::YesNo) otherwise = dialect_.yesNoLiteral(false);
    if (kind == ValueKind::Date) otherwise = dialect_.dateLiteral(wallClock(QDate(1899, 12, 30)));
    if (expr.arguments.size() == 2) otherwise = as(*expr.arguments[1], kind, Loose);
    return "coalesce(" + as(*expr.arguments[0], kind, Loose) + ", " + otherwise + ')';
}

QByteArray Renderer::aggregate(const Expr& expr) {
    const Without plain(*this);
    const Function& function = *expr.function;
    if (expr.star) return "count(*)";
    const Expr& value = *expr.arguments[0];
    const QByteArray name = function.name.toUtf8();
    switch (function.form) {
        case FunctionForm::Count:
            return "count(" + sql(value, Loose) + ')';
        case FunctionForm::Sum:
            return name + '(' + as(value, ValueKind::Number, Loose) + ')';
        case FunctionForm::Extreme:
            if (value.type.kind == ValueKind::Binary)
                places_.fail(value.position, u"τα δεδομένα αρχείου δεν έχουν μικρότερο ή μεγαλύτερο"_s,
                             ErrorCategory::Type);
            if (value.type.kind != ValueKind::Text) return name + '(' + sql(value, Loose) + ')';
            break;
        default:
            break;
    }
    QByteArray argument = as(value, value.type.kind == ValueKind::Null ? ValueKind::Text : value.type.kind, Loose);
    if (function.form == FunctionForm::Edge && dialect_.ordersAggregates() && replacements_.select)
        argument += rowOrder(*replacements_.select, {});
    return dialect_.call(name, {argument});
}

}  // namespace data::dialect
