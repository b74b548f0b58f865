// Which files open and which are refused, untouched; passwords, damage and the engine's own manners.
#include <sqlite3.h>
#include <sys/stat.h>

#include "data/opening/connectionstring.h"
#include "data/opening/databasepassword.h"
#include "data/opening/password.h"
#include "roadfixture.h"
#include "support/cases.h"
#include "support/files.h"
#include "support/rowtexts.h"

using namespace data;
using support::bytesOf;
using support::write;

namespace {

QByteArray sqliteBytes(quint32 applicationId) {
    QTemporaryDir folder;
    const QString file = folder.filePath("x");
    sqlite::createSqliteFile(file, applicationId);
    return bytesOf(file);
}

OpenSettings settings(const QString& file, const QString& password = {}) {
    return {file, password, false, 50};
}

}  // namespace

class TestFiles : public QObject {
    Q_OBJECT

private slots:
    void refused() {
        const QByteArray jet = QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(2000, '\x5a');
        QByteArray ace = jet;
        ace.replace("Jet", "ACE");
        const struct {
            const char* name;
            QByteArray bytes;
            FileKind kind;
            ErrorCategory category;
            const char* says;
        } cases[] = {
            {"empty", QByteArray(), FileKind::Empty, ErrorCategory::Corrupt, "άδειο"},
            {"Jet", jet, FileKind::Jet, ErrorCategory::Corrupt, "Access"},
            {"ACE", ace, FileKind::Jet, ErrorCategory::Corrupt, "Access"},
            {"noise", QByteArray("\x01\x02\xff\xfe").repeated(500), FileKind::Noise, ErrorCategory::Corrupt,
             "αντίγραφο"},
            {"zeros", QByteArray(8192, '\0'), FileKind::Noise, ErrorCategory::Corrupt, "αντίγραφο"},
            {"prose", QByteArray("Αγαπητέ κύριε,\nσας στέλνω\n"), FileKind::Noise, ErrorCategory::Corrupt, "αντίγραφο"},
            {"other settings", QByteArray("colour=blue\n"), FileKind::Noise, ErrorCategory::Corrupt, "αντίγραφο"},
            {"server", QByteArray("\xEF\xBB\xBF# γραφείο\r\nHost = /none\r\ndatabase=dorvalist\r\n"),
             FileKind::ServerDescription, ErrorCategory::Connection, "Η σύνδεση με τον διακομιστή"},
            {"foreign SQLite", sqliteBytes(0x12345678), FileKind::ForeignSqlite, ErrorCategory::Corrupt, "άλλου"},
            {"SQLite's name alone", QByteArray("SQLite format 3\0", 16), FileKind::Noise, ErrorCategory::Corrupt,
             "αντίγραφο"},
        };
        support::forEach(cases, [](const auto& one) {
            QTemporaryDir folder;
            const QString file = folder.filePath("dorvalist.mdb");
            write(file, one.bytes);
            const QDateTime modified = QFileInfo(file).lastModified();
            QCOMPARE(identifyFile(file).kind, one.kind);
            Connection connection;
            const auto error = errorOf([&] { connection.open("data source=" + file); });
            QVERIFY(error && !connection.isOpen());
            QCOMPARE(error->category(), one.category);
            QVERIFY2(error->text().contains(one.says), error->what());
            QCOMPARE(bytesOf(file), one.bytes);
            QCOMPARE(QFileInfo(file).lastModified(), modified);
            QCOMPARE(support::entriesOf(folder.path()).size(), 1);
        });
    }

    void notAFile() {
        QTemporaryDir folder;
        Connection connection;
        QCOMPARE(identifyFile(folder.filePath("none")).kind, FileKind::Missing);
        QCOMPARE(identifyFile(folder.path()).kind, FileKind::Unreadable);
        const QString pipe = folder.filePath("pipe");
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QCOMPARE(identifyFile(pipe).kind, FileKind::Unreadable);
        VERIFY_ERROR(Connection, connection.open("data source=" + folder.filePath("none")));
        VERIFY_ERROR(Connection, connection.open("Provider=x"));
        VERIFY_ERROR(Connection, connection.execute("delete from Cards"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::System).size(), 1);
    }

    void connectionStrings() {
        const struct {
            const char* name;
            QString text, source, password;
        } cases[] = {
            {"as the program writes it",
             "Provider=microsoft.jet.oledb.4.0;data source=/γρα φείο/dorvalist.mdb; Jet OLEDB:Database Password=tbw",
             "/γρα φείο/dorvalist.mdb", "tbw"},
            {"case and blanks", " DATA SOURCE = C:\\x\\O'Neil=2.mdb ;;junk; ", "C:\\x\\O'Neil=2.mdb", ""},
            {"quoted", "Data Source=\"/a;b/\"\"c\"\".mdb\" ;jet oledb:database password=' x '", "/a;b/\"c\".mdb",
             " x "},
            {"unclosed quote", "data source='/a", "/a", ""},
            {"empty", "", "", ""},
            {"last counts", "data source=a;data source=b", "b", ""},
        };
        support::forEach(cases, [](const auto& one) {
            const auto properties = parseConnectionString(one.text);
            QCOMPARE(properties.value("data source"), one.source);
            QCOMPARE(properties.value("jet oledb:database password"), one.password);
        });
    }

    void databasePassword() {
        QTemporaryDir folder;
        const QString file = folder.filePath("dorvalistu.mdb");
        sqlite::createSqliteFile(file, usersApplicationId);
        {
            sqlite::SqliteEngine engine(settings(file));
            setDatabasePassword(engine, "πρώτος");
            setDatabasePassword(engine, "κωδ'ικός;");
            QVERIFY(engine.readCatalog().tables().isEmpty());
        }
        QVERIFY(!bytesOf(file).contains(QString("κωδ'ικός;").toUtf8()));
        const QString string = "data source=" + file + ";Jet OLEDB:Database Password=";
        Connection connection;
        VERIFY_ERROR(Password, connection.open("data source=" + file));
        VERIFY_ERROR(Password, connection.open(string + "πρώτος"));
        QVERIFY(!connection.isOpen());
        connection.open(string + "\"κωδ'ικός;\"");
        QVERIFY(connection.isOpen());
        VERIFY_ERROR(Syntax, connection.execute("delete from _dorvalista"));
        connection.close();

        road::Office office;
        connection.open("data source=" + office.file() + ";Jet OLEDB:Database Password=anything");
        QVERIFY(connection.isOpen());
    }

    void verifiers() {
        const QString one = makeVerifier("κωδικός"), two = makeVerifier("κωδικός", PasswordCost::Light);
        QVERIFY(one.startsWith("$argon2id$") && isVerifier(one) && isVerifier(two));
        QVERIFY(one != makeVerifier("κωδικός"));
        QVERIFY(verifyPassword(one, "κωδικός") && verifyPassword(two, "κωδικός"));
        QVERIFY(!verifyPassword(one, "Κωδικός") && !verifyPassword(one, "") && !verifyPassword(one, one));
        QVERIFY(verifyPassword("1234", "1234") && !verifyPassword("1234", "123") && verifyPassword("", ""));
        // A clear password that only looks like a verifier is still a clear password.
        QVERIFY(!isVerifier("$argon2id$x") && verifyPassword("$argon2id$x", "$argon2id$x"));
        const QString nul = QString::fromUtf8("a\0b", 3);
        QVERIFY(!verifyPassword(makeVerifier(nul, PasswordCost::Light), "a"));
    }

    void createRefusesAnExistingFile() {
        road::Office office;
        const QByteArray before = bytesOf(office.file());
        VERIFY_ERROR(Constraint, sqlite::createSqliteFile(office.file(), mainApplicationId));
        QCOMPARE(bytesOf(office.file()), before);
        VERIFY_ERROR(ReadOnly, sqlite::createSqliteFile(office.folder() + "/none/x.mdb", mainApplicationId));
    }

    void everyConnectionIsSetUp() {
        road::Office office;
        for (int i = 0; i < 2; ++i) {
            sqlite::SqliteEngine engine(settings(office.file()));
            engine.execute("INSERT INTO Saves (a) VALUES (1)", {});
            QVERIFY(QFileInfo(office.file() + "-wal").size() > 0);
            QCOMPARE(support::rowTexts(engine, "PRAGMA synchronous"), QStringList("2"));
            QCOMPARE(support::rowTexts(engine, "PRAGMA foreign_keys"), QStringList("0"));
        }
    }

    void engineErrors() {
        road::Office office;
        sqlite::SqliteEngine engine(settings(office.file()));
        VERIFY_ERROR(Syntax, engine.execute("SELEC 1", {}));
        VERIFY_ERROR(Syntax, engine.execute("SELECT 1; SELECT 2", {}));
        VERIFY_ERROR(Syntax, engine.execute("", {}));
        VERIFY_ERROR(Syntax, engine.execute("SELECT nothing FROM Cards", {}));
        VERIFY_ERROR(Parameter, engine.execute("SELECT ?1", {}));
        VERIFY_ERROR(ReadOnly, engine.query("DELETE FROM Cards", {}, nullptr));
        engine.execute("INSERT INTO Cards (code) VALUES (?1)", {5});
        VERIFY_ERROR(Constraint, engine.execute("INSERT INTO Cards (code) VALUES (?1)", {5}));
        VERIFY_ERROR(Constraint, engine.execute("UPDATE Cards SET \"ΑΝΔΡΑΣ\"=NULL", {}));
        engine.begin();
        VERIFY_ERROR(Other, engine.begin());
        engine.execute("DELETE FROM Cards", {});
        engine.rollback();
        engine.rollback();
        QCOMPARE(engine.query("SELECT * FROM Cards", {}, nullptr), 1);
        VERIFY_ERROR(ReadOnly, sqlite::SqliteEngine({office.file(), {}, true, 50}).execute("DELETE FROM Cards", {}));
    }

    // More texts than the cache holds, and one text used inside its own run.
    void statementCache() {
        road::Office office;
        sqlite::SqliteEngine engine(settings(office.file()));
        for (int i = 0; i < 3 * sqlite::StatementCache::capacity; ++i) {
            const QByteArray sql = "SELECT " + QByteArray::number(i);
            QCOMPARE(engine.query(sql, {}, nullptr), 1);
        }
        struct Nested : support::RowTexts {
            sqlite::SqliteEngine* engine = nullptr;
            qint64 inner = 0;
            void beginRow() override {
                RowTexts::beginRow();
                inner += engine->query("SELECT 1 UNION SELECT 2", {}, nullptr);
            }
        } nested;
        nested.engine = &engine;
        QCOMPARE(engine.query("SELECT 1 UNION SELECT 2", {}, &nested), 2);
        QCOMPARE(nested.inner, 4);
    }

    void damagedPage() {
        road::Office office;
        {
            sqlite::SqliteEngine engine(settings(office.file()));
            engine.begin();
            for (int i = 0; i < 2000; ++i)
                engine.execute("INSERT INTO Cards (\"επωνυμο\",\"σχολια\") VALUES (?1,?2)",
                               {QString::number(i), QString(300, u'σ')});
            engine.commit();
        }
        QFile file(office.file());
        QVERIFY(file.open(QIODevice::ReadWrite));
        const qint64 pages = file.size() / 4096;
        QVERIFY(pages > 100);
        for (qint64 page = pages / 2; page < pages / 2 + 3; ++page) {
            file.seek(page * 4096);
            file.write(QByteArray(4096, '\xA5'));
        }
        file.close();
        Connection connection;
        connection.open(office.connectionString());
        VERIFY_ERROR(Corrupt, Recordset(connection, "select * from Cards"));
        VERIFY_ERROR(Corrupt, connection.execute("delete from Cards"));
        QVERIFY(connection.isOpen());
    }

    void damagedBeginning() {
        road::Office office;
        QByteArray bytes = bytesOf(office.file());
        write(office.file(), bytes.left(100) + QByteArray(bytes.size() - 100, '\x33'));
        Connection connection;
        VERIFY_ERROR(Corrupt, connection.open(office.connectionString()));
        write(office.file(), bytes.left(120));
        VERIFY_ERROR(Corrupt, connection.open(office.connectionString()));
    }
};

QTEST_GUILESS_MAIN(TestFiles)
#include "test_files.moc"
