#include "data/recordsetstate.h"

using namespace Qt::Literals::StringLiterals;

namespace data {

void RecordsetState::setColumns(const QVector<dialect::OutputColumn>& list) {
    columns = list;
    byKey.clear();
    bySpelling.clear();
    // Of two columns of one name the first is meant.
    for (int i = int(columns.size()) - 1; i >= 0; --i) byKey.insert(nameKey(columns[i].name), i);
}

void RecordsetState::fetch() {
    const auto translation = connection->translate(sql, options);
    if (translation->kind != dialect::StatementKind::Select)
        throw Error(ErrorCategory::State, u"Η εντολή δεν επιστρέφει εγγραφές."_s, sql);
    const TableInfo* const base =
        translation->baseTable.isEmpty() ? nullptr : connection->catalog().find(translation->baseTable);
    const auto periodFirst = [&] {
        if (translation->periodFirst.isEmpty()) return false;
        const AccessPath path = options.accessPath ? *options.accessPath : connection->accessPath(sql, options);
        return path == AccessPath::Period;
    };
    const QByteArray& engineSql = periodFirst() ? translation->periodFirst : translation->sql;
    RowStore fetched(int(translation->columns.size()) + (translation->baseTable.isEmpty() ? 0 : 1));
    try {
        connection->engine().query(engineSql, parameterValues(*translation, options.parameters), &fetched);
    } catch (const Error& error) {
        throw error.withStatement(sql);
    }
    table = base ? *base : TableInfo();
    setColumns(translation->columns);
    rows = std::move(fetched);
    position = 0;
    isOpen = true;
    endEdit();
}

int RecordsetState::indexOf(QStringView name) {
    const auto known = bySpelling.constFind(QString::fromRawData(name.data(), name.size()));
    if (known != bySpelling.constEnd()) return *known;
    const auto found = byKey.constFind(nameKey(name));
    if (found == byKey.constEnd()) return -1;
    if (bySpelling.size() < 1000) bySpelling.insert(name.toString(), *found);
    return *found;
}

void RecordsetState::requireOpen() const {
    if (!isOpen) throw Error(ErrorCategory::State, u"Το σύνολο εγγραφών είναι κλειστό."_s);
}

void RecordsetState::requireRow() const {
    requireOpen();
    if (!hasRow()) throw Error(ErrorCategory::State, u"Δεν υπάρχει τρέχουσα εγγραφή."_s, sql);
}

void RecordsetState::requireUpdatable() const {
    requireOpen();
    if (table.name.isEmpty()) throw Error(ErrorCategory::State, u"Αυτές οι εγγραφές δεν αλλάζουν."_s, sql);
}

void RecordsetState::moveTo(qint64 target) {
    position = target;
    chunkPosition.clear();
}

const Cell* RecordsetState::cell(int column) const {
    if (mode == EditMode::Add) return nullptr;
    requireRow();
    return rows.row(position) + column;
}

QVariant RecordsetState::pendingValue(int column) const {
    const auto chunk = chunks.constFind(column);
    if (chunk == chunks.constEnd()) return pending.value(column);
    if (columns[column].type == ColumnType::Memo) return QString::fromUtf8(*chunk);
    return *chunk;
}

QVariant RecordsetState::value(int column) const {
    if (isPending(column)) return pendingValue(column);
    if (const Cell* const current = cell(column)) return cellValue(*current, columns[column].type);
    return columns[column].type == ColumnType::YesNo ? QVariant(false) : QVariant();
}

// The column behind a field, for its conversion.
ColumnInfo RecordsetState::columnInfo(int column) const {
    const int base = columns[column].baseColumn;
    if (base < 0)
        throw Error(ErrorCategory::State, u"Το πεδίο «%1» υπολογίζεται και δεν αλλάζει."_s.arg(columns[column].name));
    return table.columns[base];
}

void RecordsetState::beginEdit() {
    if (mode != EditMode::None) return;
    requireRow();
    mode = EditMode::InProgress;
}

void RecordsetState::endEdit() {
    mode = EditMode::None;
    pending.clear();
    chunks.clear();
    chunkPosition.clear();
}

QVariant RecordsetState::identity() const {
    return cellParameter(rows.row(position)[columns.size()]);
}

// What the buffer holds and the row doesn't; in an add, all that was given.
QVector<ColumnChange> RecordsetState::changes() const {
    QVector<ColumnChange> result;
    for (int column = 0; column < columns.size(); ++column) {
        if (!isPending(column)) continue;
        const QVariant now = pendingValue(column);
        ColumnChange change{columns[column].baseColumn, now, {}};
        if (const Cell* const current = cell(column)) {
            const QVariant shown = cellValue(*current, columns[column].type);
            if (shown == now && shown.isValid() == now.isValid()) continue;
            change.before = cellParameter(*current);
        }
        result.append(change);
    }
    return result;
}

void RecordsetState::writeChanges() {
    const QVector<ColumnChange> changed = changes();
    for (const ColumnChange& change : changed) {
        if (change.column == table.autonumber)
            throw Error(ErrorCategory::ReadOnly, u"Ο αύξων αριθμός μιας εγγραφής δεν αλλάζει."_s, sql);
    }
    RowWriter(connection->engine(), table).update(identity(), changed);
    for (const ColumnChange& change : changed) {
        for (int column = 0; column < columns.size(); ++column)
            if (columns[column].baseColumn == change.column) rows.set(position, column, change.value);
    }
    endEdit();
}

void RecordsetState::writeNew() {
    RowWriter writer(connection->engine(), table);
    const qint64 added = writer.insert(changes());
    // From here the row exists: a failure to read it must not leave a buffer that would add it again.
    endEdit();
    QVector<int> wanted;
    for (const dialect::OutputColumn& column : columns) wanted.append(column.baseColumn);
    moveTo(rows.count());
    writer.readBack(added, wanted, rows);
}

}  // namespace data
