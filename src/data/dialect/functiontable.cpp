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
    {u"now"_s, 0, 0, "", K::Date, C::DateTime},
    {u"date"_s, 0, 0, "", K::Date, C::DateTime},
    {u"time"_s, 0, 0, "", K::Date, C::DateTime},
    {u"day"_s, 1, 1, "D", K::Number, C::Long},
    {u"month"_s, 1, 1, "D", K::Number, C::Long},
    {u"year"_s, 1, 1, "D", K::Number, C::Long},
    {u"hour"_s, 1, 1, "D", K::Number, C::Long},
    {u"minute"_s, 1, 1, "D", K::Number, C::Long},
    {u"second"_s, 1, 1, "D", K::Number, C::Long},
    {u"weekday"_s, 1, 2, "DN", K::Number, C::Long},
    {u"dateadd"_s, 3, 3, "IND", K::Date, C::DateTime},
    {u"datediff"_s, 3, 5, "IDDN", K::Number, C::Long},
    {u"datepart"_s, 2, 4, "IDN", K::Number, C::Long},
    {u"dateserial"_s, 3, 3, "N", K::Date, C::DateTime},
    {u"timeserial"_s, 3, 3, "N", K::Date, C::DateTime},
    {u"datevalue"_s, 1, 1, "D", K::Date, C::DateTime},
    {u"timevalue"_s, 1, 1, "D", K::Date, C::DateTime},
    {u"monthname"_s, 1, 2, "NB", K::Text, C::Text},
    {u"weekdayname"_s, 1, 3, "NBN", K::Text, C::Text},
    {u"isdate"_s, 1, 1, "V", K::YesNo, C::YesNo, F::Tagged},
    // Texts
    {u"left"_s, 2, 2, "TN", K::Text, C::Text},
    {u"right"_s, 2, 2, "TN", K::Text, C::Text},
    {u"mid"_s, 2, 3, "TN", K::Text, C::Text},
    {u"len"_s, 1, 1, "T", K::Number, C::Long},
    {u"ucase"_s, 1, 1, "T", K::Text, C::Text},
    {u"lcase"_s, 1, 1, "T", K::Text, C::Text},
    {u"trim"_s, 1, 1, "T", K::Text, C::Text},
    {u"ltrim"_s, 1, 1, "T", K::Text, C::Text},
    {u"rtrim"_s, 1, 1, "T", K::Text, C::Text},
    {u"replace"_s, 3, 3, "T", K::Text, C::Memo},
    {u"instr"_s, 2, 3, "V", K::Number, C::Long, F::InStr},
    {u"space"_s, 1, 1, "N", K::Text, C::Text},
    {u"phonekey"_s, 1, 1, "T", K::Text, C::Text},
    {u"format"_s, 1, 2, "VT", K::Text, C::Text, F::Tagged},
    // Numbers
    {u"val"_s, 1, 1, "T", K::Number, C::Double},
    {u"int"_s, 1, 1, "N", K::Number, C::Double},
    {u"fix"_s, 1, 1, "N", K::Number, C::Double},
    {u"round"_s, 1, 2, "N", K::Number, C::Double},
    {u"abs"_s, 1, 1, "N", K::Number, C::Double, F::SameType},
    {u"sgn"_s, 1, 1, "N", K::Number, C::Long},
    {u"sqr"_s, 1, 1, "N", K::Number, C::Double},
    {u"isnumeric"_s, 1, 1, "V", K::YesNo, C::YesNo, F::Tagged},
    // From one type to another
    {u"cdbl"_s, 1, 1, "V", K::Number, C::Double, F::Convert},
    {u"csng"_s, 1, 1, "V", K::Number, C::Double, F::Convert},
    {u"ccur"_s, 1, 1, "V", K::Number, C::Double, F::Convert},
    {u"cint"_s, 1, 1, "N", K::Number, C::Long, F::Whole},
    {u"clng"_s, 1, 1, "N", K::Number, C::Long, F::Whole},
    {u"cstr"_s, 1, 1, "V", K::Text, C::Text, F::Convert},
    {u"cdate"_s, 1, 1, "V", K::Date, C::DateTime, F::Convert},
    {u"cvdate"_s, 1, 1, "V", K::Date, C::DateTime, F::Convert},
    {u"cbool"_s, 1, 1, "V", K::YesNo, C::YesNo, F::Convert},
    // Choices
    {u"iif"_s, 3, 3, "BVV", K::Any, C::Text, F::Iif},
    {u"nz"_s, 1, 2, "VV", K::Any, C::Text, F::Nz},
    {u"isnull"_s, 1, 1, "V", K::YesNo, C::YesNo, F::IsNull},
    // Of many rows
    {u"count"_s, 1, 1, "V", K::Number, C::Long, F::Count},
    {u"sum"_s, 1, 1, "N", K::Number, C::Double, F::Sum},
    {u"avg"_s, 1, 1, "N", K::Number, C::Double, F::Sum},
    {u"min"_s, 1, 1, "V", K::Any, C::Text, F::Extreme},
    {u"max"_s, 1, 1, "V", K::Any, C::Text, F::Extreme},
    {u"first"_s, 1, 1, "V", K::Any, C::Text, F::Edge},
    {u"last"_s, 1, 1, "V", K::Any, C::Text, F::Edge},
};

const Function* findFunction(const QString& name) {
    static const QHash<QString, const Function*> byName = [] {
        QHash<QString, const Function*> table;
        for (const Function& function : functions) table.insert(function.name, &function);
        return table;
    }();
    return byName.value(name.toLower());
}

QStringList functionNames() {
    QStringList names;
    for (const Function& function : functions) names << function.name;
    return names;
}

bool isInterval(const QString& interval) {
    static const QSet<QString> known = {u"yyyy"_s, u"q"_s,  u"m"_s, u"y"_s, u"d"_s,
                                        u"w"_s,    u"ww"_s, u"h"_s, u"n"_s, u"s"_s};
    return known.contains(interval.toLower());
}

}  // namespace data::dialect
