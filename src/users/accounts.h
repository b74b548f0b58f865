// What the window of users reads: the users with the names of their groups.
#pragma once

#include <QStringList>
#include <QVariant>
#include <QVector>
#include <optional>

#include "data/connection.h"

namespace users {

struct Account {
    qint64 aa = 0;
    QString userName;
    QString groupName;  // empty for a group that has no name
};

// All of it throws data::Error.
QVector<Account> accounts(data::Connection& users);  // the highest group number first
QStringList groupNames(data::Connection& users);     // by number
QString groupName(data::Connection& users, const QVariant& number);
std::optional<qint64> groupNumber(data::Connection& users, const QString& name);

// Whether somebody other than `self` goes by this name. The logon tells names apart as the dialect compares texts, so
// a name that differs only by case or accents is the same.
bool isTaken(const QVector<Account>& accounts, const QString& userName, qint64 self);

}  // namespace users
