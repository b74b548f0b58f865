#include "core/categories.h"

#include "data/recordset.h"
#include "data/sql.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

QStringList categoryNames(data::Connection& connection) {
    QStringList names;
    for (data::Recordset rows(connection, u"select description,code,PAYABLE from cardKategory order by description"_s);
         !rows.eof(); rows.moveNext())
        names << rows[u"description"].text();
    return names;
}

QString categoryName(data::Connection& connection, qint64 code) {
    data::Recordset found(connection, data::Sql(u"select description,Payable from cardKategory where code=?"_s, code));
    return found.isEmpty() ? QString() : found[u"description"].text();
}

qint64 categoryCode(data::Connection& connection, const QString& name) {
    data::Recordset found(connection,
                          data::Sql(u"select description,code from cardKategory where description=?"_s, name));
    if (found.isEmpty())
        throw data::Error(data::ErrorCategory::Constraint, u"Η κατηγορία «%1» δεν υπάρχει πια."_s.arg(name));
    return found[u"code"].toLong();
}

}  // namespace core
