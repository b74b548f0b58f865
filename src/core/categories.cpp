#include "core/categories.h"

#include "data/recordset.h"
#include "data/sql.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

void fillCategories(data::Connection& connection, QComboBox& list) {
    data::Recordset rows(connection, u"select description,code,PAYABLE from cardKategory order by description"_s);
    const QVariant chosen = list.currentData();
    list.clear();
    list.addItem(QString());
    for (; !rows.eof(); rows.moveNext()) list.addItem(rows[u"description"].text(), rows[u"code"].toLong());
    list.setCurrentIndex(chosen.isValid() ? std::max(0, list.findData(chosen)) : 0);
}

void refillCategories(data::Connection& connection, QComboBox& list) {
    try {
        fillCategories(connection, list);
    } catch (const data::Error&) {
        // The failure before this one was told.
    }
}

void chooseCategory(QComboBox& list, qint64 code, const QString& name) {
    if (name.isEmpty()) return list.setCurrentIndex(0);
    int index = list.findData(code);
    if (index < 0) {
        index = list.count();
        list.addItem(name, code);
    }
    list.setItemText(index, name);
    list.setCurrentIndex(index);
}

std::optional<qint64> chosenCategory(data::Connection& connection, const QComboBox& list) {
    const QVariant chosen = list.currentData();
    if (!chosen.isValid()) return {};
    if (categoryName(connection, chosen.toLongLong()).isEmpty())
        throw data::Error(data::ErrorCategory::Constraint,
                          u"Η κατηγορία «%1» δεν υπάρχει πια."_s.arg(list.currentText()));
    return chosen.toLongLong();
}

QString categoryName(data::Connection& connection, qint64 code) {
    data::Recordset found(connection, data::Sql(u"select description,Payable from cardKategory where code=?"_s, code));
    return found.isEmpty() ? QString() : found[u"description"].text();
}

}  // namespace core
