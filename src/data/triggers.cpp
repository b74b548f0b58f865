#include "data/triggers.h"

#include "data/dialect/enginedialect.h"
#include "data/smallrows.h"
#include "data/sqlite/sqlitedialect.h"
#include "data/sqlite/wordindex.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

bool isEmbedded(Engine& engine) {
    return &engine.dialect() == &sqlite::sqliteDialect();
}

}  // namespace

QVector<Trigger> triggers(Engine& engine) {
    const QByteArray sql =
        isEmbedded(engine)
            ? "SELECT name, tbl_name, sql FROM sqlite_schema WHERE type='trigger' ORDER BY name"
            : "SELECT t.tgname::text, c.relname::text, pg_get_triggerdef(t.oid) FROM pg_trigger t JOIN pg_class c ON "
              "c.oid = t.tgrelid WHERE NOT t.tgisinternal AND t.tgname NOT LIKE '\\_%' AND c.relnamespace = "
              "quote_ident(current_schema())::regnamespace ORDER BY 1, 2";
    QVector<Trigger> found;
    for (const QStringList& row : textRows(engine, sql).rows) found += {row[0], row[1], row[2].toUtf8()};
    return found;
}

QVector<Trigger> wordTriggers(Engine& engine, const TableInfo& table, const QVector<int>& columns) {
    QVector<Trigger> wanted;
    if (!isEmbedded(engine)) return wanted;
    for (const auto& [name, sql] : sqlite::wordTriggers(table, columns)) wanted += {name, table.name, sql};
    return wanted;
}

void dropTrigger(Engine& engine, const Trigger& trigger) {
    const QByteArray drop = "DROP TRIGGER IF EXISTS " + engine.dialect().identifier(trigger.name);
    engine.script(isEmbedded(engine) ? drop : drop + " ON " + engine.dialect().identifier(trigger.table));
}

void renewWordIndex(Engine& engine, const TableInfo& table, const QVector<int>& columns) {
    for (const Trigger& trigger : wordTriggers(engine, table, columns)) dropTrigger(engine, trigger);
    const QByteArray index = engine.dialect().identifier(wordIndexName(table));
    engine.script((isEmbedded(engine) ? "DROP TABLE IF EXISTS " : "DROP INDEX IF EXISTS ") + index);
    engine.createWordIndex(table, columns);
}

}  // namespace data
