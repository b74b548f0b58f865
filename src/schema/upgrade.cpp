#include "schema/upgrade.h"

namespace schema {
namespace {

struct OneNumber : data::RowSink {
    qint64 value = 0;
    void beginRow() override {}
    void null() override {}
    void integer(qint64 number) override { value = number; }
    void real(double) override {}
    void text(const char*, qsizetype) override {}
    void blob(const char*, qsizetype) override {}
};

}  // namespace

const QVector<UpgradeStep>& upgradeSteps(Database) {
    static const QVector<UpgradeStep> none;
    return none;
}

int storedVersion(data::Connection& connection) {
    OneNumber version;
    connection.engine().query("PRAGMA user_version", {}, &version);
    return int(version.value);
}

void storeVersion(data::Connection& connection, int version) {
    connection.engine().script("PRAGMA user_version = " + QByteArray::number(version));
}

void upgrade(data::Connection& connection, const QVector<UpgradeStep>& steps, const std::function<void()>& before) {
    if (before && !steps.isEmpty() && storedVersion(connection) < steps.last().toVersion) before();
    for (const UpgradeStep& step : steps) {
        if (storedVersion(connection) >= step.toVersion) continue;
        data::Transaction transaction(connection);
        // Somebody else may have run the step while this one waited for the lock.
        if (storedVersion(connection) >= step.toVersion) continue;
        step.run(connection);
        storeVersion(connection, step.toVersion);
        transaction.commit();
        connection.reloadCatalog();
    }
}

}  // namespace schema
