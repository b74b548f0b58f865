#include "data/rowwriter.h"

#include "data/dialect/enginedialect.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

[[noreturn]] void reportDeleted() {
    throw Error(ErrorCategory::Conflict, u"Η εγγραφή διαγράφηκε στο μεταξύ από άλλον χρήστη."_s);
}

}  // namespace

QByteArray RowWriter::name(const QString& identifier) const {
    return engine_.dialect().identifier(identifier);
}

QByteArray RowWriter::parameter(qsizetype number) const {
    return engine_.dialect().parameter(int(number));
}

QByteArray RowWriter::where(int number) const {
    return " WHERE " + name(table_.rowIdentity) + '=' + parameter(number);
}

void RowWriter::requireRow(const QVariant& identity) {
    const QByteArray sql = "SELECT 1 FROM " + name(table_.name) + where(1);
    if (engine_.query(sql, {identity}, nullptr) == 0) reportDeleted();
}

void RowWriter::update(const QVariant& identity, const QVector<ColumnChange>& changes) {
    if (changes.isEmpty()) return requireRow(identity);
    QByteArray assignments, unchanged;
    QVector<QVariant> parameters;
    for (const ColumnChange& change : changes) {
        if (!assignments.isEmpty()) assignments += ',';
        parameters.append(change.value);
        assignments += columnName(change.column) + '=' + parameter(parameters.size());
        parameters.append(change.before);
        unchanged += " AND " + columnName(change.column) + " IS NOT DISTINCT FROM " + parameter(parameters.size());
    }
    parameters.append(identity);
    const QByteArray sql =
        "UPDATE " + name(table_.name) + " SET " + assignments + where(int(parameters.size())) + unchanged;
    if (engine_.execute(sql, parameters).affected > 0) return;
    requireRow(identity);
    throw Error(ErrorCategory::Conflict,
                u"Η εγγραφή άλλαξε στο μεταξύ από άλλον χρήστη και οι αλλαγές σας δεν αποθηκεύτηκαν."_s);
}

qint64 RowWriter::insert(const QVector<ColumnChange>& values) {
    QByteArray names, marks;
    QVector<QVariant> parameters;
    for (const ColumnChange& value : values) {
        if (!names.isEmpty()) {
            names += ',';
            marks += ',';
        }
        parameters.append(value.value);
        names += columnName(value.column);
        marks += parameter(parameters.size());
    }
    const QByteArray rest =
        values.isEmpty() ? QByteArray(" DEFAULT VALUES") : " (" + names + ") VALUES (" + marks + ')';
    const QByteArray sql = "INSERT INTO " + name(table_.name) + rest + engine_.dialect().returningIdentity(table_);
    return engine_.execute(sql, parameters).lastIdentity;
}

void RowWriter::remove(const QVariant& identity) {
    if (engine_.execute("DELETE FROM " + name(table_.name) + where(1), {identity}).affected == 0) reportDeleted();
}

void RowWriter::readBack(qint64 identity, const QVector<int>& columns, RowSink& sink) {
    QByteArray list;
    for (const int column : columns) list += (column < 0 ? QByteArray("NULL") : columnName(column)) + ',';
    const QByteArray sql = "SELECT " + list + name(table_.rowIdentity) + " FROM " + name(table_.name) + where(1);
    if (engine_.query(sql, {identity}, &sink) == 0) reportDeleted();
}

}  // namespace data
