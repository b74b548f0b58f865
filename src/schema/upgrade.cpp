#include "schema/upgrade.h"

#include "schema/indexes.h"
#include "schema/reference.h"

namespace schema {

// A version that brings no more than indexes.
static UpgradeStep indexStep(Database database, int version) {
    return {version, [database, version](data::Connection& connection) {
                for (const Table& table : tables(database)) createIndexes(connection, table, version, version);
            }};
}

static UpgradeStep nameDayStep(int version) {
    return {version, [version](data::Connection& connection) { addNameDaysSince(connection, version); }};
}

const QVector<UpgradeStep>& upgradeSteps(Database database) {
    static const QVector<UpgradeStep> main = {indexStep(Database::Main, 2), indexStep(Database::Main, 3),
                                              nameDayStep(4)};
    static const QVector<UpgradeStep> users = {indexStep(Database::Users, 2), indexStep(Database::Users, 3),
                                               indexStep(Database::Users, 4)};
    return database == Database::Main ? main : users;
}

int storedVersion(data::Connection& connection) {
    return connection.engine().version();
}

void storeVersion(data::Connection& connection, int version) {
    connection.engine().setVersion(version);
}

void upgrade(data::Connection& connection, const QVector<UpgradeStep>& steps, const std::function<void()>& before) {
    if (before && !steps.isEmpty() && storedVersion(connection) < steps.last().toVersion) before();
    for (const UpgradeStep& step : steps) {
        if (storedVersion(connection) >= step.toVersion) continue;
        data::Transaction transaction(connection);
        connection.engine().lockForUpgrade();
        // Somebody else may have run the step while this one waited for the lock.
        if (storedVersion(connection) >= step.toVersion) continue;
        step.run(connection);
        storeVersion(connection, step.toVersion);
        transaction.commit();
        connection.reloadCatalog();
    }
}

}  // namespace schema
