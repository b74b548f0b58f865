#include "schema/upgrade.h"

namespace schema {

const QVector<UpgradeStep>& upgradeSteps(Database) {
    static const QVector<UpgradeStep> none;
    return none;
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
