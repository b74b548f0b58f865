// What only a server can do to the road: its fold, lost connections, locks, descriptions and long names.
#include <sys/socket.h>

#include <QStringEncoder>
#include <future>

#include "data/dialect/enginedialect.h"
#include "data/opening/databasepassword.h"
#include "data/opening/fileidentity.h"
#include "data/postgres/pgdialect.h"
#include "data/values/fold.h"
#include "roadfixture.h"
#include "support/cases.h"
#include "support/rowtexts.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;
using support::rowTexts;

namespace {

// Ends the session of an engine from another one, as a server that restarts does.
void cut(postgres::PgEngine& victim, const ServerDescription& server) {
    postgres::PgEngine other(server, {});
    other.query("SELECT pg_terminate_backend($1)", {victim.backendId()}, nullptr);
    // The session is gone when the server says so, not when it was told to go.
    while (rowTexts(other, "SELECT count(*) FROM pg_stat_activity WHERE pid = $1", {victim.backendId()}) !=
           QStringList("0")) {
    }
}

// The descriptors of this process that are sockets.
QStringList sockets() {
    QStringList all;
    for (const QString& number : QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System))
        if (QFile::symLinkTarget(u"/proc/self/fd/"_s + number).contains(u"socket:")) all << number;
    return all;
}

// A role of the run's server, gone with this object.
class Role {
public:
    Role(postgres::PgEngine& engine, const QByteArray& more) : engine_(engine), name_(testengine::Schema::newName()) {
        engine_.script("CREATE ROLE " + name_.toLatin1() + " LOGIN " + more);
    }
    ~Role() { engine_.script("DROP OWNED BY " + dialect::sql() + " CASCADE; DROP ROLE " + dialect::sql()); }
    QByteArray dialect::sql() const { return name_.toLatin1(); }
    ServerDescription in(ServerDescription server) const {
        server.user = name_;
        return server;
    }

private:
    postgres::PgEngine& engine_;
    QString name_;
};

}  // namespace

class TestPostgres : public QObject {
    Q_OBJECT

    std::unique_ptr<road::Office> office_;
    const ServerDescription& server() const { return office_->server(); }

private slots:
    void init() { office_ = std::make_unique<road::Office>(); }
    void cleanup() { office_.reset(); }

    // Every character of the planes that have letters folds as it does here.
    void foldOfEveryCharacter() {
        QString all;
        for (char32_t code = 1; code <= 0x1EFFF; ++code) {
            const bool letters = code <= 0x33FF || (code >= 0xA000 && code <= 0xABFF) ||
                                 (code >= 0xF000 && code <= 0x10FFF) || code >= 0x1E000 ||
                                 (code >= 0x11000 && code <= 0x11FFF) || (code >= 0x16E00 && code <= 0x16EFF);
            if (letters && !QChar::isSurrogate(code)) all += QString::fromUcs4(&code, 1) + u'\n';
        }
        postgres::PgEngine engine(server(), {});
        const QStringList wanted = fold(all).split(u'\n');
        const QStringList alone = rowTexts(
            engine, "SELECT fold(c) FROM regexp_split_to_table($1, E'\n') WITH ORDINALITY AS t(c, n) ORDER BY n",
            {all});
        QCOMPARE(alone.size(), wanted.size());
        for (qsizetype i = 0; i < alone.size(); ++i)
            QVERIFY2(alone[i] == wanted[i], qPrintable(u"%1: %2 for %3"_s.arg(i).arg(alone[i], wanted[i])));
        QCOMPARE(rowTexts(engine, "SELECT fold('ΠαπαδόπουλοΣ «Ά» – 5€')"), QStringList("παπαδοπουλοσ «α» – 5€"));
    }

    // An office whose functions are of an older program gets today's at its next opening, with an index on one of them.
    void olderFunctionsAreReplaced() {
        {
            postgres::PgEngine engine(server(), {});
            engine.script(
                "DROP FUNCTION jet_dateadd; DROP FUNCTION jet_addmonths;"
                "CREATE FUNCTION jet_addmonths(at timestamp, months bigint) RETURNS timestamp LANGUAGE dialect::sql IMMUTABLE "
                "STRICT AS 'SELECT at';"
                "CREATE FUNCTION jet_dateadd(interval_name text, number float8, at timestamp) RETURNS timestamp "
                "LANGUAGE plpgsql IMMUTABLE STRICT SET search_path FROM CURRENT AS 'BEGIN RETURN at; END';"
                "CREATE TABLE dated (at timestamp); CREATE INDEX ON dated (jet_dateadd('d', 1, at))");
            engine.setProperty(u"functions"_s, u"2"_s);
        }
        postgres::PgEngine engine(server(), {});
        QCOMPARE(rowTexts(engine, "SELECT jet_dateadd('m', 1, timestamp '2026-01-31')::date::text"),
                 QStringList("2026-02-28"));
        QCOMPARE(rowTexts(engine,
                          "SELECT count(*) FROM pg_proc WHERE proname = 'jet_addmonths' AND pronamespace = (SELECT oid "
                          "FROM pg_namespace WHERE nspname = current_schema())"),
                 QStringList("1"));
    }

    // In any order they come in, names sort by the bytes of their fold, and equal ones by their row.
    void sameOrder() {
        Connection connection;
        connection.open(office_->connectionString());
        const QStringList names = {"Ζήνων", "άλφα", "ΑΛΦΑ", "zeta", "Öl", "οίκος", "Ω", "1", "_", "Άλφα"};
        for (const QString& name : names) connection.execute(u"insert into Cards (επωνυμο) values ('%1')"_s.arg(name));
        connection.execute("update Cards set category=1 where επωνυμο='αλφα' and code<4");  // moves rows about
        QVector<std::pair<QByteArray, int>> keys;
        for (int i = 0; i < names.size(); ++i) keys << std::pair(fold(names[i]).toUtf8(), i);
        std::sort(keys.begin(), keys.end());
        QStringList wanted, found;
        for (const auto& [key, i] : keys) wanted << names[i];
        for (Recordset rows(connection, "select επωνυμο from Cards order by επωνυμο"); !rows.eof(); rows.moveNext())
            found << rows.field(0).text();
        QCOMPARE(found, wanted);
        found.clear();
        for (Recordset rows(connection, "select επωνυμο from Cards"); !rows.eof(); rows.moveNext())
            found << rows.field(0).text();
        QCOMPARE(found, names);
    }

    void lostConnection() {
        postgres::PgEngine engine(server(), {});
        engine.execute("INSERT INTO \"Saves\" (a) VALUES ($1)", {1});
        cut(engine, server());
        VERIFY_ERROR(Connection, engine.execute("INSERT INTO \"Saves\" (a) VALUES ($1)", {2}));
        engine.execute("INSERT INTO \"Saves\" (a) VALUES ($1)", {3});
        QCOMPARE(rowTexts(engine, "SELECT a FROM \"Saves\" ORDER BY a"), QStringList({"1", "3"}));
        QCOMPARE(rowTexts(engine, "SELECT fold('Ώ')"), QStringList("ω"));  // the new session is set up as the first was
    }

    // The server carries out what it got; only its answer is missing, and another try would write it twice.
    void lostAnswer() {
        const QStringList before = sockets();
        postgres::PgEngine engine(server(), {});
        QStringList mine = sockets();
        mine.removeIf([&](const QString& socket) { return before.contains(socket); });
        QCOMPARE(mine.size(), 1);
        const auto insert = [&] { engine.execute("INSERT INTO \"Saves\" (a) VALUES (7)", {}); };
        insert();
        ::shutdown(mine[0].toInt(), SHUT_RD);
        VERIFY_FAILURE(u"πριν δοκιμάσετε ξανά", insert());
        while (rowTexts(engine, "SELECT count(*) FROM \"Saves\"") != QStringList("2")) {
        }
    }

    // What was written before the loss is gone, so nothing behind it may be kept either.
    void lostInTransaction() {
        postgres::PgEngine engine(server(), {});
        engine.begin();
        engine.execute("INSERT INTO \"Saves\" (a) VALUES (1)", {});
        cut(engine, server());
        for (int i = 0; i < 3; ++i)
            VERIFY_ERROR(Connection, engine.execute("INSERT INTO \"Saves\" (a) VALUES (2)", {}));
        VERIFY_ERROR(Connection, engine.commit());
        engine.rollback();
        QCOMPARE(rowTexts(engine, "SELECT count(*) FROM \"Saves\""), QStringList("0"));
    }

    void failedTransactionIsNotSaved() {
        postgres::PgEngine engine(server(), {});
        engine.begin();
        VERIFY_ERROR(State, engine.begin());
        engine.execute("INSERT INTO \"Saves\" (a) VALUES (1)", {});
        VERIFY_ERROR(Type, engine.execute("INSERT INTO \"Saves\" (a) VALUES ($1)", {"x"}));
        VERIFY_ERROR(Syntax, engine.script("nonsense"));
        VERIFY_ERROR(State, engine.commit());
        QCOMPARE(rowTexts(engine, "SELECT count(*) FROM \"Saves\""), QStringList("0"));
    }

    void deadlock() {
        postgres::PgEngine one(server(), {}), two(server(), {});
        one.script("INSERT INTO \"Saves\" (a) VALUES (1), (2)");
        one.begin();
        two.begin();
        one.execute("UPDATE \"Saves\" SET b=1 WHERE a=1", {});
        two.execute("UPDATE \"Saves\" SET b=2 WHERE a=2", {});
        auto waiting = std::async(std::launch::async, [&] {
            return errorOf([&] { one.execute("UPDATE \"Saves\" SET b=1 WHERE a=2", {}); });
        });
        const auto mine = errorOf([&] { two.execute("UPDATE \"Saves\" SET b=2 WHERE a=1", {}); });
        if (mine) two.rollback();
        const auto theirs = waiting.get();
        QVERIFY(mine.has_value() != theirs.has_value());
        const Error& error = mine ? *mine : *theirs;
        QCOMPARE(error.category(), ErrorCategory::Busy);
        QVERIFY2(error.text().contains("Τίποτα δεν αποθηκεύτηκε"), error.what());
        one.rollback();
        two.rollback();
    }

    void onlyReading() {
        OpenSettings settings;
        settings.readOnly = true;
        postgres::PgEngine reader(server(), settings), writer(server(), {});
        VERIFY_ERROR(ReadOnly, reader.execute("INSERT INTO \"Saves\" (a) VALUES (1)", {}));
        VERIFY_ERROR(ReadOnly, writer.query("DELETE FROM \"Saves\"", {}, nullptr));
        VERIFY_ERROR(ReadOnly,
                     writer.query("WITH x AS (DELETE FROM \"Saves\" RETURNING *) SELECT * FROM x", {}, nullptr));
    }

    // A number that was given is not drawn again.
    void givenNumbers() {
        const auto table = [] {
            TableInfo info;
            info.name = u"Numbered"_s;
            info.columns = {{"code", ColumnType::Autonumber, 0}, {"name", ColumnType::Text, 10}};
            info.autonumber = 0;
            return info;
        }();
        postgres::PgEngine engine(server(), {});
        engine.script(postgres::pgDialect().createTable(table, {}));
        Connection connection;
        connection.open(office_->connectionString());
        for (const char* dialect::sql : {"insert into Numbered (name) values ('α')", "insert into Numbered values (7,'β')",
                                "insert into Numbered (name) values ('γ')", "insert into Numbered values (5,'δ')",
                                "insert into Numbered (name) values ('ε')"})
            connection.execute(dialect::sql);
        QCOMPARE(rowTexts(engine, "SELECT code FROM \"Numbered\" ORDER BY code"),
                 QStringList({"1", "5", "7", "8", "9"}));
        VERIFY_ERROR(Constraint, connection.execute("insert into Numbered values (9,'ζ')"));
    }

    // Two names that begin alike for longer than the server keeps names stay two.
    void longNames() {
        const QString beginning(40, u'Ω');
        TableInfo table;
        table.name = u"Πίνακας"_s;
        table.columns = {{beginning + u'1', ColumnType::Text, 20}, {beginning + u'2', ColumnType::YesNo, 0}};
        postgres::PgEngine engine(server(), {});
        engine.script(postgres::pgDialect().createTable(table, {}));
        const Catalog catalog = engine.readCatalog();
        const auto found = std::find_if(catalog.tables().begin(), catalog.tables().end(),
                                        [](const TableInfo& info) { return info.columns.size() == 2; });
        QVERIFY(found != catalog.tables().end());
        QCOMPARE(found->columns[0].name, table.columns[0].name);
        QCOMPARE(found->columns[1].name, table.columns[1].name);
        QCOMPARE(found->rowIdentity, "_row");
        QCOMPARE(found->name, table.name);
    }

    void usersPassword() {
        testengine::Schema users(DatabaseKind::Users);
        OpenSettings right;
        right.password = u"σωστός"_s;
        postgres::PgEngine(users.description(), right).setProperty(u"password"_s, {});
        {
            postgres::PgEngine engine(users.description(), {});
            QCOMPARE(engine.kind(), DatabaseKind::Users);
            setDatabasePassword(engine, right.password);
        }
        VERIFY_ERROR(Password, postgres::PgEngine(users.description(), {}));
        postgres::PgEngine(users.description(), right);
        VERIFY_ERROR(Constraint, postgres::createPgDatabase(users.description(), DatabaseKind::Users));
        postgres::PgEngine(users.description(), right);  // and nothing was touched
    }

    // An administrator prepared the schema for one role; another is its member, a third has nothing to do with it.
    void membersWorkInTheOwnersName() {
        postgres::PgEngine admin(server(), {});
        const Role owner(admin, "");
        const Role member(admin, "IN ROLE " + owner.sql()), stranger(admin, "");
        admin.script("ALTER ROLE " + member.sql() + " SET default_transaction_isolation TO 'repeatable read'");
        ServerDescription office = server();
        office.schema = testengine::Schema::newName();
        admin.script("CREATE SCHEMA " + office.schema.toLatin1() + " AUTHORIZATION " + owner.sql());
        postgres::createPgDatabase(member.in(office), DatabaseKind::Main);
        {
            postgres::PgEngine theirs(owner.in(office), {}), engine(member.in(office), {});
            engine.script("CREATE TABLE \"Saves\" (a integer)");
            theirs.script("ALTER TABLE \"Saves\" ADD b integer");
            QCOMPARE(rowTexts(engine, "SHOW default_transaction_isolation"), QStringList("read committed"));
        }
        VERIFY_FAILURE(u"δικαίωμα στο σχήμα", postgres::PgEngine(stranger.in(office), {}));
        postgres::dropPgDatabase(member.in(office));
        QCOMPARE(postgres::pgSchemaState(office), postgres::PgSchemaState::Empty);  // the schema is the administrator's
    }

    // What lies in a schema beside tables is somebody's work, too.
    void aFailedCreationTakesNothingThatWasThere() {
        postgres::PgEngine admin(server(), {});
        ServerDescription office = server();
        office.schema = testengine::Schema::newName();
        const QByteArray schema = office.schema.toLatin1();
        admin.script("CREATE SCHEMA " + schema + "; CREATE FUNCTION " + schema +
                     ".theirs() RETURNS integer LANGUAGE dialect::sql AS 'SELECT 1'");
        VERIFY_ERROR(Constraint, postgres::createPgDatabase(office, DatabaseKind::Main));
        QCOMPARE(rowTexts(admin, "SELECT " + schema + ".theirs()"), QStringList("1"));
        admin.script("DROP SCHEMA " + schema + " CASCADE");
    }

    void refusedServers() {
        ServerDescription nowhere = server();
        nowhere.host += u"/none"_s;
        VERIFY_ERROR(Connection, postgres::PgEngine(nowhere, {}));
        ServerDescription foreign = server();
        foreign.schema = u"pg_catalog"_s;
        VERIFY_ERROR(Connection, postgres::PgEngine(foreign, {}));
        ServerDescription noDatabase = server();
        noDatabase.database = u"there's none"_s;
        VERIFY_FAILURE(u"Ο διακομιστής της βάσης απάντησε", postgres::PgEngine(noDatabase, {}));
    }

    void descriptions() {
        const struct {
            const char* name;
            QString text, host, database;
        } cases[] = {
            {"plain", "host=a\ndatabase=b\n", "a", "b"},
            {"blanks, case, comment, other words", "\uFEFF# γραφείο\r\n\r\n Server = a.b \r\nDBNAME=μία βάση\r\n",
             "a.b", "μία βάση"},
            {"comment and quotes", "host=a # ο παλιός\ndatabase = ' b # \"c\" '  # και αυτή", "a", " b # \"c\" "},
            {"no value", "host", "", ""},
        };
        support::forEach(cases, [](const auto& one) {
            const ServerDescription read = parseServerDescription(decodeDescription(one.text.toUtf8()));
            QCOMPARE(read.host, one.host);
            QCOMPARE(read.database, one.database);
        });
        const struct {
            QString text, says;
        } refusals[] = {
            {"host=a\nhots=b", "γραμμή 2"},
            {"host=a\nuser maria", "γραμμή 2"},
            {"host=a\nschema=" + QString(24, u'ω'), "μακρύ"},
        };
        support::forEach(refusals, [](const auto& one) {
            QVERIFY(looksLikeDescription(decodeDescription(one.text.toUtf8())));
            const auto error = errorOf([&] { parseServerDescription(one.text, "x"); });
            QVERIFY(error && error->category() == ErrorCategory::Connection);
            QVERIFY2(error->text().contains(one.says), error->what());
        });
    }

    void descriptionsReadAsTheyWereWritten() {
        const QTemporaryDir folder;
        ServerDescription server{"a", "5433", " μία \"βάση\" # ", "maria", "'it # s'", "require", "", "με κενό"};
        writeServerDescription(folder.filePath("d"), server);
        const ServerDescription read = readServerDescription(folder.filePath("d"));
        QCOMPARE(read.database, server.database);
        QCOMPARE(read.password, server.password);
        QCOMPARE(read.schema, server.schema);
        QFile wide(folder.filePath("w"));  // as an editor saves "Unicode"
        QVERIFY(wide.open(QIODevice::WriteOnly));
        wide.write(QStringEncoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom).encode("host=a\r\n"));
        wide.close();
        QCOMPARE(identifyFile(wide.fileName()).kind, FileKind::ServerDescription);
        QCOMPARE(readServerDescription(wide.fileName()).host, "a");
    }

    void descriptionsOnTheCommandLine() {
        const ServerDescription read = serverFromOptions("host=a  port=5433 database='μία βάση' user=\"x\" ");
        QCOMPARE(read.host + read.port + read.database + read.user, "a5433μία βάσηx");
        VERIFY_ERROR(Connection, serverFromOptions("host=a nonsense"));
        VERIFY_ERROR(Connection, serverFromOptions("host='a"));
        VERIFY_ERROR(Connection, serverFromOptions("schema=" + QString(47, u's')));  // "s...su" must fit, too
    }
};

QTEST_GUILESS_MAIN(TestPostgres)
#include "test_postgres.moc"
