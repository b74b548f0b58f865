#include <QHash>

#include "data/dialect/binder.h"
#include "data/dialect/parser.h"
#include "data/dialect/renderer.h"
#include "data/dialect/translation.h"

namespace data {

namespace {

constexpr qsizetype mostOptions = 16;
constexpr qsizetype mostTexts = 2000;
constexpr qsizetype longestKept = 32 * 1024;  // a text longer than that hardly comes twice

struct Remembered {
    DialectOptions options;
    QHash<QString, std::shared_ptr<const Translation>> texts;
};

}  // namespace

struct Translator::Private {
    const Catalog& catalog;
    const EngineDialect& dialect;
    dialect::ColumnIndex columns;
    std::vector<Remembered> remembered;

    Remembered& memoryFor(const DialectOptions& options) {
        for (Remembered& known : remembered)
            if (known.options == options) return known;
        if (remembered.size() >= size_t(mostOptions)) remembered.clear();
        return remembered.emplace_back(Remembered{options, {}});
    }

    std::shared_ptr<const Translation> translate(const QString& sql, const DialectOptions& options) {
        const dialect::Places places(sql);
        dialect::Statement statement = dialect::Parser(places, options).parse();
        dialect::Binder binder(catalog, columns, dialect, options, places);
        binder.bind(statement);
        auto translation = std::make_shared<Translation>();
        dialect::Renderer(dialect, places).render(statement, *translation);
        translation->parameters = binder.parameters();
        return translation;
    }
};

Translator::Translator(const Catalog& catalog, const EngineDialect& dialect)
    : d(new Private{catalog, dialect, {}, {}}) {}

Translator::~Translator() = default;

std::shared_ptr<const Translation> Translator::translate(const QString& sql, const DialectOptions& options) {
    Remembered& memory = d->memoryFor(options);
    if (const auto known = memory.texts.constFind(sql); known != memory.texts.constEnd()) return *known;
    std::shared_ptr<const Translation> translation = d->translate(sql, options);
    if (sql.size() > longestKept) return translation;
    if (memory.texts.size() >= mostTexts) memory.texts.clear();
    memory.texts.insert(sql, translation);
    return translation;
}

QByteArray Translator::expression(const QString& table, const QString& text) {
    const QString sql = QStringLiteral("SELECT ") + text + QStringLiteral(" FROM [") + table + u']';
    const dialect::Places places(sql);
    dialect::Statement statement = dialect::Parser(places, {}).parse();
    dialect::Binder(d->catalog, d->columns, d->dialect, {}, places).bind(statement);
    dialect::Select& select = statement.query->parts[0];
    select.sources[0]->sqlName.clear();
    return dialect::Renderer(d->dialect, places).expression(*select.outputs[0].expr);
}

void Translator::clear() {
    d->remembered.clear();
    d->columns.clear();
}

}  // namespace data
