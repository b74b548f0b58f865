#include "data/dialect/functiontable.h"

#include <QHash>
#include <QSet>

using namespace Qt::Literals::StringLiterals;

namespace data::dialect {

using K = ValueKind;
using C = ColumnType;
using F = FunctionForm;

static const Function functions[] = {
    // Dates
    {"now", 0, 0, "", K::Date, C::DateTime},
    {"date", 0, 0, "", K::Date, C::DateTime},
    {"time", 0, 0, "", K::Date, C::DateTime},
    {"day", 1, 1, "D", K::Number, C::Long},
    {"month", 1, 1, "D", K::Number, C::Long},
    {"year", 1, 1, "D", K::Number, C::Long},
    {"hour", 1, 1, "D", K::Number, C::Long},
    {"minute", 1, 1, "D", K::Number, C::Long},
    {"second", 1, 1, "D", K::Number, C::Long},
    {"weekday", 1, 2, "DN", K::Number, C::Long},
    {"dateadd", 3, 3, "IND", K::Date, C::DateTime},
    {"datediff", 3, 5, "IDDN", K::Number, C::Long},
    {"datepart", 2, 4, "IDN", K::Number, C::Long},
    {"dateserial", 3, 3, "N", K::Date, C::DateTime},
    {"timeserial", 3, 3, "N", K::Date, C::DateTime},
    {"datevalue", 1, 1, "D", K::Date, C::DateTime},
    {"timevalue", 1, 1, "D", K::Date, C::DateTime},
    {"monthname", 1, 2, "NB", K::Text, C::Text},
    {"weekdayname", 1, 3, "NBN", K::Text, C::Text},
    {"isdate", 1, 1, "V", K::YesNo, C::YesNo, F::Tagged},
    // Texts
    {"left", 2, 2, "TN", K::Text, C::Text},
    {"right", 2, 2, "TN", K::Text, C::Text},
    {"mid", 2, 3, "TN", K::Text, C::Text},
    {"len", 1, 1, "T", K::Number, C::Long},
    {"ucase", 1, 1, "T", K::Text, C::Text},
    {"lcase", 1, 1, "T", K::Text, C::Text},
    {"trim", 1, 1, "T", K::Text, C::Text},
    {"ltrim", 1, 1, "T", K::Text, C::Text},
    {"rtrim", 1, 1, "T", K::Text, C::Text},
    {"replace", 3, 3, "T", K::Text, C::Memo},
    {"instr", 2, 3, "V", K::Number, C::Long, F::InStr},
    {"space", 1, 1, "N", K::Text, C::Text},
    {"phonekey", 1, 1, "T", K::Text, C::Text},
    {"format", 1, 2, "VT", K::Text, C::Text, F::Tagged},
    // Numbers
    {"val", 1, 1, "T", K::Number, C::Double},
    {"int", 1, 1, "N", K::Number, C::Double},
    {"fix", 1, 1, "N", K::Number, C::Double},
    {"round", 1, 2, "N", K::Number, C::Double},
    {"abs", 1, 1, "N", K::Number, C::Double, F::SameType},
    {"sgn", 1, 1, "N", K::Number, C::Long},
    {"sqr", 1, 1, "N", K::Number, C::Double},
    {"isnumeric", 1, 1, "V", K::YesNo, C::YesNo, F::Tagged},
    // From one type to another
    {"cdbl", 1, 1, "V", K::Number, C::Double, F::Convert},
    {"csng", 1, 1, "V", K::Number, C::Double, F::Convert},
    {"ccur", 1, 1, "V", K::Number, C::Double, F::Convert},
    {"cint", 1, 1, "N", K::Number, C::Long, F::Whole},
    {"clng", 1, 1, "N", K::Number, C::Long, F::Whole},
    {"cstr", 1, 1, "V", K::Text, C::Text, F::Convert},
    {"cdate", 1, 1, "V", K::Date, C::DateTime, F::Convert},
    {"cvdate", 1, 1, "V", K::Date, C::DateTime, F::Convert},
    {"cbool", 1, 1, "V", K::YesNo, C::YesNo, F::Convert},
    // Choices
    {"iif", 3, 3, "BVV", K::Any, C::Text, F::Iif},
    {"nz", 1, 2, "VV", K::Any, C::Text, F::Nz},
    {"isnull", 1, 1, "V", K::YesNo, C::YesNo, F::IsNull},
    // Of many rows
    {"count", 1, 1, "V", K::Number, C::Long, F::Count},
    {"sum", 1, 1, "N", K::Number, C::Double, F::Sum},
    {"avg", 1, 1, "N", K::Number, C::Double, F::Sum},
    {"min", 1, 1, "V", K::Any, C::Text, F::Extreme},
    {"max", 1, 1, "V", K::Any, C::Text, F::Extreme},
    {"first", 1, 1, "V", K::Any, C::Text, F::Edge},
    {"last", 1, 1, "V", K::Any, C::Text, F::Edge},
};

const Function* findFunction(const QString& name) {
    static const QHash<QString, const Function*> byName = [] {
        QHash<QString, const Function*> table;
        for (const Function& function : functions) table.insert(QString::fromLatin1(function.name), &function);
        return table;
    }();
    return byName.value(name.toLower());
}

QStringList functionNames() {
    QStringList names;
    for (const Function& function : functions) names << QString::fromLatin1(function.name);
    return names;
}

bool isInterval(const QString& interval) {
    static const QSet<QString> known = {u"yyyy"_s, u"q"_s,  u"m"_s, u"y"_s, u"d"_s,
                                        u"w"_s,    u"ww"_s, u"h"_s, u"n"_s, u"s"_s};
    return known.contains(interval.toLower());
}

}  // namespace data::dialect
