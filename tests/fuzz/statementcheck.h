// What must hold of whatever text the translator is given; shared by the fuzzer and the test that replays its corpus.
#pragma once

#include "data/dialectdatabase.h"

class StatementCheck {
public:
    StatementCheck();

    // What is wrong, or an empty text. The first byte of `input` chooses the options, the rest is the statement in
    // UTF-8. Right is: an error that names its place inside the statement, the same for both engines, or a translation
    // for both that SQLite takes.
    QString fault(const QByteArray& input);

    int translated() const { return translated_; }

private:
    struct Outcome {
        std::shared_ptr<const data::dialect::Translation> translation;
        QString error;
        int category = -1;
    };
    static Outcome outcome(data::dialect::Translator& translator, const QString& sql,
                           const data::dialect::DialectOptions& options);
    QString prepareFault(const data::dialect::Translation& translation);

    DialectDatabase database_{DialectDatabase::Engine::Sqlite};
    data::Catalog serverCatalog_;
    data::dialect::Translator server_;
    data::Catalog wordedCatalog_;  // every text in a word index
    data::dialect::Translator worded_;
    int translated_ = 0;
};
