// A whole office carried between the engines, and what must be left of it when that fails.
#include "copies/move.h"

#include <QtTest>

#include "copies/upgradecopy.h"
#include "data/dialect/enginedialect.h"
#include "data/opening/password.h"
#include "data/recordset.h"
#include "schema/check.h"
#include "schema/creation.h"
#include "schema/office.h"
#include "schema/tablewriter.h"
#include "schema/upgrade.h"
#include "support/failure.h"
#include "support/testengine.h"

using namespace Qt::Literals::StringLiterals;
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
    // A small office in files, with one thing in it that `script` put there behind the program's back.
    QString smallOffice(const QByteArray& script = {}) {
        const QString folder = newFolder();
        schema::createOffice(folder, {u"x"_s, {}, {}});
        const auto main = open(folder, Database::Main);
        for (int i = 0; i < 900; ++i) main->execute(u"insert into Cards (ΕΠΩΝΥΜΟ) values ('Επαφή %1')"_s.arg(i));
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
    static void engines() {
        QTest::addColumn<bool>("fromServer");
        QTest::addColumn<bool>("toServer");
        QTest::newRow("files to server") << false << true;
        QTest::newRow("server to files") << true << false;
        QTest::newRow("files to files") << false << false;
        QTest::newRow("server to server") << true << true;
    }

private slots:
    void cleanup() {
        for (const data::ServerDescription& server : made_) data::postgres::dropPgDatabase(server);
        made_.clear();
    }

    void everythingArrives_data() { engines(); }
    void everythingArrives() {
        QFETCH(bool, fromServer);
        QFETCH(bool, toServer);
        const QString from = newOffice(fromServer ? std::optional(newServer()) : std::nullopt), to = newFolder();
        const QByteArray before = contents(from);
        copies::MoveOptions options;
        if (toServer) options.server = newServer();
        const copies::MoveInfo info = copies::moveOffice(from, to, options);
        QCOMPARE(info.pictures, 6);
        QCOMPARE(info.pictureBytes, 4 * 3'000'000 + 6 + 6);
        QVERIFY(contents(from) == before);
        QVERIFY(contents(to) == before);
        QCOMPARE(before.count("\n== "), info.tables.size());

        const auto main = open(to, Database::Main), users = open(to, Database::Users);
        QCOMPARE(schema::findings(*main, Database::Main) + schema::findings(*users, Database::Users), QStringList());
        data::Recordset pass(*users, u"select Pass from Admin"_s);
        QVERIFY(data::verifyPassword(pass.field(0).text(), u"μυστικό"_s));
        const QString open = u"data source="_s + schema::usersDatabasePath(to);
        QVERIFY(failureOf([&] { data::Connection().open(open); }).contains(u"κωδικός"));
        // The numbers go on where they were, over the gaps at the end.
        for (const auto& [table, next] : {std::pair(u"Cards"_s, 1208), {u"Calls"_s, 4}, {u"Combo1"_s, 1}}) {
            main->execute(u"insert into %1 (%2) values ('n')"_s.arg(table, table == u"Cards"   ? u"ΕΠΩΝΥΜΟ"_s
                                                                           : table == u"Calls" ? u"ΟΝΟΜΑ"_s
                                                                                               : u"Description"_s));
            data::Recordset last(*main,
                                 u"select max(%1) from %2"_s.arg(table == u"Calls" ? u"aa"_s : u"code"_s, table));
            QCOMPARE(last.field(0).text().toInt(), next);
        }
    }

    void aBrokenOffMoveLeavesNothing_data() {
        QTest::addColumn<bool>("fromServer");
        QTest::addColumn<bool>("toServer");
        QTest::newRow("files to server") << false << true;
        QTest::newRow("server to files") << true << false;
    }
    void aBrokenOffMoveLeavesNothing() {
        QFETCH(bool, fromServer);
        QFETCH(bool, toServer);
        const QString from = newOffice(fromServer ? std::optional(newServer()) : std::nullopt);
        const QByteArray before = contents(from);
        for (const QString& where : {u"Έλεγχος του dorvalist.mdb"_s, u"Μεταφορά του dorvalist.mdb"_s,
                                     u"Μεταφορά του dorvalistu.mdb"_s, u"Σύγκριση του dorvalistu.mdb"_s}) {
            copies::MoveOptions options;
            if (toServer) options.server = newServer();
            options.progress = [&](const QString& what, int percent) { return what != where || percent < 30; };
            const QString to = newFolder();
            QVERIFY(failureOf([&] { copies::moveOffice(from, to, options); }).contains(u"διακόπηκε"));
            verifyNothingIsLeft(to, options.server);
            QVERIFY(contents(from) == before);
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
        QVERIFY(!failureOf([&] { main->engine().insertRows(table, rows, refused); }).isEmpty());
        QCOMPARE(refused, 3);
    }

    void whatCannotBeStoredIsNamedBeforeAnything_data() {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QStringList>("parts");
        QTest::newRow("NUL") << QByteArray("UPDATE Cards SET σχολια='a'||char(0)||'b' WHERE code IN (3,801)")
                             << QStringList({u"code = 3:"_s, u"code = 801:"_s, u"«σχολια»"_s, u"NUL"_s});
        QTest::newRow("NUL in a row without number")
            << QByteArray("INSERT INTO NameDay (ONOMA) VALUES ('a'),('b'||char(0))")
            << QStringList({u"NameDay, 2η"_s, u"«ONOMA»"_s});
        QTest::newRow("text for a date") << QByteArray("UPDATE Cards SET ΗΜ_ΕΟΡΤΗΣ='χθες' WHERE code=5")
                                         << QStringList({u"code = 5:"_s, u"«ΗΜ_ΕΟΡΤΗΣ»"_s, u"τύπου"_s});
        QTest::newRow("no date") << QByteArray("UPDATE Cards SET ΗΜ_ΕΟΡΤΗΣ=999999999999 WHERE code=5")
                                 << QStringList({u"code = 5:"_s, u"9999"_s});
        QTest::newRow("text too long") << QByteArray("UPDATE Cards SET επωνυμο='" + QByteArray(31, 'x') +
                                                     "' WHERE code=742")
                                       << QStringList({u"code = 742:"_s, u"«επωνυμο»"_s, u"31"_s, u"30"_s});
        QTest::newRow("no UTF-8") << QByteArray("UPDATE Cards SET σχολια=CAST(x'61ff' AS TEXT) WHERE code=5")
                                  << QStringList({u"code = 5:"_s, u"«σχολια»"_s, u"διαβάζονται"_s});
        QTest::newRow("number too large") << QByteArray("INSERT INTO History (codecards) VALUES (3000000000)")
                                          << QStringList({u"History"_s, u"«codecards»"_s, u"όριά του"_s});
        QTest::newRow("infinity") << QByteArray("UPDATE Cards SET total=9e999 WHERE code=5")
                                  << QStringList({u"Cards, εγγραφές 1 έως 500"_s, u"όρια"_s});
        QTest::newRow("another table") << QByteArray("CREATE TABLE Ξένος (a)") << QStringList({u"Ξένος"_s});
        QTest::newRow("older version") << QByteArray("PRAGMA user_version=0") << QStringList({u"dorvalist.mdb"_s});
    }
    void whatCannotBeStoredIsNamedBeforeAnything() {
        QFETCH(QByteArray, script);
        QFETCH(QStringList, parts);
        const QString from = smallOffice(script), to = newFolder();
        const auto server = newServer();
        bool began = false;
        const auto watch = [&](const QString& what, int) {
            began = began || what.startsWith(u"Μεταφορά");
            return true;
        };
        const QString failure = failureOf([&] { copies::moveOffice(from, to, {server, watch}); });
        for (const QString& part : parts) QVERIFY2(failure.contains(part), qPrintable(failure));
        QVERIFY(!began);
        verifyNothingIsLeft(to, server);
    }

    void filesKeepTheCharacterNul() {
        const QString from = smallOffice("UPDATE Cards SET σχολια='a'||char(0)||'b' WHERE code=3"), to = newFolder();
        copies::moveOffice(from, to);
        QVERIFY(contents(to) == contents(from));
    }

    // Something goes wrong between writing and comparing.
    void aDifferenceIsFound_data() {
        QTest::addColumn<bool>("toServer");
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QStringList>("parts");
        const QStringList row = {u"Cards"_s, u"code = 700"_s};
        QTest::newRow("value") << true << QByteArray("UPDATE \"Cards\" SET \"επωνυμο\"='Επαφη 699' WHERE code=700")
                               << QStringList(row + QStringList{u"«επωνυμο»"_s});
        QTest::newRow("Null for empty") << false
                                        << QByteArray(
                                               "UPDATE \"Cards\" SET \"FIELddate1\"=NULL, \"total\"=0 WHERE code=700")
                                        << QStringList(row + QStringList{u"«total»"_s});
        QTest::newRow("missing row") << false << QByteArray("DELETE FROM \"Cards\" WHERE code=700")
                                     << QStringList({u"Cards"_s, u"code = 700"_s});
        QTest::newRow("missing last row") << true << QByteArray("DELETE FROM \"Cards\" WHERE code=900")
                                          << QStringList({u"code = 900"_s, u"λείπει"_s});
        QTest::newRow("one row more") << false << QByteArray("INSERT INTO \"Calls\" (aa) VALUES (9)")
                                      << QStringList({u"Calls"_s, u"περισσότερες"_s});
        QTest::newRow("next number") << true
                                     << QByteArray("INSERT INTO \"Calls\" (aa) VALUES (9); DELETE FROM \"Calls\"")
                                     << QStringList({u"Calls"_s, u"επόμενος"_s});
        QTest::newRow("index") << false << QByteArray("DROP INDEX \"History_card\"")
                               << QStringList({u"History_card"_s});
    }
    void aDifferenceIsFound() {
        QFETCH(QByteArray, script);
        QFETCH(QStringList, parts);
        QFETCH(bool, toServer);
        const QString from = smallOffice(), to = newFolder();
        copies::MoveOptions options;
        if (toServer) options.server = newServer();
        bool spoilt = false;
        options.progress = [&](const QString& what, int) {
            if (spoilt || !what.startsWith(u"Σύγκριση")) return true;
            const QString workshop = QDir(to).entryList({u".dorvalist-*"_s}, QDir::Dirs | QDir::Hidden).value(0);
            open(QDir(to).filePath(workshop), Database::Main)->engine().script(script);
            return spoilt = true;
        };
        const QString failure = failureOf([&] { copies::moveOffice(from, to, options); });
        for (const QString& part : parts) QVERIFY2(failure.contains(part), qPrintable(failure));
        verifyNothingIsLeft(to, options.server);
    }

    void nobodyIsInsideMeanwhile_data() {
        QTest::addColumn<bool>("fromServer");
        QTest::newRow("files") << false;
        QTest::newRow("server") << true;
    }
    void nobodyIsInsideMeanwhile() {
        QFETCH(bool, fromServer);
        const QString from = newFolder();
        schema::createOffice(from, {u"x"_s, {}, fromServer ? std::optional(newServer()) : std::nullopt});
        for (const Database database : schema::allDatabases) {
            const auto seat = open(from, database);
            const QString to = newFolder();
            const QString failure = failureOf([&] { copies::moveOffice(from, to); });
            QVERIFY2(failure.contains(u"Κλείστε το πρόγραμμα"), qPrintable(failure));
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

    void anOfficeThatIsThereIsLeftAlone() {
        const QString from = smallOffice(), to = newFolder();
        const auto server = newServer();
        copies::moveOffice(from, to, {server, {}});
        open(to, Database::Main)->execute(u"delete from Cards"_s);
        const QByteArray emptied = contents(to);
        QVERIFY(failureOf([&] { copies::moveOffice(from, to); }).contains(u"Υπάρχει ήδη"));
        const QString other = newFolder();
        QVERIFY(failureOf([&] { copies::moveOffice(from, other, {server, {}}); }).contains(u"έχει ήδη πίνακες"));
        QVERIFY(!QFileInfo::exists(other));
        QVERIFY(contents(to) == emptied);
    }

    void theToolTellsWhatItDid() {
        const QString from = smallOffice(), to = newFolder();
        const auto server = newServer();
        const QString words = u"host='%1' database=postgres user=postgres schema=%2"_s.arg(server.host, server.schema);
        const auto run = [&](const QStringList& arguments) {
            QProcess tool;
            tool.start(QString::fromUtf8(DORV_PROGRAM), arguments);
            tool.closeWriteChannel();
            if (!tool.waitForFinished(60000)) return u"the tool did not end"_s;
            return QString::number(tool.exitCode()) + u'\n' + QString::fromUtf8(tool.readAllStandardOutput()) +
                   QString::fromUtf8(tool.readAllStandardError());
        };
        const QString moved = run({u"move"_s, from, to, u"--server"_s, words});
        QVERIFY2(moved.startsWith(u"0\n") && moved.contains(u"Cards\t900\n"), qPrintable(moved));
        QVERIFY(moved.contains(u"Σύγκριση του dorvalist.mdb: 100%"));
        QVERIFY(run({u"check"_s, to}).startsWith(u"0\n"));
        const QString again = run({u"move"_s, from, to});
        QVERIFY2(again.startsWith(u"1\n") && again.contains(u"Υπάρχει ήδη"), qPrintable(again));
    }
};

QTEST_GUILESS_MAIN(TestMove)
#include "test_move.moc"
