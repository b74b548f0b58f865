#include "copies/upgradecopy.h"
#include "data/opening/password.h"
#include "schema/check.h"
#include "schema/creation.h"
#include "schema/office.h"
#include "schema/upgrade.h"
#include "support/scratchoffice.h"

using namespace Qt::Literals::StringLiterals;
using schema::Database;

class TestOffice : public QObject {
    Q_OBJECT

    static QByteArray bytesOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private slots:
    void createdDatabasesAreTheTables() {
        ScratchOffice office;
        QCOMPARE(schema::findings(office.main, Database::Main), QStringList());
        QCOMPARE(schema::findings(office.users, Database::Users), QStringList());
        QCOMPARE(office.main.catalog().find(u"cards")->columns.size(), 75);
        QCOMPARE(office.main.catalog().tables().size(), 20);
    }

    void columnsThatInsertsCountOn_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("column");
        const auto row = [](const char* table, int position, const char* column) {
            QTest::addRow("%s %d", table, position)
                << QString::fromUtf8(table) << position << QString::fromUtf8(column);
        };
        row("CustomFields", 1, "id");
        row("CustomFields", 22, "fnph5");
        row("CustomFields", 23, "fc1");
        row("CustomFields", 42, "fd4");
        row("CustomFields", 43, "FIELdcharh1");
        row("CustomFields", 54, "fnh4");
        row("CustomFields", 61, "FieldYes1");
        row("CustomFields", 84, "fcb4");
        row("CardKategory", 3, "payable");
        row("Cards", 6, "category");
        row("Cards", 29, "ΣΧΟΛΙΑ1");
        row("Cards", 51, "ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ");
        row("Cards", 71, "Photo");
        row("Cards", 75, "doy");
        row("MEDRA", 4, "Κατηγορία/Οργανικό Σύστημα (SOC)_   κωδικός");
    }
    void columnsThatInsertsCountOn() {
        QFETCH(QString, table);
        QFETCH(int, position);
        QFETCH(QString, column);
        QCOMPARE(schema::findTable(Database::Main, table)->columns.value(position - 1).name, column);
    }

    void defaultRowsLandInTheirColumns() {
        ScratchOffice office;
        data::Recordset category(office.main, u"select * from CardKategory"_s);
        QCOMPARE(category.recordCount(), 1);
        QCOMPARE(category[u"Code"].toLong(), 1);
        QCOMPARE(category[u"Description"].text(), u"ΕΠΑΦΕΣ"_s);
        QVERIFY(category[u"payable"].toBool());
        QCOMPARE(firstText(office.main, u"select aa from Options"_s), u"1"_s);
        QCOMPARE(firstText(office.users, u"select name from Groups where code=3"_s), u"Περιορισμένοι χρήστες"_s);

        data::Recordset fields(office.main, u"select * from CustomFields"_s);
        QCOMPARE(fields.recordCount(), 1);
        QCOMPARE(fields.fieldCount(), 84);
        const QVector<QPair<QString, QString>> captions = {{u"FIELdchar10"_s, u"Αλφαριθμητικό 10"_s},
                                                           {u"FIELdnum6"_s, u"Αριθμητικό 6"_s},
                                                           {u"FIELddate4"_s, u"Ημερομηνία 4"_s},
                                                           {u"fnph5"_s, {}},
                                                           {u"FIELdcharh2"_s, u"Αλφαριθμητικό 2"_s},
                                                           {u"FieldNumh1"_s, u"Αριθμητικό 1"_s},
                                                           {u"Memo6"_s, u"Κείμενο 6"_s},
                                                           {u"FieldYes8"_s, u"Επιλεκτικό 8"_s},
                                                           {u"FieldCombo1"_s, u"Λίστα 1"_s}};
        for (const auto& [column, caption] : captions) QCOMPARE(fields[column].text(), caption);
        int flags = 0;
        for (int i = 0; i < fields.fieldCount(); ++i) {
            if (fields.field(i).columnType() != data::ColumnType::YesNo) continue;
            ++flags;
            QCOMPARE(fields.field(i).value(), QVariant(false));
        }
        QCOMPARE(flags, 20 + 2 + 4 + 8 + 4);
    }

    void noPasswordStandsInClear() {
        ScratchOffice office;
        const QString stored = firstText(office.users, u"select pass from admin"_s);
        QVERIFY(data::isVerifier(stored));
        QVERIFY(data::verifyPassword(stored, u"secret"_s));
        office.closeBoth();
        const QByteArray bytes = bytesOf(office.usersFile());
        QVERIFY(!bytes.isEmpty());
        QVERIFY(!bytes.contains("secret"));
        QVERIFY(!bytes.contains(schema::usersDatabasePassword().toUtf8()));
        data::Connection connection;
        QVERIFY(!failureOf([&] {
                     connection.open(u"data source=%1; Jet OLEDB:Database Password=wrong"_s.arg(office.usersFile()));
                 }).isEmpty());
    }

    void creationNeverTouchesWhatIsThere_data() {
        QTest::addColumn<QString>("existing");
        QTest::newRow("main") << u"dorvalist.mdb"_s;
        QTest::newRow("users") << u"dorvalistu.mdb"_s;
    }
    void creationNeverTouchesWhatIsThere() {
        QFETCH(QString, existing);
        QTemporaryDir folder;
        QFile file(folder.filePath(existing));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("mine");
        file.close();
        QVERIFY(failureOf([&] { schema::createOffice(folder.path(), {u"x"_s, {}}); }).contains(existing));
        QCOMPARE(bytesOf(file.fileName()), QByteArray("mine"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 1);
    }

    void oddFolderNamesWork_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("semicolon") << u"a;b=c"_s;
        QTest::newRow("quotes") << u"Ο'Neil \"και\" Υιοί"_s;
        QTest::newRow("blank") << u" γραφείο "_s;
    }
    void oddFolderNamesWork() {
        QFETCH(QString, name);
        QTemporaryDir parent;
        const QString folder = parent.filePath(name);
        schema::createOffice(folder, {u"x"_s, {}});
        for (const Database database : schema::allDatabases) {
            const bool main = database == Database::Main;
            const QString file = main ? schema::mainDatabasePath(folder) : schema::usersDatabasePath(folder);
            data::Connection connection;
            copies::openUpgraded(connection, schema::connectionString(database, file));
            QVERIFY(connection.isOpen());
        }
    }

    void lookingNeverWrites() {
        ScratchOffice office;
        data::Connection reader;
        schema::openToRead(reader, schema::connectionString(Database::Main, office.mainFile()));
        QVERIFY(!failureOf([&] { reader.execute(u"delete from Options"_s); }).isEmpty());
        QCOMPARE(firstText(reader, u"select aa from Options"_s), u"1"_s);
    }

    void failedCreationLeavesNothing() {
        QTemporaryDir parent;
        const QString folder = parent.filePath(u"new/office"_s);
        QVERIFY(!failureOf([&] { schema::createOffice(folder, {u"x"_s, parent.filePath(u"nowhere"_s)}); }).isEmpty());
        QVERIFY(!QFileInfo::exists(folder));
        QVERIFY(!failureOf([&] { schema::createOffice(folder, {QString(), {}}); }).isEmpty());
        QVERIFY(!QFileInfo::exists(folder));
    }

    // On a server: what is there stays, what was begun goes.
    void failedCreationOnAServer() {
        if (!testengine::isPostgres()) return;
        QTemporaryDir parent;
        schema::NewOffice wanted{u"x"_s, parent.filePath(u"nowhere"_s),
                                 testengine::server(testengine::Schema::newName())};
        QVERIFY(!failureOf([&] { schema::createOffice(parent.filePath(u"a"_s), wanted); }).isEmpty());
        QVERIFY(!QFileInfo::exists(parent.filePath(u"a"_s)));
        wanted.referenceFolder.clear();
        schema::createOffice(parent.filePath(u"a"_s), wanted);  // the schemas of the failure are free again
        const QString again = failureOf([&] { schema::createOffice(parent.filePath(u"b"_s), wanted); });
        QVERIFY2(again.contains(u"έχει ήδη πίνακες"), qPrintable(again));
        for (const Database database : schema::allDatabases) {
            const bool main = database == Database::Main;
            const QString folder = parent.filePath(u"a"_s);
            const QString file = main ? schema::mainDatabasePath(folder) : schema::usersDatabasePath(folder);
            data::Connection connection;
            copies::openUpgraded(connection, schema::connectionString(database, file));
            QCOMPARE(schema::findings(connection, database), QStringList());
            connection.close();
            data::dropPgDatabase(data::readServerDescription(file));
        }
    }

    void opensOnlyItsOwnKind() {
        ScratchOffice office;
        office.closeBoth();
        data::Connection connection;
        const QString swapped = schema::connectionString(Database::Users, office.mainFile());
        QVERIFY(failureOf([&] { copies::openUpgraded(connection, swapped); }).contains(u"είναι η κύρια βάση"));
        const QString swappedBack = schema::connectionString(Database::Main, office.usersFile());
        QVERIFY(
            failureOf([&] { copies::openUpgraded(connection, swappedBack); }).contains(u"είναι η βάση των χρηστών"));
        QVERIFY(!connection.isOpen());
    }

    void refusesNewerAndUnfinishedVersions_data() {
        QTest::addColumn<int>("version");
        QTest::addColumn<QString>("part");
        QTest::newRow("newer") << 731 << u"(731)"_s;
        QTest::newRow("unfinished") << 0 << u"δεν ολοκληρώθηκε"_s;
    }
    void refusesNewerAndUnfinishedVersions() {
        QFETCH(int, version);
        QFETCH(QString, part);
        ScratchOffice office;
        schema::storeVersion(office.main, version);
        office.closeBoth();
        const QByteArray before = bytesOf(office.mainFile());
        data::Connection connection;
        const QString text = failureOf(
            [&] { copies::openUpgraded(connection, schema::connectionString(Database::Main, office.mainFile())); });
        QVERIFY2(text.contains(part), qPrintable(text));
        if (version > 0) QVERIFY(text.contains(QString::number(schema::currentVersion)));
        QVERIFY(!connection.isOpen());
        QCOMPARE(bytesOf(office.mainFile()), before);
    }

    void newerVersionInTheJournalIsSeen() {
        ScratchOffice office;
        schema::storeVersion(office.main, 731);  // stays in the journal while this connection is open
        data::Connection second;
        QVERIFY(!failureOf([&] {
                     copies::openUpgraded(second, schema::connectionString(Database::Main, office.mainFile()));
                 }).isEmpty());
    }

    void findingsNameTheDamage_data() {
        QTest::addColumn<QByteArray>("damage");
        QTest::addColumn<QString>("finding");
        QTest::newRow("index gone") << QByteArray("DROP INDEX \"Cards_order\"") << u"λείπει το ευρετήριο Cards_order"_s;
        QTest::newRow("other index") << QByteArray(
                                            "DROP INDEX \"Links_card\"; CREATE INDEX \"Links_card\" ON \"Links\"(aa)")
                                     << u"το ευρετήριο Links_card δεν είναι"_s;
        QTest::newRow("index more") << QByteArray("CREATE INDEX mine ON \"Links\"(aa)") << u"ευρετήριο mine"_s;
        QTest::newRow("table gone") << QByteArray("DROP TABLE \"Options\"") << u"Λείπει ο πίνακας Options"_s;
        QTest::newRow("table more") << QByteArray("CREATE TABLE mine (a INTEGER)") << u"Περισσεύει ο πίνακας mine"_s;
        QTest::newRow("column gone") << QByteArray("ALTER TABLE \"Calls\" DROP COLUMN \"CODECARD\"")
                                     << u"λείπει η στήλη CODECARD"_s;
        QTest::newRow("column more") << QByteArray("ALTER TABLE \"Calls\" ADD COLUMN mine INTEGER")
                                     << u"περισσεύει η στήλη mine"_s;
        QTest::newRow("order") << QByteArray("ALTER TABLE \"Calls\" RENAME COLUMN \"ΩΡΑ\" TO mine") << u"στη θέση 3"_s;
        QTest::newRow("size") << QByteArray("DROP TABLE \"ToBeDeleted\"; CREATE TABLE \"ToBeDeleted\" (\"EntryID\" ") +
                                     (testengine::isPostgres() ? "varchar(9))" : "TEXT(9))")
                              << u"Text(9) αντί για Text(255)"_s;
        QTest::newRow("version") << QByteArray() << u"έκδοση της βάσης είναι 9"_s;
    }
    void findingsNameTheDamage() {
        QFETCH(QByteArray, damage);
        QFETCH(QString, finding);
        ScratchOffice office;
        if (damage.isEmpty()) schema::storeVersion(office.main, 9);
        office.main.engine().script(damage);
        office.main.reloadCatalog();
        const QStringList found = schema::findings(office.main, Database::Main);
        QVERIFY2(found.join(u'\n').contains(finding), qPrintable(found.join(u'\n')));
    }
};

QTEST_GUILESS_MAIN(TestOffice)
#include "test_office.moc"
