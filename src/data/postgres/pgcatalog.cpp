#include "data/postgres/pgcatalog.h"

#include "data/postgres/pgdialect.h"
#include "data/smallrows.h"

using namespace Qt::Literals::StringLiterals;

namespace data::postgres {
namespace {

ColumnInfo columnOf(const QString& name, const QString& type, int modifier, bool identity) {
    static const QHash<QString, ColumnType> types = {
        {u"int8"_s, ColumnType::Long},       {u"int4"_s, ColumnType::Long},
        {u"int2"_s, ColumnType::Integer},    {u"float4"_s, ColumnType::Single},
        {u"float8"_s, ColumnType::Double},   {u"numeric"_s, ColumnType::Double},
        {u"bool"_s, ColumnType::YesNo},      {u"timestamp"_s, ColumnType::DateTime},
        {u"bytea"_s, ColumnType::LongBinary}};
    constexpr int modifierHead = 4;
    ColumnInfo column;
    column.name = name;
    column.type = identity ? ColumnType::Autonumber : types.value(type, ColumnType::Memo);
    if (type == u"varchar" && modifier > modifierHead) {
        column.type = ColumnType::Text;
        column.size = modifier - modifierHead;
    }
    return column;
}

// The names of the columns of each word index, by the index's name.
QHash<QString, QStringList> readWordIndexes(Engine& engine) {
    const TextRows found =
        textRows(engine,
                 "SELECT c.relname::text, obj_description(c.oid, 'pg_class') FROM pg_class c WHERE c.relnamespace = "
                 "quote_ident(current_schema())::regnamespace AND c.relkind = 'i' AND c.relname LIKE '\\_%\\_words'");
    QHash<QString, QStringList> columns;
    for (const QStringList& row : found.rows) columns.insert(row[0], row[1].split(u'\n'));
    return columns;
}

}  // namespace

Catalog readPgCatalog(Engine& engine) {
    const TextRows found = textRows(
        engine,
        "SELECT c.relname::text, coalesce(col_description(c.oid, a.attnum), a.attname::text), a.attname::text, "
        "t.typname::text, a.atttypmod, (a.attidentity <> '')::integer "
        "FROM pg_class c JOIN pg_attribute a ON a.attrelid = c.oid JOIN pg_type t ON t.oid = a.atttypid "
        "WHERE c.relnamespace = quote_ident(current_schema())::regnamespace AND c.relkind IN ('r', 'p') AND a.attnum > "
        "0 AND NOT "
        "a.attisdropped AND c.relname NOT LIKE '\\_%' ORDER BY c.relname COLLATE \"C\", a.attnum");
    const QHash<QString, QStringList> words = readWordIndexes(engine);
    Catalog catalog;
    TableInfo table;
    const auto finish = [&] {
        if (table.name.isEmpty()) return;
        if (const auto index = words.constFind(wordIndexName(table)); index != words.constEnd()) {
            table.words.name = index.key();
            for (const QString& column : *index) table.words.columns += table.indexOf(column);
        }
        catalog.add(table);
    };
    for (const QStringList& row : found.rows) {
        if (row[0] != table.name) {
            finish();
            table = {};
            table.name = row[0];
        }
        const bool identity = row[5] == u"1";
        if (identity) table.rowIdentity = row[2];
        if (row[2].startsWith(u'_')) continue;
        // Only a cut name has its full form in the comment; any other comment is somebody's remark.
        const QString name = pgName(row[1]) == row[2].toUtf8() ? row[1] : row[2];
        if (identity) table.autonumber = int(table.columns.size());
        table.columns.append(columnOf(name, row[3], row[4].toInt(), identity));
    }
    finish();
    return catalog;
}

QHash<QString, QString> readPgIndexes(Engine& engine) {
    const TextRows found = textRows(
        engine,
        "SELECT c.relname::text, coalesce(obj_description(c.oid, 'pg_class'), '') FROM pg_class c JOIN pg_index i ON "
        "i.indexrelid = c.oid WHERE c.relnamespace = quote_ident(current_schema())::regnamespace AND c.relname NOT "
        "LIKE '\\_%' AND "
        "NOT "
        "EXISTS (SELECT * FROM pg_constraint WHERE conindid = c.oid)");
    QHash<QString, QString> indexes;
    for (const QStringList& row : found.rows) indexes.insert(row[0], row[1]);
    return indexes;
}

}  // namespace data::postgres
