#include "schema/rowcheck.h"

#include <cstring>

#include "data/format.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::Cell;
using data::CellKind;
using data::ColumnType;

bool isKindOf(const Cell& cell, ColumnType type) {
    switch (type) {
        case ColumnType::Text:
        case ColumnType::Memo:
            return cell.kind == CellKind::Text;
        case ColumnType::LongBinary:
            return cell.kind == CellKind::Blob;
        case ColumnType::Single:
        case ColumnType::Double:
            return cell.kind == CellKind::Real || cell.kind == CellKind::Integer;
        default:
            return cell.kind == CellKind::Integer;
    }
}

bool isDate(qint64 seconds) {
    static const qint64 least = data::dateToSeconds(data::wallClock(QDate(100, 1, 1)));
    static const qint64 beyond = data::dateToSeconds(data::wallClock(QDate(9999, 12, 31))) + 86400;
    return seconds >= least && seconds < beyond;
}

QString faultOf(const Cell& cell, ColumnType type, bool nulAllowed) {
    if (cell.kind == CellKind::Null)
        return type == ColumnType::YesNo ? u"είναι κενό, ενώ πρέπει να είναι Ναι ή Όχι"_s : QString();
    if (!isKindOf(cell, type)) return u"έχει τιμή άλλου τύπου από τον δικό του"_s;
    if (type == ColumnType::YesNo && cell.integer != 0 && cell.integer != 1) return u"δεν είναι ούτε Ναι ούτε Όχι"_s;
    if (type == ColumnType::DateTime && !isDate(cell.integer)) return u"είναι ημερομηνία έξω από τα έτη 100 έως 9999"_s;
    if (!nulAllowed && cell.kind == CellKind::Text && cell.size > 0 && std::memchr(cell.bytes, 0, cell.size))
        return u"έχει μέσα του έναν χαρακτήρα μηδέν (NUL), που ο διακομιστής δεν δέχεται"_s;
    return {};
}

double number(const Cell& cell) {
    return cell.kind == CellKind::Real ? cell.real : double(cell.integer);
}

bool isSame(const Cell& one, const Cell& other, ColumnType type) {
    if (one.kind == CellKind::Null || other.kind == CellKind::Null) return one.kind == other.kind;
    if (!isKindOf(one, type) || !isKindOf(other, type)) return false;
    switch (type) {
        case ColumnType::Single:
            return float(number(one)) == float(number(other));
        case ColumnType::Double:
            return number(one) == number(other);
        case ColumnType::Text:
        case ColumnType::Memo:
        case ColumnType::LongBinary:
            return one.size == other.size && (one.size == 0 || !std::memcmp(one.bytes, other.bytes, one.size));
        default:
            return one.integer == other.integer;
    }
}

}  // namespace

std::optional<CellFault> unfitCell(const data::TableInfo& table, const Cell* row, bool nulAllowed) {
    for (int column = 0; column < int(table.columns.size()); ++column)
        if (const QString text = faultOf(row[column], table.columns[column].type, nulAllowed); !text.isEmpty())
            return CellFault{column, text};
    return {};
}

int differingColumn(const data::TableInfo& table, const Cell* one, const Cell* other) {
    for (int column = 0; column < int(table.columns.size()); ++column)
        if (!isSame(one[column], other[column], table.columns[column].type)) return column;
    return -1;
}

}  // namespace schema
