#include "copies/rowcheck.h"

#include <QUtf8StringView>
#include <cmath>
#include <cstring>
#include <limits>

#include "data/values/format.h"

namespace copies {
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

double number(const Cell& cell) {
    return cell.kind == CellKind::Real ? cell.real : double(cell.integer);
}

QString faultOfText(const Cell& cell, const data::ColumnInfo& column, bool nulAllowed) {
    const QUtf8StringView text(cell.bytes, cell.size);
    if (!text.isValidUtf8()) return u"έχει μέσα του χαρακτήρες που δεν διαβάζονται· γράψτε το ξανά"_s;
    if (column.size > 0 && cell.size > quint32(column.size))
        if (const qsizetype length = text.toString().size(); length > column.size)
            return u"έχει %1 χαρακτήρες και χωράνε %2"_s.arg(length).arg(column.size);
    if (!nulAllowed && cell.size > 0 && std::memchr(cell.bytes, 0, cell.size))
        return u"έχει μέσα του έναν χαρακτήρα μηδέν (NUL), που ο διακομιστής δεν δέχεται"_s;
    return {};
}

template <class Whole>
bool isIn(qint64 number) {
    return number >= std::numeric_limits<Whole>::min() && number <= std::numeric_limits<Whole>::max();
}

bool isInRange(const Cell& cell, ColumnType type) {
    switch (type) {
        case ColumnType::Long:
            return isIn<qint32>(cell.integer);
        case ColumnType::Integer:
            return isIn<qint16>(cell.integer);
        case ColumnType::Single:
            return std::isfinite(float(number(cell)));
        case ColumnType::Double:
            return std::isfinite(number(cell));
        default:
            return true;
    }
}

QString faultOf(const Cell& cell, const data::ColumnInfo& column, bool nulAllowed) {
    const ColumnType type = column.type;
    if (cell.kind == CellKind::Null)
        return type == ColumnType::YesNo ? u"είναι κενό, ενώ πρέπει να είναι Ναι ή Όχι"_s : QString();
    if (!isKindOf(cell, type)) return u"έχει τιμή άλλου τύπου από τον δικό του"_s;
    if (type == ColumnType::YesNo && cell.integer != 0 && cell.integer != 1) return u"δεν είναι ούτε Ναι ούτε Όχι"_s;
    if (type == ColumnType::DateTime && !isDate(cell.integer)) return u"είναι ημερομηνία έξω από τα έτη 100 έως 9999"_s;
    if (cell.kind == CellKind::Text) return faultOfText(cell, column, nulAllowed);
    if (!isInRange(cell, type)) return u"έχει αριθμό έξω από τα όριά του"_s;
    return {};
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
        if (const QString text = faultOf(row[column], table.columns[column], nulAllowed); !text.isEmpty())
            return CellFault{column, text};
    return {};
}

int differingColumn(const data::TableInfo& table, const Cell* one, const Cell* other) {
    for (int column = 0; column < int(table.columns.size()); ++column)
        if (!isSame(one[column], other[column], table.columns[column].type)) return column;
    return -1;
}

}  // namespace copies
