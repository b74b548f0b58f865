// From the dialect's text to an engine's statement.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <QVector>
#include <memory>

#include "data/error.h"
#include "data/types.h"
#include "data/values/format.h"

namespace data {

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

// What differs from engine to engine; the renderer asks it wherever it has to name an engine's own thing.
class EngineDialect;

// Translates for one connection and remembers what it translated, by text. Not thread-safe.
class Translator {
public:
    // The catalog and the dialect are the connection's and must outlive the translator.
    Translator(const Catalog& catalog, const EngineDialect& dialect);
    ~Translator();

    // The statement in the engine's language. Errors are thrown as Error(Syntax, Parameter, Type, ReadOnly) whose
    // Greek text names the place (line and column when the text has several lines, else the character's
    // number from 1) and what was expected. The answer lives until the next clear().
    std::shared_ptr<const Translation> translate(const QString& sql, const DialectOptions& options = {});

    // One expression over the columns of a table, for an index on it: rendered as a statement compares and sorts
    // it, but without the table's name.
    QByteArray expression(const QString& table, const QString& text);

    void clear();  // after the catalog changed

private:
    struct Private;
    std::unique_ptr<Private> d;
};

}  // namespace data
