// Column types of the dialect, their ADO numbers, and how their values travel.
#pragma once

#include <QHash>
#include <QString>
#include <QStringView>
#include <QVector>

namespace data {

enum class ColumnType { Autonumber, Long, Integer, Single, Double, Text, Memo, YesNo, DateTime, LongBinary };

// ADO DataTypeEnum: what callers see as the type of a field.
enum class AdoType : int {
    SmallInt = 2,
    Integer = 3,
    Single = 4,
    Double = 5,
    Date = 7,
    Boolean = 11,
    VarWChar = 202,
    LongVarWChar = 203,
    LongVarBinary = 205,
};

AdoType adoType(ColumnType type);

// What a recordset is doing to its current row.
enum class EditMode { None, InProgress, Add };

inline bool isText(ColumnType t) {
    return t == ColumnType::Text || t == ColumnType::Memo;
}
inline bool isNumber(ColumnType t) {
    return t == ColumnType::Autonumber || t == ColumnType::Long || t == ColumnType::Integer ||
           t == ColumnType::Single || t == ColumnType::Double;
}

// Values travel as QVariant: invalid for Null; qint64 for Autonumber, Long, Integer; double for Single,
// Double; QString for Text, Memo; bool for YesNo; QByteArray for LongBinary; QDateTime for DateTime.
// A QDateTime here is a wall clock and carries the spec Qt::UTC, so that no summer-time gap can move
// it; a date alone has the time 00:00:00, a time alone lies on 1899-12-30.

struct ColumnInfo {
    QString name;
    ColumnType type = ColumnType::Text;
    int size = 0;  // UTF-16 units for Text, 0 for every other type (Memo and LongBinary are unbounded)
};

// An index of the engine over all that stands inside these columns' texts, for searches with a pattern like %word%.
struct WordIndex {
    QString name;          // empty: the table has none
    QVector<int> columns;  // in the table's columns
};

struct TableInfo {
    QString name;
    QVector<ColumnInfo> columns;  // in table order
    // Column or pseudo-column that names a row for updates, as the engine spells it ("rowid").
    QString rowIdentity;
    int autonumber = -1;  // index of the Autonumber column, -1 if there is none
    WordIndex words;

    int indexOf(QStringView column) const;  // without regard to case; -1 if there is none
};

// The tables that statements may name.
class Catalog {
public:
    const TableInfo* find(QStringView table) const;  // without regard to case; null if there is none
    const QVector<TableInfo>& tables() const { return tables_; }
    void add(TableInfo table);
    void clear();

private:
    QVector<TableInfo> tables_;
    QHash<QString, int> byName_;  // by nameKey
};

// Names of tables and columns compare by this key: lower case, accents kept.
QString nameKey(QStringView name);

QString wordIndexName(const TableInfo& table);

}  // namespace data
