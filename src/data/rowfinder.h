// The criterion of Recordset::find: "column operator value".
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include "data/rowstore.h"
#include "data/values/format.h"

namespace data {

enum class FindOperator { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual, Like };

struct FindCriterion {
    QString column;
    FindOperator op = FindOperator::Equal;
    QVariant value;  // QString, double or QDateTime as written; invalid for Null
};

// Throws Error(Syntax) with the place where the text goes wrong.
FindCriterion parseCriterion(const QString& text, DateOrder order);

// Tests cells of one column. Texts compare by their fold, Null only meets Null; a text compared with a date reads day
// first.
class CellMatcher {
public:
    CellMatcher(const FindCriterion& criterion, const ColumnInfo& column);
    bool matches(const Cell& cell);

private:
    bool matchesText(const Cell& cell);
    bool holds(int comparison) const;

    FindOperator op_;
    ColumnType type_;
    bool null_ = false;
    double number_ = 0;  // of a number, a flag (0 or 1) or the seconds of a date
    qint64 whole_ = 0;
    bool isWhole_ = false;
    QByteArray folded_;
    QByteArray scratch_;
};

// "%" stands for any characters, "_" for one; both texts are folded UTF-8.
bool matchesPattern(const char* text, qsizetype size, const QByteArray& pattern);

}  // namespace data
