#include "copies/upgradecopy.h"
#include "data/opening/password.h"
#include "schema/check.h"
#include "schema/creation.h"
#include "schema/office.h"
#include "schema/upgrade.h"
#include "support/cases.h"
#include "support/failure.h"
#include "support/files.h"
#include "support/officefolder.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;
using schema::Database;

class TestOffice : public QObject {
    Q_OBJECT

private slots:
    void createdDatabasesAreTheTables() {
        ScratchOffice office;
        QCOMPARE(schema::findings(office.main, Database::Main), QStringList());
        QCOMPARE(schema::findings(office.users, Database::Users), QStringList());
        QCOMPARE(office.main.catalog().find(u"cards")->columns.size(), 75);
        QCOMPARE(office.main.catalog().tables().size(), 20);
    }

    void columnsThatInsertsCountOn() {
        const struct {
            QString table;
            int position;
            QString name;
        } cases[] = {
            {u"CustomFields"_s, 1, u"id"_s},
            {u"CustomFields"_s, 22, u"fnph5"_s},
            {u"CustomFields"_s, 23, u"fc1"_s},
            {u"CustomFields"_s, 42, u"fd4"_s},
            {u"CustomFields"_s, 43, u"FIELdcharh1"_s},
            {u"CustomFields"_s, 54, u"fnh4"_s},
            {u"CustomFields"_s, 61, u"FieldYes1"_s},
            {u"CustomFields"_s, 84, u"fcb4"_s},
            {u"CardKategory"_s, 3, u"payable"_s},
            {u"Cards"_s, 6, u"category"_s},
            {u"Cards"_s, 29, u"ΣΧΟΛΙΑ1"_s},
            {u"Cards"_s, 51, u"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ"_s},
            {u"Cards"_s, 71, u"Photo"_s},
            {u"Cards"_s, 75, u"doy"_s},
            {u"MEDRA"_s, 4, u"Κατηγορία/Οργανικό Σύστημα (SOC)_   κωδικός"_s},
        };
        forEach(cases, [](const auto& one) {
            QCOMPARE(schema::findTable(Database::Main, one.table)->columns.value(one.position - 1).name, one.name);
        });
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
        VERIFY_ERROR(Password,
                     connection.open(u"data source=%1; Jet OLEDB:Database Password=wrong"_s.arg(office.usersFile())));
    }

    void creationNeverTouchesWhatIsThere() {
        for (const QString& existing : {u"dorvalist.mdb"_s, u"dorvalistu.mdb"_s}) {
            QTemporaryDir folder;
            const QString file = folder.filePath(existing);
            write(file, "mine");
            VERIFY_FAILURE(existing, schema::createOffice(folder.path(), {u"x"_s, {}}));
            QCOMPARE(bytesOf(file), QByteArray("mine"));
            QCOMPARE(entriesOf(folder.path()).size(), 1);
        }
    }

    void oddFolderNamesWork() {
        for (const QString& name : {u"a;b=c"_s, u"Ο'Neil \"και\" Υιοί"_s, u" γραφείο "_s}) {
            QTemporaryDir parent;
            const QString folder = parent.filePath(name);
            schema::createOffice(folder, {u"x"_s, {}});
            for (const Database database : schema::allDatabases) {
                data::Connection connection;
                copies::openUpgraded(connection,
                                     schema::connectionString(database, schema::databasePath(folder, database)));
                QVERIFY2(connection.isOpen(), qPrintable(name));
            }
        }
    }

    void lookingNeverWrites() {
        ScratchOffice office;
        data::Connection reader;
        schema::openToRead(reader, schema::connectionString(Database::Main, office.mainFile()));
        VERIFY_ERROR(ReadOnly, reader.execute(u"delete from Options"_s));
        QCOMPARE(firstText(reader, u"select aa from Options"_s), u"1"_s);
    }

    void failedCreationLeavesNothing() {
        QTemporaryDir parent;
        const QString folder = parent.filePath(u"new/office"_s);
        VERIFY_FAILURE(u"namedays.tsv", schema::createOffice(folder, {u"x"_s, parent.filePath(u"nowhere"_s)}));
        QVERIFY(!QFileInfo::exists(folder));
        VERIFY_ERROR(Constraint, schema::createOffice(folder, {QString(), {}}));
        QVERIFY(!QFileInfo::exists(folder));
    }

    // On a server: what is there stays, what was begun goes.
    void failedCreationOnAServer() {
        if (!testengine::isPostgres()) return;
        QTemporaryDir parent;
        schema::NewOffice wanted{u"x"_s, parent.filePath(u"nowhere"_s),
                                 testengine::server(testengine::Schema::newName())};
        const QString folder = parent.filePath(u"a"_s);
        VERIFY_FAILURE(u"namedays.tsv", schema::createOffice(folder, wanted));
        QVERIFY(!QFileInfo::exists(folder));
        wanted.referenceFolder.clear();
        schema::createOffice(folder, wanted);  // the schemas of the failure are free again
        VERIFY_FAILURE(u"έχει ήδη πίνακες", schema::createOffice(parent.filePath(u"b"_s), wanted));
        for (const Database database : schema::allDatabases) {
            data::Connection connection;
            copies::openUpgraded(connection,
                                 schema::connectionString(database, schema::databasePath(folder, database)));
            QCOMPARE(schema::findings(connection, database), QStringList());
        }
        dropServerOf(folder);
    }

    void opensOnlyItsOwnKind() {
        ScratchOffice office;
        office.closeBoth();
        data::Connection connection;
        VERIFY_FAILURE(u"είναι η κύρια βάση",
                       copies::openUpgraded(connection, schema::connectionString(Database::Users, office.mainFile())));
        VERIFY_FAILURE(u"είναι η βάση των χρηστών",
                       copies::openUpgraded(connection, schema::connectionString(Database::Main, office.usersFile())));
        QVERIFY(!connection.isOpen());
    }

    void refusesNewerAndUnfinishedVersions() {
        const QString newer = u"(731)"_s;
        for (const auto& [version, part] : {std::pair(731, newer), {0, u"δεν ολοκληρώθηκε"_s}}) {
            ScratchOffice office;
            schema::storeVersion(office.main, version);
            office.closeBoth();
            const QByteArray before = bytesOf(office.mainFile());
            data::Connection connection;
            const QString string = schema::connectionString(Database::Main, office.mainFile());
            VERIFY_FAILURE(part, copies::openUpgraded(connection, string));
            if (part == newer)
                VERIFY_FAILURE(QString::number(schema::currentVersion), copies::openUpgraded(connection, string));
            QVERIFY(!connection.isOpen());
            QCOMPARE(bytesOf(office.mainFile()), before);
        }
    }

    void newerVersionInTheJournalIsSeen() {
        ScratchOffice office;
        schema::storeVersion(office.main, 731);  // stays in the journal while this connection is open
        data::Connection second;
        VERIFY_FAILURE(u"(731)",
                       copies::openUpgraded(second, schema::connectionString(Database::Main, office.mainFile())));
    }

    void findingsNameTheDamage() {
        const struct {
            const char* name;
            QByteArray damage;
            QString finding;
        } cases[] = {
            {"index gone", "DROP INDEX \"Cards_order\"", u"λείπει το ευρετήριο Cards_order"_s},
            {"other index", "DROP INDEX \"Links_card\"; CREATE INDEX \"Links_card\" ON \"Links\"(aa)",
             u"το ευρετήριο Links_card δεν είναι"_s},
            {"index more", "CREATE INDEX mine ON \"Links\"(aa)", u"ευρετήριο mine"_s},
            {"table gone", "DROP TABLE \"Options\"", u"Λείπει ο πίνακας Options"_s},
            {"table more", "CREATE TABLE mine (a INTEGER)", u"Περισσεύει ο πίνακας mine"_s},
            {"column gone", "ALTER TABLE \"Calls\" DROP COLUMN \"CODECARD\"", u"λείπει η στήλη CODECARD"_s},
            {"column more", "ALTER TABLE \"Calls\" ADD COLUMN mine INTEGER", u"περισσεύει η στήλη mine"_s},
            {"order", "ALTER TABLE \"Calls\" RENAME COLUMN \"ΩΡΑ\" TO mine", u"στη θέση 3"_s},
            {"size",
             QByteArray("DROP TABLE \"ToBeDeleted\"; CREATE TABLE \"ToBeDeleted\" (\"EntryID\" ") +
                 (testengine::isPostgres() ? "varchar(9))" : "TEXT(9))"),
             u"Text(9) αντί για Text(255)"_s},
            {"version", QByteArray(), u"έκδοση της βάσης είναι 9"_s},
        };
        ScratchOffice office;
        forEach(cases, [&](const auto& one) {
            const data::Transaction undone(office.main);
            if (one.damage.isEmpty()) schema::storeVersion(office.main, 9);
            office.main.engine().script(one.damage);
            office.main.reloadCatalog();
            const QString found = schema::findings(office.main, Database::Main).join(u'\n');
            QVERIFY2(found.contains(one.finding), qPrintable(found));
        });
    }
};

QTEST_GUILESS_MAIN(TestOffice)
#include "test_office.moc"
