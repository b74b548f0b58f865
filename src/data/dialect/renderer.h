// Writes a bound syntax tree in an engine's language.
#pragma once

#include "data/dialect/places.h"
#include "data/dialect/syntax.h"

namespace data::dialect {

class Renderer {
public:
    Renderer(const EngineDialect& dialect, const Places& places) : dialect_(dialect), places_(places) {}

    // Fills in everything but the parameters.
    void render(const Statement& statement, Translation& translation);

    // As it compares and sorts.
    QByteArray expression(const Expr& expr) { return key(expr); }

private:
    // How tightly a piece of SQL binds, in the order that all engines share.
    enum Level { Loose, Or, And, Not, Comparison, Sum, Product, Unary, Whole };
    struct Piece {
        QByteArray sql;
        Level level = Whole;
    };
    struct Replacement {
        const Expr* expr;
        QByteArray sql;
    };
    // While a grouped or distinct result is rendered: what stands for a grouped expression, and the
    // complaint about a column that isn't one.
    struct Replacements {
        std::vector<Replacement> list;
        QString otherwise;
        const Select* select = nullptr;  // the grouped one
        bool active = false;
    };
    class Without;  // renders without replacements while it lives
    class Inside;   // likewise, in a query inside another

    // Statements (renderer.cpp).
    void renderInsert(const Statement& statement, Translation& translation);
    void renderUpdate(const Statement& statement, Translation& translation);
    void renderDelete(const Statement& statement, Translation& translation);
    QByteArray insertedQuery(const Statement& statement);
    QByteArray assigned(const Expr& value, const ColumnInfo& column);
    QByteArray target(const TableRef& table) const;
    QByteArray query(const Query& query, bool named, const Source* identityOf = nullptr);
    QByteArray plainSelect(const Query& query, bool named, const Source* identityOf);
    QByteArray distinctSelect(const Query& query, bool named);
    QByteArray unionSelect(const Query& query, bool named);
    QByteArray selectBody(const Select& select, bool named, const std::vector<SourceColumn>* types,
                          const Source* identityOf);
    std::vector<QByteArray> columnKeys(const std::vector<SourceColumn>& columns) const;
    QByteArray withoutDuplicates(const QByteArray& rows, const std::vector<SourceColumn>& columns, bool named);
    QByteArray from(const Select& select);
    QByteArray chain(const JoinChain& chain);
    QByteArray tableRef(const TableRef& table);
    QByteArray where(const Select& select);
    QByteArray orderBy(const Query& query, bool afterwards = false);
    bool orderShows(const Query& query) const;
    QByteArray completeOrder(const Query& query);
    QByteArray rowOrder(const Select& select, QByteArray before, bool afterwards = false,
                        bool descending = false) const;
    QByteArray groupOrder(const Query& query);
    QByteArray outputOrder(const Query& query, const std::vector<QByteArray>& keys, QByteArray before) const;
    void startGrouping(const Select& select);

    // Expressions (renderexpressions.cpp).
    Piece piece(const Expr& expr);
    Piece plainPiece(const Expr& expr);
    const Replacements* groupOf(const Expr& expr) const;
    QByteArray innerQuery(const Query& inner, bool named);
    QByteArray sql(const Expr& expr, Level atLeast);
    QByteArray condition(const Expr& expr, Level atLeast = Loose);
    Piece junction(const Expr& expr, size_t first, size_t last);
    Piece arithmetic(const Expr& expr);
    QByteArray operand(const Expr& expr, Level atLeast);
    Piece concatenate(const Expr& expr);
    QByteArray columnSql(const Source& source, int column) const;
    QByteArray call(const Expr& expr);
    QByteArray aggregate(const Expr& expr);
    QByteArray argument(const Expr& expr, char takes);
    QByteArray choice(const Expr& expr);
    // The value as another kind; a literal is converted here and refused when it doesn't read. `partner` is
    // what it is compared with, for the error text.
    QByteArray as(const Expr& expr, ValueKind kind, Level atLeast, const Expr* partner = nullptr);
    QVariant convertLiteral(const Expr& literal, ValueKind kind, const Expr* partner) const;
    QByteArray folded(const Expr& expr);
    QByteArray key(const Expr& expr);  // for grouping and sorting

    // Comparisons (comparisons.cpp).
    Piece compare(const Expr& left, const Expr& right, Operator operation, qsizetype position);
    Piece comparePart(const Expr& expr);
    Piece between(const Expr& expr);
    Piece in(const Expr& expr);
    Piece inQuery(const Expr& expr);
    Piece like(const Expr& expr);
    ValueKind comparisonKind(const Expr& left, const Expr& right, Operator operation, qsizetype position) const;
    QByteArray comparable(const Expr& expr, ValueKind kind, const Expr& partner);

    const EngineDialect& dialect_;
    const Places& places_;
    Replacements replacements_;
    std::vector<Replacements> groupsAround_;  // of the queries outside
    const Query* top_ = nullptr;              // the statement's own, not one inside it
    bool looksUpWords_ = true;
    QByteArray probe_;
};

bool sameExpr(const Expr& a, const Expr& b);

}  // namespace data::dialect
