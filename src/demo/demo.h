// An invented office for demonstrations, tests and measurements.
#pragma once

#include <QDate>
#include <QString>
#include <QVector>
#include <functional>

#include "data/connection.h"

namespace demo {

using namespace Qt::Literals::StringLiterals;

// The property of a main database that was filled here, with the seed; whoever wants to write to an office without
// leave asks for it first.
inline const QString demoProperty = u"demo"_s;

struct DemoOptions {
    int cards = 200;
    quint64 seed = 1;
    QDate referenceDate;                                // "today" of the invented data; invalid: the clock's
    std::function<void(int done, int total)> progress;  // called now and then while cards are written; may be empty
};

struct DemoUser {
    QString name;
    int group;
    QString password;
};
const QVector<DemoUser>& demoUsers();

// Fills a freshly created office. The same options give the same rows on every machine; only the password
// verifiers differ, being salted. Name days come from the office's own table. Throws data::Error; then
// nothing of the main database stays.
void fillDemo(data::Connection& main, data::Connection& users, const DemoOptions& options);

}  // namespace demo
