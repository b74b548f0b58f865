#include "data/recordset.h"

#include <algorithm>

#include "data/recordsetstate.h"
#include "data/rowfinder.h"
#include "data/values/convert.h"
#include "data/values/fold.h"

using namespace Qt::Literals::StringLiterals;

namespace data {

Recordset::Recordset() : d(std::make_unique<RecordsetState>()) {}

Recordset::Recordset(Connection& connection, const QString& sql, const OpenOptions& options) : Recordset() {
    open(connection, sql, options);
}

Recordset::Recordset(const QVector<dialect::OutputColumn>& columns, RowStore rows) : Recordset() {
    d->setColumns(columns);
    d->rows = std::move(rows);
    d->isOpen = true;
}

Recordset::~Recordset() = default;

// The one moved from stays usable, closed.
Recordset::Recordset(Recordset&& other) noexcept : d(std::exchange(other.d, std::make_unique<RecordsetState>())) {}

Recordset& Recordset::operator=(Recordset&& other) noexcept {
    if (this != &other) d = std::exchange(other.d, std::make_unique<RecordsetState>());
    return *this;
}

void Recordset::open(Connection& connection, const QString& sql, const OpenOptions& options) {
    close();
    auto opened = std::make_unique<RecordsetState>();
    opened->connection = &connection;
    opened->sql = sql;
    opened->options = options;
    opened->fetch();
    d = std::move(opened);
}

void Recordset::close() noexcept {
    d = std::make_unique<RecordsetState>();
}

bool Recordset::isOpen() const {
    return d->isOpen;
}

void Recordset::requery() {
    d->requireOpen();
    if (!d->connection || d->mode != EditMode::None) {
        throw Error(ErrorCategory::State, d->connection ? u"Η εγγραφή που αλλάζει δεν έχει αποθηκευτεί."_s
                                                        : u"Αυτές οι εγγραφές δεν ξαναδιαβάζονται."_s);
    }
    d->fetch();
}

bool Recordset::bof() const {
    d->requireOpen();
    return d->mode != EditMode::Add && (d->rows.count() == 0 || d->position < 0);
}

bool Recordset::eof() const {
    d->requireOpen();
    return d->mode != EditMode::Add && d->position >= d->rows.count();
}

qint64 Recordset::recordCount() const {
    d->requireOpen();
    return d->rows.count();
}

qint64 Recordset::absolutePosition() const {
    d->requireOpen();
    if (d->mode == EditMode::Add) return d->rows.count() + 1;
    return eof() ? -3 : bof() ? -2 : d->position + 1;
}

void Recordset::setAbsolutePosition(qint64 position) {
    update();
    if (position < 1 || position > d->rows.count())
        throw Error(ErrorCategory::State, u"Δεν υπάρχει εγγραφή στη θέση %1."_s.arg(position), d->sql);
    d->moveTo(position - 1);
}

void Recordset::moveFirst() {
    update();
    if (d->rows.count() == 0) d->requireRow();
    d->moveTo(0);
}

void Recordset::moveLast() {
    update();
    if (d->rows.count() == 0) d->requireRow();
    d->moveTo(d->rows.count() - 1);
}

void Recordset::moveNext() {
    update();
    if (eof()) d->requireRow();
    d->moveTo(d->position + 1);
}

void Recordset::movePrevious() {
    update();
    if (bof()) d->requireRow();
    d->moveTo(d->position - 1);
}

void Recordset::find(const QString& criterion, qint64 skip, SearchDirection direction) {
    update();
    const FindCriterion wanted = parseCriterion(criterion, d->dateOrder());
    const int column = d->indexOf(wanted.column);
    if (column < 0) throw Error(ErrorCategory::Syntax, u"Δεν υπάρχει πεδίο «%1»."_s.arg(wanted.column), criterion);
    const dialect::OutputColumn& output = d->columns[column];
    CellMatcher matcher(wanted, {output.name, output.type, output.size});

    const qint64 count = d->rows.count(), step = direction == SearchDirection::Forward ? 1 : -1;
    skip = qBound(-count - 1, skip, count + 1);
    qint64 at = count == 0 ? 0 : qBound(qint64(0), d->position, count - 1) + skip * step;
    while (at >= 0 && at < count && !matcher.matches(d->rows.row(at)[column])) at += step;
    d->moveTo(at >= 0 && at < count ? at : step > 0 ? count : -1);
}

int Recordset::fieldCount() const {
    return int(d->columns.size());
}

Field Recordset::field(int index) {
    d->requireOpen();
    if (index < 0 || index >= d->columns.size())
        throw Error(ErrorCategory::State, u"Δεν υπάρχει πεδίο με αριθμό %1."_s.arg(index), d->sql);
    return Field(this, index);
}

Field Recordset::field(QStringView name) {
    d->requireOpen();
    const int index = d->indexOf(name);
    if (index < 0) throw Error(ErrorCategory::Syntax, u"Δεν υπάρχει πεδίο «%1»."_s.arg(name), d->sql);
    return Field(this, index);
}

bool Recordset::hasField(QStringView name) const {
    return d->indexOf(name) >= 0;
}

EditMode Recordset::editMode() const {
    return d->mode;
}

bool Recordset::isUpdatable() const {
    return d->isOpen && !d->table.name.isEmpty();
}

void Recordset::addNew() {
    d->requireUpdatable();
    update();
    d->positionBeforeAdd = d->position;
    d->endEdit();
    d->mode = EditMode::Add;
}

void Recordset::update() {
    d->requireOpen();
    try {
        if (d->mode == EditMode::Add)
            d->writeNew();
        else if (d->mode == EditMode::InProgress)
            d->writeChanges();
    } catch (const Error& error) {
        if (!error.statement().isEmpty()) throw;
        throw error.withStatement(d->sql);
    }
}

void Recordset::cancelUpdate() {
    d->requireOpen();
    if (d->mode == EditMode::Add) d->position = d->positionBeforeAdd;
    d->endEdit();
}

void Recordset::readAs(const QVariantMap& values) {
    d->requireUpdatable();
    if (isEmpty()) {
        d->rows.beginRow();
        for (int cell = 0; cell < d->rows.columns(); ++cell) d->rows.null();
    }
    d->endEdit();
    d->moveTo(std::max<qint64>(0, d->position));
    for (auto [column, value] : values.asKeyValueRange()) {
        const int index = d->indexOf(column);
        if (index >= 0 && d->value(index) != value)
            d->rows.set(d->position, index, toColumn(value, d->columnInfo(index)));
    }
}

void Recordset::remove() {
    d->requireUpdatable();
    if (d->mode == EditMode::Add) throw Error(ErrorCategory::State, u"Η νέα εγγραφή δεν έχει αποθηκευτεί."_s);
    d->requireRow();
    RowWriter(d->connection->engine(), d->table).remove(d->identity());
    d->endEdit();
    d->rows.remove(d->position);
    d->moveTo(d->position);
}

Recordset openSchemaTables(Connection& connection) {
    connection.engine();
    QStringList names;
    for (const TableInfo& table : connection.catalog().tables()) names.append(table.name);
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) { return fold(a) < fold(b); });
    RowStore rows(2);
    for (const QString& name : names) {
        const QByteArray utf8 = name.toUtf8();
        rows.beginRow();
        rows.text(utf8.constData(), utf8.size());
        rows.text("TABLE", 5);
    }
    return Recordset({{u"TABLE_NAME"_s, ColumnType::Text, 255, -1}, {u"TABLE_TYPE"_s, ColumnType::Text, 255, -1}},
                     std::move(rows));
}

}  // namespace data
