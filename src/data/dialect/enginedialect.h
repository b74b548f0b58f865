// What differs from engine to engine in the text of statements.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <vector>

#include "data/types.h"

namespace data::dialect {

// What a value of a statement is, as far as comparing and computing go. Any is a parameter, whose value is known only
// when the statement runs.
enum class ValueKind { Null, Number, Text, YesNo, Date, Binary, Any };

ValueKind kindOf(ColumnType type);
char kindTag(ValueKind kind);  // the letter by which functions of the engine are told a kind

enum class Arithmetic {
    Divide,            // numbers; never a whole-number division
    WholeDivide,       // numbers, rounded first
    Modulo,            // likewise
    Power,             // numbers
    DatePlusDays,      // date, number
    DateMinusDays,     // date, number
    DatePlusDate,      // a day and a time of day
    DateMinusDate,     // days between
    ConcatenateTexts,  // Null when one is Null
};

// "name", as every engine of standard SQL takes it.
QByteArray quotedIdentifier(QStringView name);

class EngineDialect {
public:
    virtual ~EngineDialect() = default;

    // Statements that build the tables of a TableInfo. `key` is the primary key column or empty; YesNo columns are
    // never Null and start as False.
    virtual QByteArray createTable(const TableInfo& table, const QString& key) const = 0;
    virtual QByteArray addColumn(const TableInfo& table, const ColumnInfo& column) const = 0;
    // An index in the order of the columns, text columns by their fold; the covered columns ride along as they are. A
    // column that the table doesn't have is an expression in this engine's SQL (Connection::indexedExpression).
    virtual QByteArray createIndex(const QString& name, const TableInfo& table, const QStringList& columns,
                                   const QStringList& covered = {}) const = 0;

    // Pieces of statements. The arguments are SQL of this engine; each stands alone or in parentheses when it must, and
    // so must the answer, unless told otherwise.
    virtual QByteArray identifier(QStringView name) const;  // quotedIdentifier
    virtual QByteArray textLiteral(QStringView text) const;
    // Forms of types.h; Null too.
    virtual QByteArray literal(const QVariant& value) const;
    virtual QByteArray dateLiteral(const QDateTime& value) const = 0;
    virtual QByteArray yesNoLiteral(bool value) const = 0;
    virtual QByteArray null(ValueKind kind) const;  // in a place that takes this kind
    // Among the values of a new row, what lets an autonumber take its next one, as a Null does.
    virtual QByteArray nextNumber() const { return "NULL"; }
    virtual QByteArray parameter(int number) const = 0;  // from 1; its type is that of the column it stands beside
    // A named parameter, whose value says its own kind.
    virtual QByteArray untypedParameter(int number) const { return parameter(number); }

    // The folded text, exactly as createIndex renders an indexed text column.
    virtual QByteArray fold(const QByteArray& text) const;
    // `text` is not folded yet, `pattern` is; only % and _ are wildcards.
    virtual QByteArray like(const QByteArray& text, const QByteArray& pattern) const = 0;

    // The same value as another kind: YesNo counts as -1 and 0, a date as days since 1899-12-30, texts are read by
    // Greek rules (Null when they don't read) and written as valueText does.
    virtual QByteArray convert(const QByteArray& value, ValueKind from, ValueKind to) const = 0;
    // What toColumn does, when the value is known only at run time; a failure must carry the same sentence.
    virtual QByteArray intoColumn(const QByteArray& value, ValueKind from, const ColumnInfo& column) const = 0;

    virtual QByteArray arithmetic(Arithmetic operation, const QByteArray& left, const QByteArray& right) const = 0;
    // What follows an operand of + - * so that the result isn't too large for the operand's own narrow type.
    virtual const char* wideCast(ColumnType) const { return ""; }
    // A function of the dialect under its own name in lower case ("dateadd", "left"; "format" and others that take any
    // kind get the kind's tag as their second argument). The aggregates are "min", "max" (for texts), "first", "last".
    virtual QByteArray call(const QByteArray& function, const QVector<QByteArray>& arguments) const;

    // The least of a group's texts by their bytes.
    virtual QByteArray leastSpelling(const QByteArray& text) const { return "min(" + text + ')'; }

    // ORDER BY's term; Null comes before every value.
    virtual QByteArray orderTerm(const QByteArray& key, bool descending) const;
    virtual QByteArray limit(qint64 rows) const;  // with a blank before
    // The same key of ORDER BY, written so that the planner looks for rows by the conditions and sorts what it finds.
    virtual QByteArray sortedAfterwards(const QByteArray& key) const { return key; }
    // A condition on the row identities of `table` (under its quoted name in FROM) that only rows meet in whose word
    // index stand all pieces of one of the alternatives, or more rows than these; empty: the engine finds its word
    // index by itself.
    virtual QByteArray holdsWords(const QByteArray&, const TableInfo&, const std::vector<QStringList>&) const {
        return {};
    }
    // A statement that gives a row for each such row of the table, at most this many.
    virtual QByteArray wordProbe(const TableInfo&, const std::vector<QStringList>&, qint64) const { return {}; }
    // Whether an aggregate takes an ORDER BY of its own; otherwise it gets the rows as they are read.
    virtual bool ordersAggregates() const { return false; }
    // What an INSERT ends with so that ExecuteResult carries the row's identity; with a blank before.
    virtual QByteArray returningIdentity(const TableInfo& table) const;
    // The row identity of a table that stands under this (quoted) name in FROM.
    virtual QByteArray rowIdentity(const QByteArray& source, const TableInfo& table) const;
    // How many bytes a text or binary column holds.
    virtual QByteArray byteSize(const QByteArray& column, ValueKind kind) const;
};

}  // namespace data::dialect
