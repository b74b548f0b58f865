// Bringing a database of an older version up to date.
#pragma once

#include <QVector>
#include <functional>

#include "data/connection.h"
#include "schema/tables.h"

namespace schema {

// Brings a database of version toVersion-1 to toVersion. Runs inside a transaction that also stores the new version.
struct UpgradeStep {
    int toVersion;
    std::function<void(data::Connection&)> run;
};

// In order of version, the last one leading to currentVersion.
const QVector<UpgradeStep>& upgradeSteps(Database database);

// Runs the steps above the stored version, each in a transaction of its own: a failure leaves the version reached, and
// the next start goes on from there. Two programs that start at once run each step only once. `before` runs once, and
// only when there is a step to run; its failure lets none of them begin.
void upgrade(data::Connection& connection, const QVector<UpgradeStep>& steps, const std::function<void()>& before = {});

int storedVersion(data::Connection& connection);
void storeVersion(data::Connection& connection, int version);

}  // namespace schema
