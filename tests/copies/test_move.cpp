// A whole office carried between the engines, and what must be left of it when that fails.
#include "copies/move.h"
#include "copies/upgradecopy.h"
#include "schema/creation.h"

#include "data/dialect/enginedialect.h"
#include "data/opening/password.h"
#include "schema/check.h"
#include "schema/tablewriter.h"
#include "schema/upgrade.h"
#include "support/cases.h"
#include "support/failure.h"
#include "support/officefolder.h"
#include "support/tool.h"

using namespace support;
using schema::Database;

namespace {

QString everyCharacter() {
    QString text;
    for (char32_t code = 1; code < 0x1FFFF; code = code < 0x3000 ? code + 1 : code + 13)
        if (!QChar::isSurrogate(code)) text += QString::fromUcs4(&code, 1);
    return text;
}

// All that the windows could read, table by table, through the road that they read by.
QByteArray contents(const QString& folder) {
    QByteArray text;
    for (const Database database : schema::allDatabases) {
        data::Connection connection;
        schema::openToRead(connection, schema::connectionString(database, schema::databasePath(folder, database)));
        for (const schema::Table& table : schema::tables(database)) {
            text += "\n== " + table.name.toUtf8();
            data::Recordset rows(connection,
                                 u"select * from [%1]%2"_s.arg(
                                     table.name, table.key.isEmpty() ? QString() : u" order by "_s + table.key));
            for (; !rows.eof(); rows.moveNext()) {
                text += '\n';
                for (int i = 0; i < rows.fieldCount(); ++i) {
                    const QVariant value = rows.field(i).value();
                    text += value.isValid() ? value.typeName() + QByteArray(":") : QByteArray("Null");
                    text += value.typeId() == QMetaType::QByteArray ? value.toByteArray().toHex()
                            : value.typeId() == QMetaType::Double   ? QByteArray::number(value.toDouble(), 'g', 17)
                                                                    : value.toString().toUtf8();
                    text += '\t';
                }
            }
        }
    }
    return text;
}

}  // namespace

class TestMove : public QObject {
    Q_OBJECT

    QTemporaryDir scratch_;
    QVector<data::ServerDescription> made_;
    int folders_ = 0;

    QString newFolder() { return scratch_.filePath(u"γραφείο %1"_s.arg(++folders_)); }
    data::ServerDescription newServer() {
        data::ServerDescription server = testengine::server(testengine::Schema::newName());
        made_ += server;
        server.schema += u'u';
        made_ += server;
        server.schema.chop(1);
        return server;
    }
    static std::unique_ptr<data::Connection> open(const QString& folder, Database database) {
        auto connection = std::make_unique<data::Connection>();
        copies::openUpgraded(*connection, schema::connectionString(database, schema::databasePath(folder, database)));
        return connection;
    }

    void writeCards(data::Connection& main) {
        const schema::Table& cards = *schema::findTable(Database::Main, u"Cards");
        schema::TableWriter writer(
            main, cards,
            {u"ΕΠΩΝΥΜΟ"_s, u"σχολια"_s, u"Photo"_s, u"ΗΜ_ΓΕΝΗΣΗΣ"_s, u"FIELdnum1"_s, u"category"_s, u"ΑΝΔΡΑΣ"_s});
        const QVariant null;
        const QDateTime first = QDateTime(QDate(100, 1, 1), QTime(0, 0), Qt::UTC),
                        last = QDateTime(QDate(9999, 12, 31), QTime(23, 59, 59), Qt::UTC);
        writer.write({null, null, null, null, null, null, null});
        writer.write({u""_s, everyCharacter(), QByteArray(""), first, 1.7976931348623157e308, -32768, true});
        writer.write(
            {u"Ο'Νηλ \\ \t\n"_s, QString(100000, u'ώ'), QByteArray("\0\xff\r\n\\.", 6), last, 5e-324, 32767, false});
        for (int i = 0; i < 4; ++i)  // more than one piece can hold
            writer.write({u"Φ"_s, null, QByteArray(3'000'000 + i, char('a' + i)), null, 0.1, 1, true});
        for (int i = 0; i < 1200; ++i) writer.write({u"Επαφή %1"_s.arg(i), null, null, null, i / 7.0, i, i % 2 == 0});
        main.execute(u"delete from Cards where code=10 or code>1200"_s);
    }
    void writeRest(data::Connection& main, data::Connection& users) {
        for (const qint64 number : {-2147483648LL, 2147483647LL})
            schema::TableWriter(main, *schema::findTable(Database::Main, u"History"), {u"codecards"_s}).write({number});
        schema::TableWriter names(main, *schema::findTable(Database::Main, u"NameDay"), {u"ONOMA"_s, u"HMERA"_s});
        for (int i = 0; i < 1100; ++i)  // rows that only their place tells apart
            names.write({i % 3 == 0 ? QVariant() : u"Όνομα %1"_s.arg(i % 5), QDate(2026, 1, 1)});
        for (int i = 0; i < 3; ++i) main.execute(u"insert into Calls (ΟΝΟΜΑ) values ('x')"_s);
        main.execute(u"delete from Calls"_s);
        users.execute(u"insert into Users (UserName,[Group]) values ('Ελένη',2.1)"_s);
    }
    QString newOffice(const std::optional<data::ServerDescription>& server = {}) {
        const QString folder = newFolder();
        schema::createOffice(folder, {u"μυστικό"_s, {}, server});
        const auto main = open(folder, Database::Main), users = open(folder, Database::Users);
        data::Transaction transaction(*main);
        writeCards(*main);
        writeRest(*main, *users);
        transaction.commit();
        return folder;
    }
    // A small office, in files if there is no server, with one thing in it that `script` put there behind the program's
    // back.
    QString smallOffice(const QByteArray& script = {}, const std::optional<data::ServerDescription>& server = {}) {
        const QString folder = newFolder();
        schema::createOffice(folder, {u"x"_s, {}, server});
        const auto main = open(folder, Database::Main);
        data::Transaction all(*main);
        for (int i = 0; i < 900; ++i) main->execute(u"insert into Cards (ΕΠΩΝΥΜΟ) values ('Επαφή %1')"_s.arg(i));
        all.commit();
        main->engine().script(script);
        return folder;
    }
    static bool exists(const data::ServerDescription& server) {
        QTemporaryDir folder;
        const QString file = folder.filePath(u"d.mdb"_s);
        data::writeServerDescription(file, server);
        return !failureOf([&] { data::Connection().open(u"data source="_s + file); }).contains(u"δεν υπάρχει βάση");
    }
    void verifyNothingIsLeft(const QString& folder, const std::optional<data::ServerDescription>& server) {
        QVERIFY(!QFileInfo::exists(folder));
        if (server) QVERIFY(!exists(*server));
    }
    std::optional<data::ServerDescription> newServerIf(bool wanted) {
        return wanted ? std::optional(newServer()) : std::nullopt;
    }

    void moveEverything(bool fromServer, bool toServer) {
        const QString from = newOffice(newServerIf(fromServer)), to = newFolder();
        const QByteArray before = contents(from);
        const copies::MoveInfo info = copies::moveOffice(from, to, {newServerIf(toServer), {}});
        QCOMPARE(info.pictures, 6);
        QCOMPARE(info.pictureBytes, 4 * 3'000'000 + 6 + 6);
        QVERIFY(contents(from) == before);
        QVERIFY(contents(to) == before);
        QCOMPARE(before.count("\n== "), info.tables.size());

        const auto main = open(to, Database::Main), users = open(to, Database::Users);
        QCOMPARE(schema::findings(*main, Database::Main) + schema::findings(*users, Database::Users), QStringList());
        QVERIFY(data::verifyPassword(firstText(*users, u"select Pass from Admin"_s), u"μυστικό"_s));
        VERIFY_ERROR(Password, data::Connection().open(u"data source="_s + schema::usersDatabasePath(to)));
        // The numbers go on where they were, over the gaps at the end.
        const struct {
            QString table, text, number;
            int next;
        } numbered[] = {{u"Cards"_s, u"ΕΠΩΝΥΜΟ"_s, u"code"_s, 1208},
                        {u"Calls"_s, u"ΟΝΟΜΑ"_s, u"aa"_s, 4},
                        {u"Combo1"_s, u"Description"_s, u"code"_s, 1}};
        for (const auto& [table, text, number, next] : numbered) {
            main->execute(u"insert into %1 (%2) values ('n')"_s.arg(table, text));
            QCOMPARE(firstText(*main, u"select max(%1) from %2"_s.arg(number, table)).toInt(), next);
        }
    }

private slots:
    void cleanup() {
        for (const data::ServerDescription& server : made_) data::postgres::dropPgDatabase(server);
        made_.clear();
    }

    void everythingArrivesFromFiles() {
        moveEverything(false, true);
        if (!QTest::currentTestFailed()) moveEverything(false, false);
    }
    void everythingArrivesFromAServer() {
        moveEverything(true, false);
        if (!QTest::currentTestFailed()) moveEverything(true, true);
    }

    void aBrokenOffMoveLeavesNothing() {
        for (const bool toServer : {true, false}) {
            const QString from = smallOffice({}, newServerIf(!toServer));
            const QByteArray before = contents(from);
            for (const QString& where : {u"Έλεγχος του dorvalist.mdb"_s, u"Μεταφορά του dorvalist.mdb"_s,
                                         u"Μεταφορά του dorvalistu.mdb"_s, u"Σύγκριση του dorvalistu.mdb"_s}) {
                const auto stop = [&](const QString& what, int percent) { return what != where || percent < 30; };
                const copies::MoveOptions options{newServerIf(toServer), stop};
                const QString to = newFolder();
                VERIFY_FAILURE(u"διακόπηκε", copies::moveOffice(from, to, options));
                verifyNothingIsLeft(to, options.server);
                QVERIFY(contents(from) == before);
            }
        }
    }

    // What the check before it let through the server may still refuse.
    void aRefusedRowIsNumbered() {
        const auto server = newServer();
        const QString folder = newFolder();
        schema::createOffice(folder, {u"x"_s, {}, server});
        const auto main = open(folder, Database::Main);
        const data::TableInfo& table = *main->catalog().find(u"Combo1");
        QVector<QVector<QVariant>> rows(5, QVector<QVariant>(table.columns.size()));
        for (int i = 0; i < rows.size(); ++i) rows[i][table.autonumber] = i + 1;
        rows[3][table.indexOf(u"Description")] = QString(300, u'x');
        qsizetype refused = -1;
        VERIFY_ERROR(Constraint, main->engine().insertRows(table, rows, refused));
        QCOMPARE(refused, 3);
        main->engine().script("DROP TABLE \"Combo1\"");
        VERIFY_FAILURE(u"Η εντολή", main->engine().insertRows(table, rows, refused));
    }

    void whatCannotBeStoredIsNamedBeforeAnything() {
        const struct {
            const char* name;
            QByteArray script;
            QStringList says;
        } cases[] = {
            {"NUL",
             "UPDATE Cards SET σχολια='a'||char(0)||'b' WHERE code IN (3,801)",
             {u"code = 3:"_s, u"code = 801:"_s, u"«σχολια»"_s, u"NUL"_s}},
            {"NUL in a row without number",
             "INSERT INTO NameDay (ONOMA) VALUES ('a'),('b'||char(0))",
             {u"NameDay, 2η"_s, u"«ONOMA»"_s}},
            {"text for a date",
             "UPDATE Cards SET ΗΜ_ΕΟΡΤΗΣ='χθες' WHERE code=5",
             {u"code = 5:"_s, u"«ΗΜ_ΕΟΡΤΗΣ»"_s, u"τύπου"_s}},
            {"no date", "UPDATE Cards SET ΗΜ_ΕΟΡΤΗΣ=999999999999 WHERE code=5", {u"code = 5:"_s, u"9999"_s}},
            {"text too long",
             QByteArray("UPDATE Cards SET επωνυμο='" + QByteArray(31, 'x') + "' WHERE code=742"),
             {u"code = 742:"_s, u"«επωνυμο»"_s, u"31"_s, u"30"_s}},
            {"no UTF-8",
             "UPDATE Cards SET σχολια=CAST(x'61ff' AS TEXT) WHERE code=5",
             {u"code = 5:"_s, u"«σχολια»"_s, u"διαβάζονται"_s}},
            {"number too large",
             "INSERT INTO History (codecards) VALUES (3000000000)",
             {u"History"_s, u"«codecards»"_s, u"όριά του"_s}},
            {"infinity", "UPDATE Cards SET total=9e999 WHERE code=5", {u"Cards, εγγραφές 1 έως 500"_s, u"όρια"_s}},
            {"another table", "CREATE TABLE Ξένος (a)", {u"Ξένος"_s}},
            {"older version", "PRAGMA user_version=0", {u"dorvalist.mdb"_s}},
        };
        forEach(cases, [this](const auto& one) {
            const QString from = smallOffice(one.script), to = newFolder();
            const auto server = newServer();
            bool began = false;
            const auto watch = [&](const QString& what, int) {
                began = began || what.startsWith(u"Μεταφορά");
                return true;
            };
            const QString failure = failureOf([&] { copies::moveOffice(from, to, {server, watch}); });
            for (const QString& part : one.says) QVERIFY2(failure.contains(part), qPrintable(failure));
            QVERIFY(!began);
            verifyNothingIsLeft(to, server);
        });
    }

    void filesKeepTheCharacterNul() {
        const QString from = smallOffice("UPDATE Cards SET σχολια='a'||char(0)||'b' WHERE code=3"), to = newFolder();
        copies::moveOffice(from, to);
        QVERIFY(contents(to) == contents(from));
    }

    // Something goes wrong between writing and comparing.
    void aDifferenceIsFound() {
        const QStringList row = {u"Cards"_s, u"code = 700"_s};
        const struct {
            const char* name;
            bool toServer;
            QByteArray script;
            QStringList says;
        } cases[] = {
            {"value", true, "UPDATE \"Cards\" SET \"επωνυμο\"='Επαφη 699' WHERE code=700",
             row + QStringList{u"«επωνυμο»"_s}},
            {"Null for empty", false, "UPDATE \"Cards\" SET \"FIELddate1\"=NULL, \"total\"=0 WHERE code=700",
             row + QStringList{u"«total»"_s}},
            {"missing row", false, "DELETE FROM \"Cards\" WHERE code=700", {u"Cards"_s, u"code = 700"_s}},
            {"missing last row", true, "DELETE FROM \"Cards\" WHERE code=900", {u"code = 900"_s, u"λείπει"_s}},
            {"one row more", false, "INSERT INTO \"Calls\" (aa) VALUES (9)", {u"Calls"_s, u"περισσότερες"_s}},
            {"next number",
             true,
             "INSERT INTO \"Calls\" (aa) VALUES (9); DELETE FROM \"Calls\"",
             {u"Calls"_s, u"επόμενος"_s}},
            {"index", false, "DROP INDEX \"History_card\"", {u"History_card"_s}},
        };
        const QString from = smallOffice();
        forEach(cases, [&](const auto& one) {
            const QString to = newFolder();
            bool spoilt = false;
            const auto spoil = [&](const QString& what, int) {
                if (spoilt || !what.startsWith(u"Σύγκριση")) return true;
                const QString workshop = QDir(to).entryList({u".dorvalist-*"_s}, QDir::Dirs | QDir::Hidden).value(0);
                open(QDir(to).filePath(workshop), Database::Main)->engine().script(one.script);
                return spoilt = true;
            };
            const copies::MoveOptions options{newServerIf(one.toServer), spoil};
            const QString failure = failureOf([&] { copies::moveOffice(from, to, options); });
            for (const QString& part : one.says) QVERIFY2(failure.contains(part), qPrintable(failure));
            verifyNothingIsLeft(to, options.server);
        });
    }

    void nobodyIsInsideMeanwhile() {
        for (const bool fromServer : {false, true}) {
            const QString from = newFolder();
            schema::createOffice(from, {u"x"_s, {}, newServerIf(fromServer)});
            for (const Database database : schema::allDatabases) {
                const auto seat = open(from, database);
                const QString to = newFolder();
                VERIFY_FAILURE(u"Κλείστε το πρόγραμμα", copies::moveOffice(from, to));
                QVERIFY(!QFileInfo::exists(to));
            }
            int tries = 0;
            const auto intrude = [&](const QString&, int) {
                const QString refused = failureOf([&] {
                    data::Connection late;
                    late.open(schema::connectionString(Database::Main, schema::mainDatabasePath(from)) +
                              u"; busy timeout=50"_s);
                    late.execute(u"insert into Calls (ΟΝΟΜΑ) values ('late')"_s);
                });
                tries += refused.isEmpty() ? -1000 : 1;
                return true;
            };
            copies::moveOffice(from, newFolder(), {{}, intrude});
            QVERIFY(tries > 0);
            open(from, Database::Main)->execute(u"insert into Calls (ΟΝΟΜΑ) values ('after')"_s);
        }
    }

    void anOfficeThatIsThereIsLeftAlone() {
        const QString from = smallOffice(), to = newFolder();
        const auto server = newServer();
        copies::moveOffice(from, to, {server, {}});
        open(to, Database::Main)->execute(u"delete from Cards"_s);
        const QByteArray emptied = contents(to);
        VERIFY_FAILURE(u"Υπάρχει ήδη", copies::moveOffice(from, to));
        const QString other = newFolder();
        VERIFY_FAILURE(u"έχει ήδη πίνακες", copies::moveOffice(from, other, {server, {}}));
        QVERIFY(!QFileInfo::exists(other));
        QVERIFY(contents(to) == emptied);
    }

    void theToolTellsWhatItDid() {
        const QString from = smallOffice(), to = newFolder();
        const ToolRun moved = runTool(QStringList{u"move"_s, from, to} + serverOption(newServer()));
        QVERIFY2(moved.code == 0, qPrintable(moved.err));
        QVERIFY(moved.out.contains(u"Cards\t900\n") && moved.err.contains(u"Σύγκριση του dorvalist.mdb: 100%"));
        QCOMPARE(runTool({u"check"_s, to}).code, 0);
        const ToolRun again = runTool({u"move"_s, from, to});
        QVERIFY2(again.code == 1 && again.err.contains(u"Υπάρχει ήδη"), qPrintable(again.err));
    }
};

QTEST_GUILESS_MAIN(TestMove)
#include "test_move.moc"
