#include "data/rowstore.h"

#include <cmath>
#include <cstring>

#include "data/error.h"
#include "data/values/format.h"

namespace data {

char* Arena::allocate(qsizetype size) {
    if (size > left_) {
        if (size > largestChunk / 2) {  // a chunk of its own; the open one stays open
            chunks_.push_back(std::make_unique_for_overwrite<char[]>(size));
            return chunks_.back().get();
        }
        const qsizetype chunk = std::max(next_, size);
        chunks_.push_back(std::make_unique_for_overwrite<char[]>(chunk));
        free_ = chunks_.back().get();
        left_ = chunk;
        next_ = std::min(next_ * 2, largestChunk);
    }
    char* const given = free_;
    free_ += size;
    left_ -= size;
    return given;
}

void RowStore::beginRow() {
    if (leftInBlock_ == 0) {
        // The first block is small: most recordsets hold one row.
        leftInBlock_ = blocks_.empty() ? 8 : rowsOfBlock;
        blocks_.push_back(std::make_unique_for_overwrite<Cell[]>(qsizetype(leftInBlock_) * columns_));
        nextRow_ = blocks_.back().get();
    }
    --leftInBlock_;
    cursor_ = nextRow_;
    nextRow_ += columns_;
    rows_.push_back(cursor_);
}

void RowStore::integer(qint64 value) {
    cursor_->kind = CellKind::Integer;
    cursor_->integer = value;
    ++cursor_;
}

void RowStore::real(double value) {
    cursor_->kind = CellKind::Real;
    cursor_->real = value;
    ++cursor_;
}

void RowStore::put(CellKind kind, const char* bytes, qsizetype size) {
    char* const room = arena_.allocate(size);
    if (size > 0) std::memcpy(room, bytes, size);
    cursor_->kind = kind;
    cursor_->size = quint32(size);
    cursor_->bytes = room;
    ++cursor_;
}

void RowStore::set(qint64 row, int column, const QVariant& value) {
    cursor_ = rows_[row] + column;
    switch (value.typeId()) {
        case QMetaType::UnknownType:
            null();
            break;
        case QMetaType::QString: {
            const QByteArray utf8 = value.toString().toUtf8();
            text(utf8.constData(), utf8.size());
            break;
        }
        case QMetaType::QByteArray: {
            const QByteArray bytes = value.toByteArray();
            blob(bytes.constData(), bytes.size());
            break;
        }
        case QMetaType::Double:
            real(value.toDouble());
            break;
        case QMetaType::QDateTime:
            integer(dateToSeconds(value.toDateTime()));
            break;
        default:
            integer(value.toLongLong());
    }
}

namespace {

QString textOf(const Cell& cell) {
    return QString::fromUtf8(cell.bytes, cell.size);
}

QVariant wholeValue(const Cell& cell) {
    switch (cell.kind) {
        case CellKind::Integer:
            return cell.integer;
        case CellKind::Real:
            return std::fabs(cell.real) < 9e18 ? QVariant(qint64(std::nearbyint(cell.real))) : QVariant();
        case CellKind::Text:
            if (const auto number = parseNumber(textOf(cell)); number && std::fabs(*number) < 9e18)
                return qint64(std::nearbyint(*number));
            return {};
        default:
            return {};
    }
}

QVariant realValue(const Cell& cell) {
    switch (cell.kind) {
        case CellKind::Integer:
            return double(cell.integer);
        case CellKind::Real:
            return cell.real;
        case CellKind::Text:
            if (const auto number = parseNumber(textOf(cell))) return *number;
            return {};
        default:
            return {};
    }
}

QVariant textValue(const Cell& cell) {
    switch (cell.kind) {
        case CellKind::Integer:
            return QString::number(cell.integer);
        case CellKind::Real:
            return numberText(cell.real);
        case CellKind::Null:
            return {};
        default:
            return textOf(cell);
    }
}

QVariant dateValue(const Cell& cell) {
    QDateTime at;
    if (cell.kind == CellKind::Integer)
        at = secondsToDate(cell.integer);
    else if (cell.kind == CellKind::Real && std::fabs(cell.real) < 9e18)
        at = secondsToDate(std::llround(cell.real));
    else if (cell.kind == CellKind::Text)
        at = parseDate(textOf(cell)).value_or(QDateTime());
    return at.isValid() ? QVariant(at) : QVariant();
}

}  // namespace

QVariant cellValue(const Cell& cell, ColumnType type) {
    if (cell.kind == CellKind::Null) return {};
    switch (type) {
        case ColumnType::Autonumber:
        case ColumnType::Long:
        case ColumnType::Integer:
            return wholeValue(cell);
        case ColumnType::Single:
        case ColumnType::Double:
            return realValue(cell);
        case ColumnType::Text:
        case ColumnType::Memo:
            return textValue(cell);
        case ColumnType::YesNo: {
            const QVariant number = realValue(cell);
            return number.isValid() ? QVariant(number.toDouble() != 0) : QVariant();
        }
        case ColumnType::DateTime:
            return dateValue(cell);
        case ColumnType::LongBinary:
            if (cell.kind == CellKind::Text || cell.kind == CellKind::Blob) return QByteArray(cell.bytes, cell.size);
            return {};
    }
    return {};
}

QVariant cellParameter(const Cell& cell) {
    switch (cell.kind) {
        case CellKind::Null:
            return {};
        case CellKind::Integer:
            return cell.integer;
        case CellKind::Real:
            return cell.real;
        case CellKind::Text:
            return textOf(cell);
        case CellKind::Blob:
            return QByteArray(cell.bytes, cell.size);
    }
    return {};
}

}  // namespace data
