#include "data/dialect/binder.h"
#include "data/dialect/functiontable.h"

using namespace Qt::Literals::StringLiterals;

namespace data::dialect {

namespace {

const ValueType yesNo{ValueKind::YesNo, ColumnType::YesNo, 0};
const ValueType whole{ValueKind::Number, ColumnType::Long, 0};
const ValueType real{ValueKind::Number, ColumnType::Double, 0};
const ValueType date{ValueKind::Date, ColumnType::DateTime, 0};
const ValueType memo{ValueKind::Text, ColumnType::Memo, 0};
const ValueType anything{ValueKind::Any, ColumnType::Text, 255};
constexpr int longestText = 255;

bool isWhole(const ValueType& type) {
    return type.kind != ValueKind::Number || (type.column != ColumnType::Double && type.column != ColumnType::Single);
}

ValueType text(int size) {
    return {ValueKind::Text, ColumnType::Text, size};
}

}  // namespace

ValueType literalType(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::UnknownType:
            return {};
        case QMetaType::Bool:
            return yesNo;
        case QMetaType::Double:
            return real;
        case QMetaType::QDateTime:
            return date;
        case QMetaType::QString:
            return value.toString().size() > longestText ? memo : text(longestText);
        default:
            return whole;
    }
}

ValueType commonType(const ValueType& a, const ValueType& b) {
    const auto open = [](ValueKind kind) { return kind == ValueKind::Null || kind == ValueKind::Any; };
    if (a.kind == ValueKind::Null) return b;
    if (b.kind == ValueKind::Null) return a;
    if ((a.kind == ValueKind::Binary) != (b.kind == ValueKind::Binary)) return text(longestText);
    if (open(a.kind)) return b;
    if (open(b.kind)) return a;
    if (a.kind == b.kind && a.kind == ValueKind::Number) {
        if (a.column == b.column) return a;
        return isWhole(a) && isWhole(b) ? whole : real;
    }
    if (a.kind == b.kind && a.kind == ValueKind::Text)
        return a.column == ColumnType::Memo || b.column == ColumnType::Memo ? memo : text(std::max(a.size, b.size));
    if (a.kind == b.kind) return a;
    const auto numeric = [](ValueKind kind) { return kind == ValueKind::Number || kind == ValueKind::YesNo; };
    if (numeric(a.kind) && numeric(b.kind)) return isWhole(a) && isWhole(b) ? whole : real;
    return text(longestText);
}

ValueType Binder::columnType(const Source& source, int column) const {
    if (!source.table) return source.columns[size_t(column)].type;
    const ColumnInfo& info = source.table->columns[column];
    return {kindOf(info.type), info.type, info.size};
}

int Binder::columnOf(const Source& source, const QString& name) const {
    if (source.table) return index_.find(*source.table, name);
    const QString key = nameKey(name);
    for (size_t i = 0; i < source.columns.size(); ++i)
        if (nameKey(source.columns[i].name) == key) return int(i);
    return -1;
}

void Binder::bindExpr(Expr& expr, Scope& scope) {
    if (expr.kind == ExprKind::Name) return bindName(expr, scope);
    if (expr.kind == ExprKind::Call) return bindCall(expr, scope);
    for (const ExprPtr& argument : expr.arguments) bindExpr(*argument, scope);
    if (expr.query) bindSubquery(expr, scope);
    switch (expr.kind) {
        case ExprKind::Literal:
            expr.type = literalType(expr.value);
            break;
        case ExprKind::Negate:
            expr.type =
                isWhole(expr.arguments[0]->type) && expr.arguments[0]->type.kind != ValueKind::Date ? whole : real;
            break;
        case ExprKind::Arithmetic:
            expr.type = arithmeticType(expr);
            break;
        case ExprKind::Concatenate: {
            expr.type = text(longestText);
            for (const ExprPtr& argument : expr.arguments)
                if (argument->type.column == ColumnType::Memo) expr.type = memo;
            break;
        }
        case ExprKind::Scalar: {
            const Query& query = *expr.query;
            expr.type = query.parts.size() > 1 ? query.unionColumns[0].type : query.parts[0].outputs[0].expr->type;
            break;
        }
        default:
            expr.type = yesNo;
    }
}

void Binder::bindSubquery(Expr& expr, Scope& scope) {
    bindQuery(*expr.query, &scope);
    const size_t columns = expr.query->parts[0].outputs.size();
    if (expr.kind != ExprKind::Exists && columns != 1)
        places_.fail(expr.query->parts[0].position,
                     u"περίμενα μία στήλη στο SELECT μέσα στην παρένθεση, βρήκα %1"_s.arg(columns));
}

ValueType Binder::arithmeticType(const Expr& expr) const {
    const ValueType& left = expr.arguments[0]->type;
    const ValueType& right = expr.arguments[1]->type;
    const bool leftDate = left.kind == ValueKind::Date;
    const bool rightDate = right.kind == ValueKind::Date;
    switch (expr.operation) {
        case Operator::Add:
            if (left.kind == ValueKind::Text && right.kind == ValueKind::Text)
                return commonType(left, right).column == ColumnType::Memo ? memo : text(longestText);
            if (leftDate || rightDate) return date;
            break;
        case Operator::Subtract:
            if (leftDate && rightDate) return real;
            if (leftDate) return date;
            if (rightDate) return real;
            break;
        case Operator::WholeDivide:
        case Operator::Modulo:
            return whole;
        case Operator::Multiply:
            break;
        default:
            return real;
    }
    const auto countsWhole = [](const ValueType& type) {
        return (type.kind == ValueKind::Number || type.kind == ValueKind::YesNo || type.kind == ValueKind::Null) &&
               isWhole(type);
    };
    return countsWhole(left) && countsWhole(right) ? whole : real;
}

void Binder::bindName(Expr& expr, const Scope& scope) {
    const Match match = findColumn(expr, scope);
    if (match.source) {
        expr.kind = ExprKind::Column;
        expr.source = match.source;
        expr.column = match.column;
        expr.type = columnType(*match.source, match.column);
        return;
    }
    if (expr.qualifier.isEmpty() && bindParameter(expr)) return;
    // "Date" alone is the function, as people write it.
    const Function* function = expr.qualifier.isEmpty() ? findFunction(expr.name) : nullptr;
    if (!function || function->most != 0) unknownName(expr, scope);
    expr.kind = ExprKind::Call;
    expr.function = function;
    expr.type = date;
}

Binder::Match Binder::findColumn(const Expr& expr, const Scope& scope) const {
    const QString qualifier = nameKey(expr.qualifier);
    for (const Scope* level = &scope; level; level = level->outer) {
        Match match;
        for (const Source* source : level->sources) {
            if (!qualifier.isEmpty() && nameKey(source->name) != qualifier) continue;
            const int column = columnOf(*source, expr.name);
            if (column < 0) continue;
            if (match.source)
                places_.fail(expr.position,
                             u"η στήλη %1 υπάρχει και στον πίνακα «%2» και στον «%3»· περίμενα τον "
                             "πίνακα μπροστά, π.χ. %2.%4"_s.arg(shown(expr.name), match.source->name, source->name,
                                                                expr.name.left(40)));
            match = {source, column};
        }
        if (match.source) return match;
    }
    return {};
}

bool Binder::bindParameter(Expr& expr) {
    if (options_.parameters.isEmpty()) return false;
    const QString key = nameKey(expr.name);
    const auto same = [&](const QString& name) { return nameKey(name) == key; };
    if (std::none_of(options_.parameters.begin(), options_.parameters.end(), same)) return false;
    const auto known = std::find_if(parameters_.begin(), parameters_.end(), same);
    expr.parameter = int(known - parameters_.begin()) + 1;
    if (known == parameters_.end()) parameters_ << expr.name;
    expr.kind = ExprKind::Parameter;
    expr.type = anything;
    return true;
}

void Binder::unknownName(const Expr& expr, const Scope& scope) const {
    QStringList columns;
    QStringList tables;
    const QString qualifier = nameKey(expr.qualifier);
    bool tableKnown = false;
    for (const Scope* level = &scope; level; level = level->outer) {
        for (const Source* source : level->sources) {
            tables << source->name;
            if (!qualifier.isEmpty() && nameKey(source->name) != qualifier) continue;
            tableKnown = true;
            if (source->table)
                for (const ColumnInfo& column : source->table->columns) columns << column.name;
            for (const SourceColumn& column : source->columns) columns << column.name;
        }
    }
    if (qualifier.isEmpty())
        places_.fail(expr.position,
                     u"δεν υπάρχει στήλη ή παράμετρος %1%2"_s.arg(shown(expr.name),
                                                                  suggestion(expr.name, columns + options_.parameters)),
                     ErrorCategory::Parameter);
    if (!tableKnown)
        places_.fail(expr.position, u"ο πίνακας %1 δεν είναι στο FROM%2"_s.arg(shown(expr.qualifier),
                                                                               suggestion(expr.qualifier, tables)));
    places_.fail(expr.position, u"ο πίνακας %1 δεν έχει στήλη %2%3"_s.arg(shown(expr.qualifier), shown(expr.name),
                                                                          suggestion(expr.name, columns)));
}

void Binder::bindCall(Expr& expr, Scope& scope) {
    expr.function = findFunction(expr.name);
    if (!expr.function)
        places_.fail(expr.position,
                     u"δεν υπάρχει συνάρτηση %1%2"_s.arg(shown(expr.name), suggestion(expr.name, functionNames())));
    checkCall(expr, scope);
    const bool before = scope.insideAggregate;
    if (expr.function->isAggregate()) {
        scope.insideAggregate = true;
        if (scope.select) scope.select->grouped = true;
    }
    for (const ExprPtr& argument : expr.arguments) bindExpr(*argument, scope);
    scope.insideAggregate = before;
    expr.type = callType(expr);
}

void Binder::checkCall(const Expr& expr, const Scope& scope) const {
    const Function& function = *expr.function;
    const int count = int(expr.arguments.size()) + (expr.star ? 1 : 0);
    if (expr.star && function.form != FunctionForm::Count)
        places_.fail(expr.position, u"το * δεν είναι όρισμα της συνάρτησης %1"_s.arg(shown(expr.name)));
    if (count < function.least || count > function.most) {
        const QString wanted = function.least == function.most ? QString::number(function.least)
                                                               : u"%1 έως %2"_s.arg(function.least).arg(function.most);
        places_.fail(expr.position,
                     u"η συνάρτηση %1 θέλει ορίσματα: %2, βρήκα %3"_s.arg(shown(expr.name), wanted).arg(count));
    }
    if (function.takes[0] == 'I' && expr.arguments[0]->kind == ExprKind::Literal &&
        !isInterval(expr.arguments[0]->value.toString()))
        places_.fail(expr.arguments[0]->position,
                     u"περίμενα διάστημα yyyy, q, m, y, d, w, ww, h, n ή s, βρήκα %1"_s.arg(
                         shown(expr.arguments[0]->value.toString())));
    if (!function.isAggregate()) return;
    if (!scope.noAggregates.isEmpty())
        places_.fail(expr.position,
                     u"η συνάρτηση συνόλου %1 δεν έχει θέση εδώ (%2)"_s.arg(shown(expr.name), scope.noAggregates));
    if (scope.insideAggregate)
        places_.fail(expr.position, u"η συνάρτηση συνόλου %1 βρίσκεται μέσα σε άλλη"_s.arg(shown(expr.name)));
}

ValueType Binder::callType(const Expr& expr) const {
    const Function& function = *expr.function;
    const auto argument = [&](size_t i) -> const ValueType& { return expr.arguments[i]->type; };
    switch (function.form) {
        case FunctionForm::Iif:
            return commonType(argument(1), argument(2));
        case FunctionForm::Nz:
            if (expr.arguments.size() > 1) return commonType(argument(0), argument(1));
            return argument(0).kind == ValueKind::Null ? whole : argument(0);
        case FunctionForm::Extreme:
        case FunctionForm::Edge:
            return argument(0);
        case FunctionForm::SameType:
            return argument(0).kind == ValueKind::Number ? argument(0) : real;
        default:
            break;
    }
    const int size = function.result == ValueKind::Text && function.type == ColumnType::Text ? longestText : 0;
    return {function.result, function.type, size};
}

}  // namespace data::dialect
