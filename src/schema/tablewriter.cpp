#include "schema/tablewriter.h"

#include "data/dialect/enginedialect.h"
#include "data/values/convert.h"
#include "data/values/format.h"

namespace schema {
namespace {

QVariant stored(const QVariant& value, const data::ColumnInfo& column) {
    const QVariant fitting = data::toColumn(value, column);
    if (!fitting.isValid()) return fitting;
    if (column.type == data::ColumnType::DateTime) return data::dateToSeconds(fitting.toDateTime());
    if (column.type == data::ColumnType::YesNo) return qint64(fitting.toBool());
    return fitting;
}

}  // namespace

TableWriter::TableWriter(data::Connection& connection, const Table& table, const QStringList& columns)
    : engine_(connection.engine()) {
    const data::TableInfo info = tableInfo(table);
    const data::dialect::EngineDialect& dialect = engine_.dialect();
    QByteArrayList names, places;
    for (const QString& name : columns) {
        const int index = info.indexOf(name);
        Q_ASSERT_X(index >= 0, "TableWriter", qPrintable(name));
        columns_ += info.columns[index];
        names += dialect.identifier(info.columns[index].name);
        places += dialect.parameter(int(columns_.size()));
    }
    sql_ = "INSERT INTO " + dialect.identifier(table.name) + " (" + names.join(", ") + ") VALUES (" +
           places.join(", ") + ")" + dialect.returningIdentity(info);
    parameters_.resize(columns_.size());
}

qint64 TableWriter::write(const QVector<QVariant>& values) {
    Q_ASSERT(values.size() == columns_.size());
    for (qsizetype i = 0; i < columns_.size(); ++i) parameters_[i] = stored(values[i], columns_[i]);
    return engine_.execute(sql_, parameters_).lastIdentity;
}

}  // namespace schema
