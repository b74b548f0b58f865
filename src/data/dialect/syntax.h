// The syntax tree of a statement. The parser builds it, the binder fills in what names mean and what types come out.
#pragma once

#include <QString>
#include <QVariant>
#include <memory>
#include <optional>
#include <vector>

#include "data/dialect/enginedialect.h"
#include "data/dialect/translation.h"

namespace data::dialect {

struct ValueType {
    ValueKind kind = ValueKind::Null;
    ColumnType column = ColumnType::Text;  // what callers see
    int size = 255;
};

enum class ExprKind {
    Literal,    // value
    Name,       // qualifier, name; the binder makes it a Column, a Parameter or an Output
    Column,     // source, column
    Parameter,  // number
    Output,     // output: ORDER BY's reference to a column of the result
    Negate,
    Arithmetic,   // operation, two arguments
    Concatenate,  // any number of arguments
    Not,
    And,  // any number of arguments
    Or,   // likewise
    Xor,
    Compare,  // operation
    Like,
    Between,
    In,  // first argument in the others, or in the query
    IsNull,
    Exists,  // query
    Scalar,  // query
    Call,    // name, then function
};

enum class Operator {
    None,
    Add,
    Subtract,
    Multiply,
    Divide,
    WholeDivide,
    Modulo,
    Power,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
};

struct Expr;
struct Query;
struct Source;
struct Function;
using ExprPtr = std::unique_ptr<Expr>;

struct Expr {
    ExprKind kind = ExprKind::Literal;
    Operator operation = Operator::None;
    bool negated = false;  // NOT LIKE, NOT IN, NOT BETWEEN, IS NOT NULL
    bool star = false;     // count(*)
    int height = 1;
    qsizetype position = 0;
    QVariant value;
    QString qualifier;
    QString name;
    std::vector<ExprPtr> arguments;
    std::unique_ptr<Query> query;

    // From the binder.
    ValueType type;
    const Source* source = nullptr;
    int column = -1;
    int parameter = 0;
    const Function* function = nullptr;
    const Expr* output = nullptr;
};

struct SourceColumn {
    QString name;
    ValueType type;
};

// A table or derived table under its name in FROM.
struct Source {
    QString name;                       // alias, or the table's name
    QByteArray sqlName;                 // the same, quoted
    const TableInfo* table = nullptr;   // null for a derived table
    std::vector<SourceColumn> columns;  // of a derived table
};

struct JoinChain;

struct TableRef {
    qsizetype position = 0;
    QString name;
    QString alias;
    std::unique_ptr<Query> query;      // derived table
    std::unique_ptr<JoinChain> group;  // parentheses around joins
    Source source;                     // of a table or derived table
};

enum class JoinKind { Inner, Left, Right };

struct Join {
    JoinKind kind = JoinKind::Inner;
    TableRef table;
    ExprPtr on;
};

struct JoinChain {
    TableRef first;
    std::vector<Join> joins;
};

struct SelectItem {
    qsizetype position = 0;
    bool star = false;
    QString qualifier;  // of the star
    ExprPtr expr;
    QString alias;
};

struct Output {
    ExprPtr expr;
    OutputColumn column;
};

struct Select {
    qsizetype position = 0;
    bool distinct = false;
    std::optional<qint64> top;
    std::vector<SelectItem> items;
    std::vector<JoinChain> from;
    ExprPtr where;
    std::vector<ExprPtr> groupBy;
    ExprPtr having;

    // From the binder.
    std::vector<Output> outputs;
    std::vector<Source*> sources;
    bool grouped = false;  // GROUP BY, HAVING or an aggregate
};

struct OrderTerm {
    ExprPtr key;
    bool descending = false;
};

// One SELECT or a UNION of several.
struct Query {
    std::vector<Select> parts;
    std::vector<bool> keepsDuplicates;  // of the UNION before parts[i + 1]
    std::vector<OrderTerm> orderBy;

    // From the binder: the columns of a UNION, and what its ORDER BY names.
    std::vector<SourceColumn> unionColumns;
    Source unionSource;
};

struct Assignment {
    qsizetype position = 0;
    QString qualifier;
    QString column;
    ExprPtr value;
    int index = -1;  // in the table's columns, from the binder
};

struct Statement {
    StatementKind kind = StatementKind::Select;
    std::unique_ptr<Query> query;         // Select, and Insert from one
    TableRef table;                       // Insert, Update, Delete
    bool namesColumns = false;            // Insert with a list of columns
    std::vector<Assignment> assignments;  // Insert, Update; without values when an Insert has a query
    ExprPtr where;
};

}  // namespace data::dialect
