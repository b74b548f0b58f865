// An engine's statement, and how it was asked for in the dialect.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include "data/types.h"
#include "data/values/format.h"

namespace data::dialect {

enum class StatementKind { Select, Insert, Update, Delete };

struct OutputColumn {
    QString name;                        // the alias, the column's name as the schema spells it, or "Expr1000" and up
    ColumnType type = ColumnType::Text;  // inferred for expressions
    int size = 0;                        // as in ColumnInfo; 255 for text expressions
    int baseColumn = -1;                 // index in the base table's columns, -1 for an expression
};

struct Translation {
    StatementKind kind = StatementKind::Select;
    QByteArray sql;  // for the engine, UTF-8, with ?1, ?2 ... for the parameters
    QVector<OutputColumn> columns;
    // The one table behind a Select whose rows can be updated, empty otherwise. Then the engine's
    // result has one more column behind `columns`: the row identity.
    QString baseTable;
    QStringList parameters;  // names in the order of their numbers, as typed
    // `sql` looks words up first and a period afterwards. When `probe` gives more than `probeLimit` rows there are so
    // many that the other way, `periodFirst`, is the quicker. Both are empty when there is no choice.
    QByteArray probe, periodFirst;
    static constexpr qint64 probeLimit = 5'000;
};

struct DialectOptions {
    DateOrder dateOrder = DateOrder::MonthFirst;  // of #a/b/yyyy#; user-composed SQL says DayFirst
    bool decimalComma = false;                    // 5,5 in a comparison or arithmetic is one number
    bool selectOnly = false;                      // anything but one SELECT is an error (ReadOnly)
    QStringList parameters;                       // names that the caller gives values for
    bool operator==(const DialectOptions&) const = default;
};

}  // namespace data::dialect
