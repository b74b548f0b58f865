#include "schema/repair.h"

#include "data/dialect/enginedialect.h"
#include "data/error.h"
#include "data/triggers.h"
#include "schema/check.h"
#include "schema/indexes.h"
#include "schema/upgrade.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;

struct Step {
    QString done;
    std::function<void(data::Engine&)> work;
};

void planTriggers(QVector<Step>& steps, data::Connection& connection, Database database) {
    for (const data::Trigger& trigger : foreignTriggers(connection, database))
        steps += {u"Αφαιρέθηκε ο ξένος μηχανισμός (trigger) %1."_s.arg(trigger.name),
                  [trigger](data::Engine& engine) { data::dropTrigger(engine, trigger); }};
}

void planWords(QVector<Step>& steps, data::Connection& connection, Database database) {
    for (const Table& table : tables(database)) {
        const data::TableInfo* there = connection.catalog().find(table.name);
        if (!there || table.words.columns.isEmpty()) continue;
        const QVector<int> columns = wordColumns(table, *there);
        if (columns.contains(-1)) continue;
        if (there->words.columns == columns && wordTriggersStand(connection, table)) continue;
        steps += {u"Πίνακας %1: φτιάχτηκε από την αρχή το ευρετήριο των λέξεων."_s.arg(table.name),
                  [info = *there, columns](data::Engine& engine) { data::renewWordIndex(engine, info, columns); }};
    }
}

void planIndexes(QVector<Step>& steps, data::Connection& connection, Database database) {
    const QHash<QString, QString> stored = connection.engine().indexes();
    for (const Table& table : tables(database)) {
        if (!connection.catalog().find(table.name)) continue;
        for (const Index& index : table.indexes) {
            const QByteArray sql = indexSql(connection, table, index);
            if (!index.in(currentVersion) || stored.value(index.name) == QString::fromUtf8(sql)) continue;
            steps += {u"Πίνακας %1: φτιάχτηκε από την αρχή το ευρετήριο %2."_s.arg(table.name, index.name),
                      [name = index.name, sql](data::Engine& engine) {
                          engine.script("DROP INDEX IF EXISTS " + engine.dialect().identifier(name));
                          engine.createIndex(name, sql);
                      }};
        }
    }
}

}  // namespace

QStringList repair(data::Connection& connection, Database database, const std::function<void()>& beforeChange) {
    if (storedVersion(connection) != currentVersion)
        throw data::Error(data::ErrorCategory::State, u"Η βάση δεν είναι της τωρινής έκδοσης."_s);
    QVector<Step> steps;
    planTriggers(steps, connection, database);
    planWords(steps, connection, database);
    planIndexes(steps, connection, database);
    QStringList done;
    if (steps.isEmpty()) return done;
    beforeChange();
    data::Transaction transaction(connection);
    for (const Step& step : steps) {
        step.work(connection.engine());
        done += step.done;
    }
    transaction.commit();
    connection.reloadCatalog();
    return done;
}

}  // namespace schema
