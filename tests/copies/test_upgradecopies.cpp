// Copies of the files made before an upgrade.
#include "copies/upgradecopy.h"
#include "schema/office.h"
#include "schema/upgrade.h"
#include "support/failure.h"
#include "support/officefolder.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;
using schema::UpgradeStep;

class TestUpgradeCopies : public QObject {
    Q_OBJECT

    static constexpr int first = schema::currentVersion + 1;

private slots:
    // What the program does at opening: a copy first, and none when nothing is to be done.
    void copyBeforeTheFirstStepHoldsTheOldState() {
        ScratchOffice office;
        const QDateTime now(QDate(2026, 11, 5), QTime(10, 30), Qt::UTC);
        QStringList copies;
        for (const auto& [database, connection, file] :
             {std::tuple(schema::Database::Main, &office.main, office.mainFile()),
              std::tuple(schema::Database::Users, &office.users, office.usersFile())}) {
            const auto copy = [&] { copies += copies::copyBeforeUpgrade(*connection, database, file, now); };
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
        const QString version = u".v%1"_s.arg(schema::currentVersion);
        QCOMPARE(copies, QStringList({office.mainFile() + version + u"-20261105-103000"_s,
                                      office.usersFile() + version + u"-20261105-103000"_s}));
        data::Connection old;
        schema::openToRead(old, schema::connectionString(schema::Database::Main, copies[0]));
        QCOMPARE(schema::storedVersion(old), schema::currentVersion);
        QVERIFY(!old.catalog().find(u"added") && !office.main.catalog().find(u"half"));
        QCOMPARE(firstText(old, u"select Description from CardKategory"_s), u"ΕΠΑΦΕΣ"_s);
        QCOMPARE(QFileInfo(copies[1]).permissions() & 0x77, QFile::Permissions());
    }

    void onlyTheLastCopiesStay() {
        ScratchOffice office;
        const QString foreign = office.mainFile() + u".vasilis-kratise.zip"_s;
        QVERIFY(QFile::copy(office.usersFile(), foreign));
        QString last;
        for (int day = 1; day <= 6; ++day)
            last = copies::copyBeforeUpgrade(office.main, schema::Database::Main, office.mainFile(),
                                             QDateTime(QDate(2026, 11, day), QTime(9, 0), Qt::UTC));
        QCOMPARE(QDir(office.folder()).entryList({u"dorvalist.mdb.v*"_s}).size(), 3 + 1);
        QVERIFY(QFileInfo::exists(foreign));
        QVERIFY(QFileInfo::exists(last));
    }
};

QTEST_GUILESS_MAIN(TestUpgradeCopies)
#include "test_upgradecopies.moc"
