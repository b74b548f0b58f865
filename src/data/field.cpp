#include <cmath>

#include "data/recordset.h"
#include "data/recordsetstate.h"
#include "data/values/convert.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

constexpr int unboundedText = 1073741823, unboundedBytes = 2147483647;

// Numbers of texts read as people write them.
double numberOf(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::QString:
            return parseNumber(value.toString()).value_or(0);
        case QMetaType::QDateTime:
            return double(dateToSeconds(value.toDateTime())) / 86400;
        default:
            return value.toDouble();
    }
}

}  // namespace

const QString& Field::name() const {
    return recordset_->d->columns[index_].name;
}

AdoType Field::type() const {
    return adoType(columnType());
}

ColumnType Field::columnType() const {
    return recordset_->d->columns[index_].type;
}

int Field::definedSize() const {
    switch (columnType()) {
        case ColumnType::Text:
            return recordset_->d->columns[index_].size;
        case ColumnType::Memo:
            return unboundedText;
        case ColumnType::LongBinary:
            return unboundedBytes;
        case ColumnType::Integer:
        case ColumnType::YesNo:
            return 2;
        case ColumnType::Autonumber:
        case ColumnType::Long:
        case ColumnType::Single:
            return 4;
        case ColumnType::Double:
        case ColumnType::DateTime:
            return 8;
    }
    return 0;
}

qint64 Field::actualSize() const {
    const auto& d = *recordset_->d;
    if (columnType() == ColumnType::LongBinary) {
        if (d.isPending(index_)) {
            const QVariant bytes = d.pendingValue(index_);
            return bytes.isValid() ? bytes.toByteArray().size() : -1;
        }
        const Cell* const cell = d.cell(index_);
        return !cell || cell->kind == CellKind::Null ? -1 : qint64(cell->size);
    }
    const QVariant current = value();
    if (!current.isValid()) return -1;
    return isText(columnType()) ? current.toString().size() : definedSize();
}

QVariant Field::value() const {
    return recordset_->d->value(index_);
}

bool Field::isNull() const {
    const auto& d = *recordset_->d;
    if (!d.isPending(index_) && d.mode != EditMode::Add) {
        const Cell* const cell = d.cell(index_);
        if (cell->kind == CellKind::Null) return true;
        if (isText(columnType()) || columnType() == ColumnType::LongBinary) return false;
    }
    return !value().isValid();
}

QString Field::text() const {
    return valueText(value());
}

double Field::toDouble() const {
    return numberOf(value());
}

qint64 Field::toLong() const {
    const QVariant current = value();
    if (current.typeId() == QMetaType::LongLong) return current.toLongLong();
    const double number = std::nearbyint(numberOf(current));
    return std::fabs(number) < 9e18 ? qint64(number) : 0;
}

bool Field::toBool() const {
    const QVariant current = value();
    return current.typeId() == QMetaType::Bool ? current.toBool() : numberOf(current) != 0;
}

QDateTime Field::toDate() const {
    const QVariant current = value();
    if (current.typeId() == QMetaType::QString) return parseDate(current.toString()).value_or(QDateTime());
    return current.toDateTime();
}

void Field::setValue(const QVariant& value) {
    auto& d = *recordset_->d;
    d.requireUpdatable();
    const QVariant converted = toColumn(value, d.columnInfo(index_));
    d.beginEdit();
    d.chunks.remove(index_);
    d.pending[index_] = converted;
    d.chunkPosition.remove(index_);
}

void Field::appendChunk(const QByteArray& bytes) {
    auto& d = *recordset_->d;
    d.requireUpdatable();
    if (columnType() != ColumnType::LongBinary && columnType() != ColumnType::Memo)
        throw Error(ErrorCategory::Type, u"Το πεδίο «%1» δεν γράφεται κατά τμήματα."_s.arg(name()));
    d.columnInfo(index_);
    d.beginEdit();
    d.pending.remove(index_);
    d.chunks[index_].append(bytes);
    d.chunkPosition.remove(index_);
}

QByteArray Field::getChunk(qint64 size) {
    auto& d = *recordset_->d;
    const Cell* const cell = d.isPending(index_) ? nullptr : d.cell(index_);
    QByteArray whole;
    QByteArrayView bytes;
    if (cell && (cell->kind == CellKind::Blob || cell->kind == CellKind::Text)) {
        bytes = QByteArrayView(cell->bytes, cell->size);
    } else {
        const QVariant current = value();
        whole = current.typeId() == QMetaType::QByteArray ? current.toByteArray() : valueText(current).toUtf8();
        bytes = whole;
    }
    qint64& at = d.chunkPosition[index_];
    const qint64 count = qBound(qint64(0), size, qint64(bytes.size()) - at);
    const QByteArray chunk(bytes.data() + at, count);
    at += count;
    return chunk;
}

}  // namespace data
