// What a demonstration office has set up: users, categories, lookup lists, captions.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace demo {

struct LookupList {
    QString caption;
    QVector<QString> values;
};
struct Category {
    QString name;
    bool payable;
};
// A parametric column of CustomFields, its caption and, unless it has none, its switch.
struct Caption {
    QString column;
    QString caption;
    QString flag;
};

const QVector<LookupList>& lookupLists();  // Combo1 and on
const QVector<Category>& categories();     // beside the default one, which is number 1
const QVector<Caption>& captions();
const QVector<QString>& taxOffices();
const QVector<QString>& sellers();

}  // namespace demo
