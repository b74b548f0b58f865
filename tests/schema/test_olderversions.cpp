// A database of every older version, brought up to date, is the same as a new one.
#include "copies/upgradecopy.h"
#include "data/opening/databasepassword.h"
#include "schema/check.h"
#include "schema/office.h"
#include "schema/officebuilder.h"
#include "schema/tabfile.h"
#include "schema/tablewriter.h"
#include "schema/upgrade.h"
#include "support/cases.h"
#include "support/officefolder.h"
#include "support/rowtexts.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;
using schema::Database;

namespace {

// What the engine itself says of the tables, indexes, triggers and properties, without the schema's own name.
QStringList structure(data::Connection& connection, const QString& schemaName) {
    const QByteArrayList queries =
        testengine::isPostgres()
            ? QByteArrayList{"SELECT relname::text, relkind::text, coalesce(obj_description(oid, 'pg_class'), '') FROM "
                             "pg_class WHERE relnamespace = (SELECT oid FROM pg_namespace WHERE nspname = "
                             "current_schema())",
                             "SELECT table_name::text, column_name::text, ordinal_position::integer, udt_name::text, "
                             "coalesce(character_maximum_length::integer, 0), is_nullable::text, "
                             "coalesce(column_default, '')::text, is_identity::text, coalesce(collation_name::text, '') "
                             "FROM information_schema.columns WHERE table_schema = current_schema()",
                             "SELECT indexname::text, indexdef FROM pg_indexes WHERE schemaname = current_schema()",
                             "SELECT tgname::text, pg_get_triggerdef(t.oid) FROM pg_trigger t JOIN pg_class c ON c.oid = "
                             "tgrelid WHERE relnamespace = (SELECT oid FROM pg_namespace WHERE nspname = "
                             "current_schema())",
                             "SELECT proname::text, prosrc FROM pg_proc WHERE pronamespace = (SELECT oid FROM "
                             "pg_namespace WHERE nspname = current_schema())"}
            : QByteArrayList{"SELECT type, name, tbl_name, sql FROM sqlite_schema"};
    QStringList lines;
    for (const QByteArray& query : queries) lines += rowTexts(connection.engine(), query);
    for (QString& line : lines) line = line.simplified().replace(schemaName, u"SCHEMA"_s);
    lines.sort();
    return lines;
}

QString schemaName(const QString& file) {
    return testengine::isPostgres() ? data::readServerDescription(file).schema : u"no schema"_s;
}

// An office whose databases were made by an older version, with a row in it.
class OldOffice {
public:
    explicit OldOffice(int version) {
        std::optional<data::ServerDescription> server;
        if (testengine::isPostgres()) server = testengine::server(testengine::Schema::newName());
        schema::OfficeBuilder builder(folder.path(), server);
        for (const Database database : schema::allDatabases) {
            builder.make(database);
            data::Connection connection;
            connection.open(schema::connectionString(database, builder.file(database)));
            data::Transaction transaction(connection);
            schema::makeTables(connection, database, version);
            schema::makeIndexes(connection, database, version);
            if (database == Database::Main)
                connection.execute(u"insert into Cards (ΕΠΩΝΥΜΟ,ΚΕΙΜΕΝΟ1) values ('Παλιά','μια λέξη')"_s);
            else
                data::setDatabasePassword(connection.engine(), schema::usersDatabasePassword());
            schema::storeVersion(connection, version);
            transaction.commit();
        }
        builder.finish();
    }
    ~OldOffice() { dropServerOf(folder.path()); }
    QString file(Database database) const { return schema::databasePath(folder.path(), database); }

    QTemporaryDir folder;
};

}  // namespace

class TestOlderVersions : public QObject {
    Q_OBJECT

    static void upgradeFrom(int version, ScratchOffice& fresh) {
        const OldOffice old(version);
        for (const Database database : schema::allDatabases) {
            data::Connection before, connection;
            const QString string = schema::connectionString(database, old.file(database));
            schema::openToRead(before, string);
            data::Connection& wanted = database == Database::Main ? fresh.main : fresh.users;
            const QString wantedFile = database == Database::Main ? fresh.mainFile() : fresh.usersFile();
            const QString oldName = schemaName(old.file(database)), newName = schemaName(wantedFile);
            QCOMPARE(schema::storedVersion(before), version);
            if (database == Database::Main && version < 3)  // version 4 brought rows alone
                QVERIFY(structure(before, oldName) != structure(wanted, newName));
            before.close();

            QStringList told;
            copies::openUpgraded(connection, string, [&](const QString& what, int) { return told << what, true; });
            QVERIFY(told.value(0).startsWith(u"Αντιγραφή") && told.last().startsWith(u"Προσαρμογή"));
            QCOMPARE(schema::storedVersion(connection), schema::currentVersion);
            QCOMPARE(schema::findings(connection, database), QStringList());
            const QStringList there = structure(connection, oldName), should = structure(wanted, newName);
            for (const QString& line : there) QVERIFY2(should.contains(line), qPrintable(u"only upgraded: "_s + line));
            for (const QString& line : should) QVERIFY2(there.contains(line), qPrintable(u"only new: "_s + line));
            if (database == Database::Main)
                QCOMPARE(firstText(connection, u"select ΕΠΩΝΥΜΟ from Cards where ΚΕΙΜΕΝΟ1 like '%ΛΕΞΗ%'"_s),
                         u"Παλιά"_s);
        }
    }

    // "name dd/mm", in any year.
    static void writeNameDays(const QString& connectionString, const QStringList& lines) {
        data::Connection connection;
        connection.open(connectionString);
        data::Transaction transaction(connection);
        schema::TableWriter writer(connection, *schema::findTable(Database::Main, u"NameDay"),
                                   {u"ONOMA"_s, u"HMERA"_s});
        for (const QString& line : lines)
            writer.write({line.chopped(6),
                          data::wallClock(QDate(1999, line.right(2).toInt(), line.mid(line.size() - 5, 2).toInt()))});
        transaction.commit();
    }
    static QStringList nameDays(data::Connection& connection) {
        QStringList lines;
        for (data::Recordset rows(connection, u"select ONOMA,HMERA from NameDay"_s); !rows.eof(); rows.moveNext())
            lines += rows.field(0).text() + rows.field(1).toDate().toString(u" dd'/'MM");
        lines.sort();
        return lines;
    }

private slots:
    void anUpgradedSchemaIsThatOfANewOne() {
        ScratchOffice fresh;
        for (int version = 1; version < schema::currentVersion; ++version) {
            upgradeFrom(version, fresh);
            if (QTest::currentTestFailed()) QFAIL(qPrintable(u"version %1"_s.arg(version)));
        }
    }

    // Of the delivered rows the office has deleted one and moved one to a day that comes with the upgrade.
    void anOlderOfficeGetsTheNewNameDays() {
        const OldOffice old(3);
        const QString string = schema::connectionString(Database::Main, old.file(Database::Main));
        QStringList before = {u"Μπουμπουλίνα 21/05"_s, u"Άννα 09/12"_s}, added;
        for (const schema::TabRow& row : schema::readTabFile(QString::fromUtf8(DORV_REFERENCE "/namedays.tsv"), 2))
            (row.since < 4 ? before : added) += row.cells.join(u' ');
        QVERIFY(before.removeOne(u"Ζανέτ 07/01"_s) && before.removeOne(u"Άννα 09/09"_s));
        QVERIFY(added.size() > 300 && added.removeOne(u"Άννα 09/12"_s));
        writeNameDays(string, before);

        data::Connection connection;
        copies::openUpgraded(connection, string);
        QStringList wanted = before + added;
        wanted.sort();
        QCOMPARE(nameDays(connection), wanted);
    }

    void anOfficeWithoutNameDaysStaysWithout() {
        const OldOffice old(3);
        data::Connection connection;
        copies::openUpgraded(connection, schema::connectionString(Database::Main, old.file(Database::Main)));
        QCOMPARE(nameDays(connection), QStringList());
    }
};

QTEST_GUILESS_MAIN(TestOlderVersions)
#include "test_olderversions.moc"
