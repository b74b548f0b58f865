// Gives every name of a syntax tree its meaning and every expression its type.
#pragma once

#include <QHash>

#include "data/dialect/places.h"
#include "data/dialect/syntax.h"

namespace data::dialect {

// Columns of the catalog's tables by nameKey, built when a table is first named.
class ColumnIndex {
public:
    int find(const TableInfo& table, const QString& name);
    void clear() { byTable_.clear(); }

private:
    QHash<const TableInfo*, QHash<QString, int>> byTable_;
};

class Binder {
public:
    Binder(const Catalog& catalog, ColumnIndex& index, const EngineDialect& dialect, const DialectOptions& options,
           const Places& places)
        : catalog_(catalog), index_(index), dialect_(dialect), options_(options), places_(places) {}

    void bind(Statement& statement);

    const QStringList& parameters() const { return parameters_; }

private:
    struct Scope {
        const Scope* outer = nullptr;
        std::vector<Source*> sources;
        Select* select = nullptr;  // told when it holds an aggregate
        QString noAggregates;      // where in the statement an aggregate can't stand
        bool insideAggregate = false;
    };
    struct Match {
        const Source* source = nullptr;
        int column = -1;
    };

    // Statements (binder.cpp).
    void bindQuery(Query& query, const Scope* outer);
    void bindSelect(Select& select, Scope& scope);
    void bindFrom(Select& select, Scope& scope);
    void bindChain(JoinChain& chain, Scope& scope);
    void bindTableRef(TableRef& table, Scope& scope);
    void addSource(TableRef& table, Scope& scope);
    void bindTable(TableRef& table);
    void expandItem(Select& select, SelectItem& item, Scope& scope);
    void expandStar(Select& select, const SelectItem& item);
    void nameOutputs(Select& select);
    void bindUnion(Query& query);
    void bindOrder(Query& query, Scope& scope);
    bool bindOutputName(OrderTerm& term, const std::vector<Output>& outputs);
    void bindInsert(Statement& statement);
    void bindUpdate(Statement& statement, Scope& scope);
    int tableColumn(const TableRef& table, const Assignment& assignment);

    // Expressions (bindexpressions.cpp).
    void bindExpr(Expr& expr, Scope& scope);
    void bindName(Expr& expr, const Scope& scope);
    Match findColumn(const Expr& expr, const Scope& scope) const;
    bool bindParameter(Expr& expr);
    [[noreturn]] void unknownName(const Expr& expr, const Scope& scope) const;
    void bindCall(Expr& expr, Scope& scope);
    void checkCall(const Expr& expr, const Scope& scope) const;
    ValueType callType(const Expr& expr) const;
    ValueType arithmeticType(const Expr& expr) const;
    void bindSubquery(Expr& expr, Scope& scope);
    ValueType columnType(const Source& source, int column) const;
    int columnOf(const Source& source, const QString& name) const;

    const Catalog& catalog_;
    ColumnIndex& index_;
    const EngineDialect& dialect_;
    const DialectOptions& options_;
    const Places& places_;
    QStringList parameters_;
};

// One type for values of two, as in a UNION or a choice.
ValueType commonType(const ValueType& a, const ValueType& b);

ValueType literalType(const QVariant& value);

}  // namespace data::dialect
