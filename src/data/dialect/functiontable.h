// The functions of the dialect: how many arguments, what they take, what comes out.
#pragma once

#include <QByteArray>
#include <QStringList>

#include "data/dialect/enginedialect.h"

namespace data::dialect {

enum class FunctionForm {
    Plain,     // arguments converted to what they take, then the engine's function of that name
    Tagged,    // as Plain, but the first argument keeps its kind and the tag follows it
    SameType,  // as Plain; the result has the type of the first argument
    Convert,   // the first argument converted to the result's kind
    Whole,     // rounded to a whole number
    Iif,
    Nz,
    IsNull,
    InStr,  // its first argument, where to start, may be left out
    Count,
    Sum,      // sum and avg
    Extreme,  // min and max
    Edge,     // first and last
};

struct Function {
    QString name;
    int least;  // arguments
    int most;
    // What each argument takes, one letter each: T text, N number, D date, B yes or no, I a date interval,
    // V anything. The last letter stands for the arguments behind it too.
    const char* takes;
    ValueKind result;
    ColumnType type;
    FunctionForm form = FunctionForm::Plain;

    bool isAggregate() const { return form >= FunctionForm::Count; }
};

// Names compare without case; null if there is none.
const Function* findFunction(const QString& name);
QStringList functionNames();

bool isInterval(const QString& interval);  // of dateadd and its kin

}  // namespace data::dialect
