// A database of either engine with all tables of an office, both kinds' in one, for tests of translated statements.
#pragma once

#include <QMap>
#include <QStringList>
#include <QTemporaryDir>

#include "data/dialect/translator.h"
#include "data/engine.h"
#include "support/testengine.h"

class DialectDatabase {
public:
    enum class Engine { OfTheRun, Sqlite };

    explicit DialectDatabase(Engine engine = Engine::OfTheRun);
    ~DialectDatabase();
    DialectDatabase(const DialectDatabase&) = delete;
    DialectDatabase& operator=(const DialectDatabase&) = delete;

    // Translates and runs; rows as "a|b / c|d", Null as "-", values as a user reads them. Of an UPDATE and its kin,
    // the number of rows. Failures throw data::Error.
    QString run(const QString& sql, const data::dialect::DialectOptions& options = {},
                const QMap<QString, QVariant>& parameters = {});
    // Throws when the engine doesn't take the statement; nothing is run.
    void prepare(const data::dialect::Translation& translation);
    // The engine's plan of a statement, in one line.
    QString plan(const QString& sql);
    void engine(const QByteArray& sql);
    void empty();  // takes all rows away and begins to count again

    const data::dialect::EngineDialect& dialect() const;

    data::dialect::Translator& translator() { return *translator_; }
    const data::Catalog& catalog() const { return catalog_; }

private:
    QTemporaryDir folder_;
    std::unique_ptr<testengine::Schema> schema_;
    std::unique_ptr<data::Engine> engine_;
    data::Catalog catalog_;
    std::unique_ptr<data::dialect::Translator> translator_;
};
