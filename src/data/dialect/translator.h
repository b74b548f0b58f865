// From the dialect's text to an engine's statement.
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

#include "data/dialect/enginedialect.h"
#include "data/dialect/translation.h"
#include "data/types.h"

namespace data::dialect {

// The engine whose parser takes the least nesting. An office may move from one engine to the other, so what that one
// can't take, none takes.
struct ParserLimit {
    const EngineDialect& dialect;
    // Anything else about a statement than its nesting isn't asked.
    bool (*hasRoomFor)(const QByteArray& sql);
};

// Translates for one connection and remembers what it translated, by text. Not thread-safe.
class Translator {
public:
    // The catalog and the dialects must outlive the translator.
    Translator(const Catalog& catalog, const EngineDialect& dialect, const ParserLimit& limit);
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

}  // namespace data::dialect
