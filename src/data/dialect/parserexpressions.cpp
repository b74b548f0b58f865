#include <array>
#include <cmath>

#include "data/dialect/parser.h"

using namespace Qt::Literals::StringLiterals;

namespace data::dialect {

template <class... Arguments>
ExprPtr Parser::node(ExprKind kind, qsizetype position, Arguments... arguments) {
    auto expr = std::make_unique<Expr>();
    expr->kind = kind;
    expr->position = position;
    (grow(*expr, std::move(arguments)), ...);
    return expr;
}

// The height is kept on the way up, since chains of operations grow without nesting.
void Parser::grow(Expr& parent, ExprPtr argument) {
    parent.height = std::max(parent.height, argument->height + 1);
    if (parent.height > deepestNesting)
        places_.fail(
            parent.position,
            u"η έκφραση είναι πολύ μεγάλη· περίμενα το πολύ %1 πράξεις τη μία πάνω στην άλλη"_s.arg(deepestNesting));
    noteDepth(depth_ + parent.height, parent.position);
    parent.arguments.push_back(std::move(argument));
}

void Parser::noteDepth(int depth, qsizetype position) {
    if (depth <= deepest_) return;
    deepest_ = depth;
    deepestPosition_ = position;
}

std::vector<ExprPtr> Parser::expressionList() {
    std::vector<ExprPtr> list;
    do {
        list.push_back(condition());
    } while (accept(Sign::Comma));
    return list;
}

ExprPtr Parser::condition() {
    const Level level(*this);
    ExprPtr left = exclusiveOr();
    if (!at(Keyword::Or)) return left;
    ExprPtr all = node(ExprKind::Or, peek().position, std::move(left));
    while (accept(Keyword::Or)) grow(*all, exclusiveOr());
    return all;
}

ExprPtr Parser::exclusiveOr() {
    ExprPtr left = conjunction();
    while (at(Keyword::Xor)) {
        const qsizetype position = take().position;
        ExprPtr right = conjunction();
        left = node(ExprKind::Xor, position, std::move(left), std::move(right));
    }
    return left;
}

ExprPtr Parser::conjunction() {
    ExprPtr left = negation();
    if (!at(Keyword::And)) return left;
    ExprPtr all = node(ExprKind::And, peek().position, std::move(left));
    while (accept(Keyword::And)) grow(*all, negation());
    return all;
}

ExprPtr Parser::negation() {
    const qsizetype position = peek().position;
    bool negated = false;
    while (accept(Keyword::Not)) negated = !negated;
    ExprPtr operand = comparison();
    return negated ? node(ExprKind::Not, position, std::move(operand)) : std::move(operand);
}

static Operator comparisonOf(Sign sign) {
    switch (sign) {
        case Sign::Equal:
            return Operator::Equal;
        case Sign::NotEqual:
            return Operator::NotEqual;
        case Sign::Less:
            return Operator::Less;
        case Sign::LessEqual:
            return Operator::LessEqual;
        case Sign::Greater:
            return Operator::Greater;
        case Sign::GreaterEqual:
            return Operator::GreaterEqual;
        default:
            return Operator::None;
    }
}

ExprPtr Parser::comparison() {
    ExprPtr left = concatenation();
    bool found = true;
    while (found) left = afterOperand(std::move(left), found);
    return left;
}

ExprPtr Parser::afterOperand(ExprPtr left, bool& found) {
    if (const Operator operation = comparisonOf(peek().sign); operation != Operator::None) {
        const qsizetype position = take().position;
        ExprPtr right = concatenation();
        left = node(ExprKind::Compare, position, std::move(left), std::move(right));
        left->operation = operation;
        return left;
    }
    if (at(Keyword::Is)) return isNull(std::move(left));
    const bool negated = at(Keyword::Not);
    switch (peek(negated ? 1 : 0).keyword) {
        case Keyword::Like:
            return like(std::move(left), negated);
        case Keyword::Between:
            return between(std::move(left), negated);
        case Keyword::In:
            return in(std::move(left), negated);
        default:
            break;
    }
    if (negated) {
        take();
        expected(u"LIKE, BETWEEN ή IN μετά το NOT"_s);
    }
    found = false;
    return left;
}

ExprPtr Parser::like(ExprPtr left, bool negated) {
    if (negated) take();
    const qsizetype position = take().position;
    ExprPtr pattern = concatenation();
    ExprPtr expr = node(ExprKind::Like, position, std::move(left), std::move(pattern));
    expr->negated = negated;
    return expr;
}

ExprPtr Parser::between(ExprPtr left, bool negated) {
    if (negated) take();
    const qsizetype position = take().position;
    ExprPtr low = concatenation();
    expect(Keyword::And, u"AND με το άνω όριο του BETWEEN"_s);
    ExprPtr high = concatenation();
    ExprPtr expr = node(ExprKind::Between, position, std::move(left), std::move(low), std::move(high));
    expr->negated = negated;
    return expr;
}

ExprPtr Parser::in(ExprPtr left, bool negated) {
    if (negated) take();
    const qsizetype position = take().position;
    ExprPtr expr = node(ExprKind::In, position, std::move(left));
    expr->negated = negated;
    if (at(Sign::Open) && at(Keyword::Select, 1)) {
        expr->query = bracketedQuery();
        return expr;
    }
    expect(Sign::Open, u"παρένθεση με τις τιμές του IN"_s);
    const Commas commas(*this, false);
    for (ExprPtr& item : expressionList()) grow(*expr, std::move(item));
    expect(Sign::Close, u"κόμμα ή παρένθεση που να κλείνει το IN"_s);
    return expr;
}

ExprPtr Parser::isNull(ExprPtr left) {
    const qsizetype position = take().position;
    const bool negated = accept(Keyword::Not);
    expect(Keyword::Null, negated ? u"NULL"_s : u"NULL ή NOT NULL"_s);
    ExprPtr expr = node(ExprKind::IsNull, position, std::move(left));
    expr->negated = negated;
    return expr;
}

ExprPtr Parser::concatenation() {
    ExprPtr left = arithmetic(0);
    if (!at(Sign::Ampersand)) return left;
    ExprPtr all = node(ExprKind::Concatenate, peek().position, std::move(left));
    while (accept(Sign::Ampersand)) grow(*all, arithmetic(0));
    return all;
}

// Levels: 0 is + and -, 1 is MOD, 2 is \, 3 is * and /.
static Operator arithmeticAt(const Token& token, int level) {
    switch (token.sign) {
        case Sign::Plus:
            return level == 0 ? Operator::Add : Operator::None;
        case Sign::Minus:
            return level == 0 ? Operator::Subtract : Operator::None;
        case Sign::Backslash:
            return level == 2 ? Operator::WholeDivide : Operator::None;
        case Sign::Star:
            return level == 3 ? Operator::Multiply : Operator::None;
        case Sign::Slash:
            return level == 3 ? Operator::Divide : Operator::None;
        default:
            return level == 1 && token.keyword == Keyword::Mod ? Operator::Modulo : Operator::None;
    }
}

ExprPtr Parser::arithmetic(int level) {
    if (level > 3) return signedOperand();
    ExprPtr left = arithmetic(level + 1);
    while (true) {
        const Operator operation = arithmeticAt(peek(), level);
        if (operation == Operator::None) return left;
        const qsizetype position = take().position;
        ExprPtr right = arithmetic(level + 1);
        left = node(ExprKind::Arithmetic, position, std::move(left), std::move(right));
        left->operation = operation;
    }
}

ExprPtr Parser::signedOperand() {
    const qsizetype position = peek().position;
    bool negative = false;
    while (at(Sign::Minus) || at(Sign::Plus)) negative ^= take().sign == Sign::Minus;
    ExprPtr operand = power();
    if (!negative) return operand;
    if (operand->kind == ExprKind::Literal && operand->value.typeId() == QMetaType::LongLong) {
        operand->value = -operand->value.toLongLong();
        return operand;
    }
    if (operand->kind == ExprKind::Literal && operand->value.typeId() == QMetaType::Double) {
        operand->value = -operand->value.toDouble();
        return operand;
    }
    return node(ExprKind::Negate, position, std::move(operand));
}

ExprPtr Parser::power() {
    ExprPtr left = primary();
    while (at(Sign::Caret)) {
        const qsizetype position = take().position;
        const bool negative = accept(Sign::Minus);
        ExprPtr right = primary();
        if (negative) right = node(ExprKind::Negate, position, std::move(right));
        left = node(ExprKind::Arithmetic, position, std::move(left), std::move(right));
        left->operation = Operator::Power;
    }
    return left;
}

ExprPtr Parser::primary() {
    switch (peek().kind) {
        case TokenKind::Number:
            return number();
        case TokenKind::Text: {
            const Token& token = take();
            return literal(token, textOf(token));
        }
        case TokenKind::Date:
            return date(take());
        case TokenKind::Word:
        case TokenKind::Bracketed:
            return name();
        case TokenKind::Sign:
            if (at(Sign::Open)) return bracketed();
            break;
        case TokenKind::End:
            break;
    }
    expected(u"τιμή, στήλη ή συνάρτηση"_s);
}

ExprPtr Parser::bracketed() {
    if (at(Keyword::Select, 1)) {
        ExprPtr expr = node(ExprKind::Scalar, peek().position);
        expr->query = bracketedQuery();
        return expr;
    }
    take();
    ExprPtr inner = condition();
    expect(Sign::Close, u"πράξη ή παρένθεση που να κλείνει"_s);
    return inner;
}

std::unique_ptr<Query> Parser::bracketedQuery() {
    take();
    const Commas commas(*this, false);
    std::unique_ptr<Query> inner = query();
    expect(Sign::Close, u"παρένθεση που να κλείνει το SELECT"_s);
    return inner;
}

static bool isDigits(const Token& token) {
    return token.kind == TokenKind::Number &&
           std::all_of(token.source.begin(), token.source.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

ExprPtr Parser::number() {
    const Token& token = take();
    QString text = token.source.toString();
    const bool decimalComma = commaIsDecimal_ && isDigits(token) && at(Sign::Comma) && isDigits(peek(1)) &&
                              peek().position == token.end() && peek(1).position == token.end() + 1;
    if (decimalComma) {
        take();
        text += u'.' + take().source.toString();
    }
    bool ok = false;
    if (!decimalComma && isDigits(token)) {
        // Beyond that a double, as all arithmetic is, can't tell neighbours apart.
        constexpr qint64 farthest = qint64(1) << 53;
        const qint64 whole = text.toLongLong(&ok);
        if (ok && whole <= farthest) return literal(token, whole);
    }
    const double real = text.toDouble(&ok);
    if (!ok || !std::isfinite(real))
        places_.fail(token.position, u"ο αριθμός %1 είναι πολύ μεγάλος"_s.arg(shown(token.source)),
                     ErrorCategory::Type);
    return literal(token, real);
}

ExprPtr Parser::literal(const Token& token, QVariant value) {
    ExprPtr expr = node(ExprKind::Literal, token.position);
    expr->value = std::move(value);
    return expr;
}

ExprPtr Parser::date(const Token& token) {
    const std::optional<QDateTime> value = parseDate(token.content.trimmed(), options_.dateOrder);
    if (!value)
        places_.fail(token.position, u"περίμενα ημερομηνία ή ώρα ανάμεσα στα #, βρήκα %1"_s.arg(shown(token.source)));
    return literal(token, *value);
}

ExprPtr Parser::name() {
    if (atReservedWord()) expected(u"τιμή, στήλη ή συνάρτηση"_s);
    const bool opens = at(Sign::Open, 1);
    if (at(Keyword::Exists) && opens && at(Keyword::Select, 2)) {
        ExprPtr expr = node(ExprKind::Exists, take().position);
        expr->query = bracketedQuery();
        return expr;
    }
    const Token& token = take();
    if (token.kind == TokenKind::Word && !at(Sign::Dot) && !opens) {
        if (token.keyword == Keyword::Null) return literal(token, {});
        if (token.keyword == Keyword::True) return literal(token, true);
        if (token.keyword == Keyword::False) return literal(token, false);
    }
    if (token.kind == TokenKind::Word && opens) return call(token);
    ExprPtr expr = node(ExprKind::Name, token.position);
    expr->name = token.content.toString();
    if (accept(Sign::Dot)) {
        if (!peek().isName()) expected(u"όνομα στήλης μετά την τελεία"_s);
        expr->qualifier = std::move(expr->name);
        expr->name = take().content.toString();
    }
    return expr;
}

ExprPtr Parser::call(const Token& function) {
    ExprPtr expr = node(ExprKind::Call, function.position);
    expr->name = function.content.toString();
    take();
    const Commas commas(*this, false);
    if (accept(Sign::Star)) {
        expr->star = true;
    } else if (!at(Sign::Close)) {
        for (ExprPtr& argument : expressionList()) grow(*expr, std::move(argument));
    }
    expect(Sign::Close, u"κόμμα ή παρένθεση που να κλείνει τη συνάρτηση"_s);
    return expr;
}

}  // namespace data::dialect
