#include "users/accounts.h"

#include <algorithm>

#include "data/recordset.h"
#include "data/values/fold.h"

using namespace Qt::Literals::StringLiterals;

namespace users {

QVector<Account> accounts(data::Connection& users) {
    QHash<qint64, QString> groups;
    for (data::Recordset row(users, u"select code,name from groups"_s); !row.eof(); row.moveNext())
        groups.insert(row[u"code"].toLong(), row[u"name"].text());
    QVector<Account> found;
    for (data::Recordset row(users, u"select * from users order by -group"_s); !row.eof(); row.moveNext())
        found.append({row[u"aa"].toLong(), row[u"UserName"].text(), groups.value(row[u"Group"].toLong())});
    return found;
}

QStringList groupNames(data::Connection& users) {
    QStringList names;
    for (data::Recordset row(users, u"select * from groups order by code"_s); !row.eof(); row.moveNext())
        names << row[u"Name"].text();
    return names;
}

QString groupName(data::Connection& users, const QVariant& number) {
    if (number.isNull()) return {};
    data::Recordset row(users, data::Sql(u"select name from groups where code=?"_s, number.toDouble()));
    return row.isEmpty() ? QString() : row[u"name"].text();
}

std::optional<qint64> groupNumber(data::Connection& users, const QString& name) {
    data::Recordset row(users, data::Sql(u"select code from groups where name=?"_s, name));
    if (row.isEmpty()) return std::nullopt;
    return row[u"code"].toLong();
}

bool isTaken(const QVector<Account>& accounts, const QString& userName, qint64 self) {
    const QString wanted = data::fold(userName);
    return std::any_of(accounts.begin(), accounts.end(), [&](const Account& account) {
        return account.aa != self && data::fold(account.userName) == wanted;
    });
}

}  // namespace users
