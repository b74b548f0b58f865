// Statements that last: the bar over them, and its stop button.
#include <sys/socket.h>

#include <QLocalServer>
#include <csignal>

#include "core/guard.h"
#include "core/waitingbar.h"
#include "data/postgres/pgengine.h"
#include "data/postgres/pgparts.h"
#include "support/cases.h"
#include "support/failure.h"
#include "support/officefolder.h"
#include "support/seat.h"

using namespace support;
using data::ErrorCategory;

namespace {

const QString manyRows =
    u"select count(*) from Cards a, Cards b, Cards c, Cards d where a.total+b.total+c.total+d.total>0"_s;

// A user who presses the button as soon as there is one; asks for something else before, as a handler might.
class Impatient : public QObject {
public:
    explicit Impatient(data::Connection& connection) : connection_(connection) {
        startTimer(5);
        connect(&others_, &QTimer::timeout, this, [this] { rings += pressed == 0 && bar(); });
        others_.start(0);
    }
    int pressed = 0;
    int rings = 0;    // of another window's timer while the bar was on show
    int refused = 0;  // statements that came between

protected:
    void timerEvent(QTimerEvent*) override {
        QWidget* const shown = bar();
        if (!shown) return;
        refused += errorOf([&] { firstText(connection_, u"select count(*) from Calls"_s); }).has_value();
        ++pressed;
        shown->findChild<QAbstractButton*>(u"cmdStop"_s)->click();
    }

private:
    static QWidget* bar() {
        QWidget* const modal = QApplication::activeModalWidget();
        return modal && modal->objectName() == core::workProgressName ? modal : nullptr;
    }
    data::Connection& connection_;
    QTimer others_;
};

struct Site : ScratchOffice {
    Site() {
        data::Transaction transaction(main);
        for (int i = 0; i < 200; ++i) main.execute(u"insert into Cards (ΕΠΩΝΥΜΟ,total) values ('α',1)"_s);
        transaction.commit();
    }
    // Somebody else who changed cards and thinks about it.
    void lockCards() {
        copies::openUpgraded(other, schema::connectionString(schema::Database::Main, mainFile()));
        held = std::make_unique<data::Transaction>(other);
        other.execute(u"update Cards set total=2"_s);
    }
    data::Connection other;
    std::unique_ptr<data::Transaction> held;
    core::WaitingBar bar;
};

}  // namespace

class TestWaiting : public QObject {
    Q_OBJECT
private slots:
    void whatLastsCanBeStopped() {
        const struct {
            const char* name;
            bool locked;
            QStringList statements;  // in one transaction when there are several
        } cases[] = {
            {"much to read", false, {manyRows}},
            {"much to write",
             false,
             {u"insert into Cards (total) "_s + QString(manyRows).replace(u"count(*)"_s, u"a.total"_s)}},
            {"a lock", true, {u"update Cards set total=3"_s}},
            {"inside a transaction", false, {u"delete from Cards where code<100"_s, manyRows}},
        };
        forEach(cases, [](const auto& one) {
            Site site;
            if (one.locked) site.lockCards();
            Impatient user(site.main);
            QElapsedTimer clock;
            clock.start();
            VERIFY_ERROR(Stopped, {
                std::unique_ptr<data::Transaction> transaction;
                if (one.statements.size() > 1) transaction = std::make_unique<data::Transaction>(site.main);
                for (const QString& sql : one.statements) site.main.execute(sql);
            });
            QVERIFY2(clock.elapsed() < 4000, qPrintable(QString::number(clock.elapsed())));
            QCOMPARE(user.pressed, 1);
            QCOMPARE(user.refused, 1);
            QCOMPARE(user.rings, 0);
            QVERIFY(!QApplication::activeModalWidget());
            site.held.reset();
            QCOMPARE(firstText(site.main, u"select count(*) from Cards where total=1"_s), u"200"_s);
            site.main.execute(u"update Cards set total=4"_s);
            QTRY_VERIFY(QApplication::overrideCursor() == nullptr);
        });
    }

    void aWindowTellsItInOneSentence() {
        Site site;
        Seat seat;
        const Impatient user(site.main);
        QVERIFY(!core::attempt(seat.mod, nullptr, [&] { site.main.execute(manyRows); }));
        QCOMPARE(seat.desk.prompts.lastText(), u"Η εργασία διακόπηκε."_s);
    }

    // Not the shortest ones, but all that a user doesn't feel.
    void whatIsQuickShowsNothing() {
        Site site;
        const Impatient user(site.main);
        for (int i = 0; i < 300; ++i) site.main.execute(u"select count(*) from Cards a, Cards b"_s);
        QCOMPARE(user.pressed, 0);
    }

    void aServerThatDoesntAnswer() {
        QTemporaryDir folder;
        QLocalServer silent;
        QVERIFY(silent.listen(folder.filePath(u".s.PGSQL.5432"_s)));
        const core::WaitingBar bar;
        data::Connection connection;
        Impatient user(connection);
        data::ServerDescription server;
        server.host = folder.path();
        server.database = u"x"_s;
        VERIFY_ERROR(Stopped, data::postgres::PgEngine(server, {}));
        QCOMPARE(user.pressed, 1);
    }

    void aServerThatFallsSilent() {
        if (!testengine::isPostgres()) return;
        Site site;
        const int session = static_cast<data::postgres::PgEngine&>(site.main.engine()).backendId();
        const Impatient user(site.main);
        kill(session, SIGSTOP);
        VERIFY_FAILURE(u"χωρίς απάντηση", site.main.execute(u"update Cards set total=5"_s));
        kill(session, SIGCONT);
        QCOMPARE(firstText(site.main, u"select count(*) from Cards"_s), u"200"_s);
    }

    // A seat that is switched off keeps neither the server busy nor its locks.
    void whatASeatThatIsGoneAskedForEnds() {
        if (!testengine::isPostgres()) return;
        Site site;
        const data::ServerDescription server = data::readServerDescription(site.mainFile());
        const QByteArray words = "host=" + server.host.toUtf8() + " dbname=postgres user=postgres";
        PGconn* const seat = PQconnectdb(words.constData());
        PQclear(PQexec(seat, data::postgres::pgSessionSettings(server, {}).constData()));
        const int session = PQbackendPID(seat);
        const auto runs = [&] {
            return data::textRows(site.main.engine(), "SELECT 1 FROM pg_stat_activity WHERE state='active' AND pid=$1",
                                  {session})
                       .firstNumber() == 1;
        };
        QVERIFY(PQsendQuery(seat, "SELECT pg_sleep(60)"));
        QTRY_VERIFY(runs());
        shutdown(PQsocket(seat), SHUT_RDWR);
        PQfinish(seat);
        QTRY_VERIFY_WITH_TIMEOUT(!runs(), 9000);
    }
};

QTEST_MAIN(TestWaiting)
#include "test_waiting.moc"
