#include "schema/upgrade.h"

#include "schema/backup.h"
#include "scratchoffice.h"

using namespace Qt::Literals::StringLiterals;
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
        QStringList names;
        data::Recordset rows(connection, u"select Description from CardKategory order by code"_s);
        for (; !rows.eof(); rows.moveNext()) names += rows.field(0).text();
        return names;
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

    // What the program does at opening: a copy first, and none when nothing is to be done.
    void copyBeforeTheFirstStepHoldsTheOldState() {
        ScratchOffice office;
        const QDateTime now(QDate(2026, 11, 5), QTime(10, 30), Qt::UTC);
        QStringList copies;
        for (const auto& [database, connection, file] :
             {std::tuple(schema::Database::Main, &office.main, office.mainFile()),
              std::tuple(schema::Database::Users, &office.users, office.usersFile())}) {
            const auto copy = [&] { copies += schema::copyBeforeUpgrade(*connection, database, file, now); };
            const QVector<UpgradeStep> steps = {
                {first, [](data::Connection& c) { c.engine().script("CREATE TABLE added (a)"); }},
                {first + 1, [](data::Connection& c) {
                     c.engine().script("CREATE TABLE half (a)");
                     throw data::Error(data::ErrorCategory::Full, u"disk"_s);
                 }}};
            QCOMPARE(failureOf([&] { schema::upgrade(*connection, steps, copy); }), u"disk"_s);
            QCOMPARE(schema::storedVersion(*connection), first);
            schema::upgrade(*connection, {steps.first()}, copy);  // nothing to do, no copy
        }
        QCOMPARE(copies, QStringList({office.mainFile() + u".v1-20261105-103000"_s,
                                      office.usersFile() + u".v1-20261105-103000"_s}));
        data::Connection old;
        schema::openToRead(old, schema::connectionString(schema::Database::Main, copies[0]));
        QCOMPARE(schema::storedVersion(old), schema::currentVersion);
        QVERIFY(!old.catalog().find(u"added") && !office.main.catalog().find(u"half"));
        QCOMPARE(firstText(old, u"select Description from CardKategory"_s), u"ΕΠΑΦΕΣ"_s);
        QCOMPARE(QFileInfo(copies[1]).permissions() & 0x77, QFile::Permissions());
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

    void onlyTheLastCopiesStay() {
        ScratchOffice office;
        QString last;
        for (int day = 1; day <= 6; ++day)
            last = schema::copyBeforeUpgrade(office.main, schema::Database::Main, office.mainFile(),
                                             QDateTime(QDate(2026, 11, day), QTime(9, 0), Qt::UTC));
        QCOMPARE(QDir(office.folder.path()).entryList({u"dorvalist.mdb.v*"_s}).size(), 3);
        QVERIFY(QFileInfo::exists(last));
    }

    void newColumnIsKnownAfterTheStep() {
        ScratchOffice office;
        schema::upgrade(office.main, {{first, [](data::Connection& connection) {
                                           connection.engine().script("ALTER TABLE Options ADD COLUMN extra TEXT(255)");
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
