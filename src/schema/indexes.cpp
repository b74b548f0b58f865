#include "schema/indexes.h"

#include "data/dialect/enginedialect.h"

namespace schema {

QByteArray indexSql(data::Connection& connection, const Table& table, const Index& index) {
    const data::TableInfo info = tableInfo(table);
    QStringList parts;
    for (const QString& part : index.columns)
        parts += info.indexOf(part) >= 0 ? part : QString::fromUtf8(connection.indexedExpression(table.name, part));
    return connection.engine().dialect().createIndex(index.name, info, parts, index.covered);
}

QVector<int> wordColumns(const Table& table, const data::TableInfo& info) {
    QVector<int> columns;
    for (const QString& column : table.words.columns) columns += info.indexOf(column);
    return columns;
}

void createIndexes(data::Connection& connection, const Table& table, int from, int to) {
    data::Engine& engine = connection.engine();
    for (const Index& index : table.indexes) {
        if (index.since < from && index.in(from - 1) && !index.in(to))
            engine.script("DROP INDEX " + engine.dialect().identifier(index.name));
        if (index.since >= from && index.in(to)) engine.createIndex(index.name, indexSql(connection, table, index));
    }
    if (!table.words.columns.isEmpty() && table.words.since >= from && table.words.since <= to) {
        const data::TableInfo& info = *connection.catalog().find(table.name);
        engine.createWordIndex(info, wordColumns(table, info));
    }
}

}  // namespace schema
