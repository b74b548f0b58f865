// Builds the syntax tree of one statement.
#pragma once

#include "data/dialect/lexer.h"
#include "data/dialect/syntax.h"

namespace data::dialect {

// Levels of brackets, functions, subqueries and unbracketed chains of arithmetic.
constexpr int deepestNesting = 200;

class Parser {
public:
    Parser(const Places& places, const DialectOptions& options);

    Statement parse();

    // Levels and operations one inside the other, at the most, and where.
    int deepest() const { return deepest_; }
    qsizetype deepestPosition() const { return deepestPosition_; }

private:
    // Statements (parser.cpp).
    std::unique_ptr<Query> query();
    Select select();
    void selectList(Select& select);
    SelectItem selectItem();
    void top(Select& select);
    std::vector<JoinChain> fromList();
    JoinChain joinChain();
    std::optional<JoinKind> joinKeyword();
    TableRef tableRef();
    std::vector<OrderTerm> orderBy();
    Statement insert();
    Statement update();
    Statement remove();
    void namedTable(TableRef& table);
    QString aliasName();
    void statementEnd();

    // Expressions (parserexpressions.cpp), from the loosest binding to the tightest.
    ExprPtr condition();
    ExprPtr exclusiveOr();
    ExprPtr conjunction();
    ExprPtr negation();
    ExprPtr comparison();
    ExprPtr afterOperand(ExprPtr left, bool& found);
    ExprPtr like(ExprPtr left, bool negated);
    ExprPtr between(ExprPtr left, bool negated);
    ExprPtr in(ExprPtr left, bool negated);
    ExprPtr isNull(ExprPtr left);
    ExprPtr concatenation();
    ExprPtr arithmetic(int level);
    ExprPtr signedOperand();
    ExprPtr power();
    ExprPtr primary();
    ExprPtr bracketed();
    ExprPtr number();
    ExprPtr name();
    ExprPtr call(const Token& function);
    ExprPtr date(const Token& token);
    ExprPtr literal(const Token& token, QVariant value);
    std::unique_ptr<Query> bracketedQuery();
    std::vector<ExprPtr> expressionList();

    template <class... Arguments>
    ExprPtr node(ExprKind kind, qsizetype position, Arguments... arguments);
    void grow(Expr& parent, ExprPtr argument);
    void noteDepth(int depth, qsizetype position);

    // Tokens.
    const Token& peek(int ahead = 0) const;
    const Token& take();
    bool at(Sign sign, int ahead = 0) const { return peek(ahead).sign == sign; }
    bool at(Keyword keyword, int ahead = 0) const { return peek(ahead).keyword == keyword; }
    bool accept(Sign sign);
    bool accept(Keyword keyword);
    void expect(Sign sign, const QString& expected);
    void expect(Keyword keyword, const QString& expected);
    bool atReservedWord() const;
    [[noreturn]] void expected(const QString& what) const;

    // Counts nesting while it lives.
    class Level {
    public:
        explicit Level(Parser& parser);
        ~Level() { --parser_.depth_; }

    private:
        Parser& parser_;
    };
    // Whether a comma between digits is a decimal comma while it lives.
    class Commas {
    public:
        Commas(Parser& parser, bool decimal) : parser_(parser), before_(parser.commaIsDecimal_) {
            parser.commaIsDecimal_ = decimal && parser.options_.decimalComma;
        }
        ~Commas() { parser_.commaIsDecimal_ = before_; }

    private:
        Parser& parser_;
        bool before_;
    };

    const Places& places_;
    const DialectOptions& options_;
    std::vector<Token> tokens_;
    size_t at_ = 0;
    int depth_ = 0;
    int deepest_ = 0;
    qsizetype deepestPosition_ = 0;
    bool commaIsDecimal_ = false;
};

}  // namespace data::dialect
