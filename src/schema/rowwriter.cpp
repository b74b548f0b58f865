#include "schema/rowwriter.h"

#include "data/convert.h"
#include "data/format.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;

QString quoted(QString name) { return u'"' + name.replace(u'"', u"\"\""_s) + u'"'; }

QVariant stored(const QVariant& value, const data::ColumnInfo& column) {
    const QVariant fitting = data::toColumn(value, column);
    if (!fitting.isValid()) return fitting;
    if (column.type == data::ColumnType::DateTime) return data::dateToSeconds(fitting.toDateTime());
    if (column.type == data::ColumnType::YesNo) return qint64(fitting.toBool());
    return fitting;
}

}  // namespace

RowWriter::RowWriter(data::Connection& connection, const Table& table, const QStringList& columns)
    : engine_(connection.engine()) {
    const data::TableInfo info = tableInfo(table);
    QStringList names, places;
    for (const QString& name : columns) {
        const int index = info.indexOf(name);
        Q_ASSERT_X(index >= 0, "RowWriter", qPrintable(name));
        columns_ += info.columns[index];
        names += quoted(info.columns[index].name);
        places += u'?' + QString::number(columns_.size());
    }
    sql_ = u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(quoted(table.name), names.join(u", "), places.join(u", ")).toUtf8();
    parameters_.resize(columns_.size());
}

qint64 RowWriter::write(const QVector<QVariant>& values) {
    Q_ASSERT(values.size() == columns_.size());
    for (qsizetype i = 0; i < columns_.size(); ++i) parameters_[i] = stored(values[i], columns_[i]);
    return engine_.execute(sql_, parameters_).lastIdentity;
}

}  // namespace schema
