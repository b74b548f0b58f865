#include "data/dialect/enginedialect.h"
#include "schema/upgrade.h"
#include "support/failure.h"
#include "support/officefolder.h"
#include "support/rowtexts.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;
using schema::UpgradeStep;

// The mechanism, on steps of its own above the current version.
class TestUpgrade : public QObject {
    Q_OBJECT

    static constexpr int first = schema::currentVersion + 1;

    static UpgradeStep addCategory(int version, const QString& name, int* runs = nullptr) {
        return {version, [name, runs](data::Connection& connection) {
                    if (runs) ++*runs;
                    connection.execute(u"insert into CardKategory (Description) values ('%1')"_s.arg(name));
                }};
    }
    static QStringList categories(data::Connection& connection) {
        return shownRows(connection, u"select Description from CardKategory order by code"_s);
    }

private slots:
    void runsTheMissingStepsInOrderOnce() {
        ScratchOffice office;
        int runs = 0;
        const QVector<UpgradeStep> steps = {addCategory(schema::currentVersion, u"old"_s, &runs),
                                            addCategory(first, u"A"_s, &runs), addCategory(first + 1, u"B"_s, &runs)};
        schema::upgrade(office.main, steps);
        schema::upgrade(office.main, steps);
        QCOMPARE(runs, 2);
        QCOMPARE(categories(office.main), QStringList({u"ΕΠΑΦΕΣ"_s, u"A"_s, u"B"_s}));
        QCOMPARE(schema::storedVersion(office.main), first + 1);
    }

    void failingStepLeavesTheVersionBefore() {
        ScratchOffice office;
        const UpgradeStep fails = {first + 1, [](data::Connection& connection) {
                                       connection.execute(u"insert into CardKategory (Description) values ('half')"_s);
                                       throw data::Error(data::ErrorCategory::Full, u"disk"_s);
                                   }};
        QCOMPARE(failureOf([&] { schema::upgrade(office.main, {addCategory(first, u"A"_s), fails}); }), u"disk"_s);
        QCOMPARE(schema::storedVersion(office.main), first);
        QCOMPARE(categories(office.main), QStringList({u"ΕΠΑΦΕΣ"_s, u"A"_s}));
        schema::upgrade(office.main, {addCategory(first, u"A"_s), addCategory(first + 1, u"B"_s)});
        QCOMPARE(categories(office.main), QStringList({u"ΕΠΑΦΕΣ"_s, u"A"_s, u"B"_s}));
    }

    void withoutACopyNoStepRuns() {
        ScratchOffice office;
        int runs = 0;
        const auto noCopy = [] { throw data::Error(data::ErrorCategory::Full, u"full"_s); };
        QCOMPARE(failureOf([&] { schema::upgrade(office.main, {addCategory(first, u"A"_s, &runs)}, noCopy); }),
                 u"full"_s);
        QCOMPARE(runs, 0);
        QCOMPARE(schema::storedVersion(office.main), schema::currentVersion);
    }

    void newColumnIsKnownAfterTheStep() {
        ScratchOffice office;
        schema::upgrade(office.main,
                        {{first, [](data::Connection& connection) {
                              connection.engine().script(connection.engine().dialect().addColumn(
                                  *connection.catalog().find(u"Options"), {"extra", data::ColumnType::Text, 255}));
                          }}});
        QCOMPARE(office.main.execute(u"update Options set extra='x'"_s), 1);
    }

    void stepsOfTheProgramLeadToItsVersion() {
        for (const auto database : {schema::Database::Main, schema::Database::Users}) {
            int version = 1;
            for (const UpgradeStep& step : schema::upgradeSteps(database)) QCOMPARE(step.toVersion, ++version);
            QCOMPARE(version, schema::currentVersion);
        }
    }
};

QTEST_GUILESS_MAIN(TestUpgrade)
#include "test_upgrade.moc"
