#include "data/dialect/translator.h"

#include <QHash>

#include "data/dialect/binder.h"
#include "data/dialect/parser.h"
#include "data/dialect/renderer.h"

using namespace Qt::Literals::StringLiterals;

namespace data::dialect {

namespace {

constexpr qsizetype mostOptions = 16;
constexpr qsizetype mostTexts = 2000;
constexpr int carefree = 8;                   // levels that fit whatever they are
constexpr qsizetype longestKept = 32 * 1024;  // a text longer than that hardly comes twice

struct Remembered {
    DialectOptions options;
    QHash<QString, std::shared_ptr<const Translation>> texts;
};

}  // namespace

struct Translator::Private {
    const Catalog& catalog;
    const EngineDialect& dialect;
    ParserLimit limit;
    ColumnIndex columns;
    std::vector<Remembered> remembered;

    Remembered& memoryFor(const DialectOptions& options) {
        for (Remembered& known : remembered)
            if (known.options == options) return known;
        if (remembered.size() >= size_t(mostOptions)) remembered.clear();
        return remembered.emplace_back(Remembered{options, {}});
    }

    std::shared_ptr<const Translation> translate(const QString& sql, const DialectOptions& options) {
        const Places places(sql);
        Parser parser(places, options);
        Statement statement = parser.parse();
        Binder binder(catalog, columns, dialect, options, places);
        binder.bind(statement);
        auto translation = std::make_shared<Translation>();
        Renderer(dialect, places).render(statement, *translation);
        translation->parameters = binder.parameters();
        if (parser.deepest() > carefree) requireRoom(statement, *translation, places, parser.deepestPosition());
        return translation;
    }

    void requireRoom(const Statement& statement, const Translation& translation, const Places& places,
                     qsizetype position) const {
        Translation small;
        if (&dialect != &limit.dialect) Renderer(limit.dialect, places).render(statement, small);
        if (!limit.hasRoomFor(small.sql.isEmpty() ? translation.sql : small.sql))
            places.fail(position,
                        u"η εντολή έχει πάρα πολλά επίπεδα το ένα μέσα στο άλλο· χωρίστε την "
                        "σε μικρότερες"_s);
    }
};

Translator::Translator(const Catalog& catalog, const EngineDialect& dialect, const ParserLimit& limit)
    : d(new Private{catalog, dialect, limit, {}, {}}) {}

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
    const QString sql = u"SELECT "_s + text + u" FROM ["_s + table + u']';
    const Places places(sql);
    Statement statement = Parser(places, {}).parse();
    Binder(d->catalog, d->columns, d->dialect, {}, places).bind(statement);
    Select& select = statement.query->parts[0];
    select.sources[0]->sqlName.clear();
    return Renderer(d->dialect, places).expression(*select.outputs[0].expr);
}

void Translator::clear() {
    d->remembered.clear();
    d->columns.clear();
}

}  // namespace data::dialect
