// A server that goes away while somebody types: the box comes, the typing stays, and the next try works.
#include "carddriver.h"

using namespace support;

class TestLostServer : public QObject {
    Q_OBJECT

    // Ends the seat's connection from the server's side, as a restart of the server does.
    static void lose(Office& office) {
        OtherSeat other(office);
        const int backend = static_cast<data::postgres::PgEngine&>(office.mod.gConn.engine()).backendId();
        other.mod.gConn.engine().query("SELECT pg_terminate_backend(" + QByteArray::number(backend) + ", 5000)", {},
                                       nullptr);
    }

private slots:
    void aCardUnderEditIsSavedByTheSecondTry() {
        CardSite office{{"Α", "1", {{"πολη", "Βόλος"}}}};
        auto& card = office.card;
        card.press(card::Edit);
        card.type(card::city, "Λάρισα");
        lose(office);
        for (const bool editing : {true, false}) {
            card.press(card::Save);
            QCOMPARE(office.desk.prompts.count(), 1);
            QVERIFY(office.desk.prompts.lastText().contains(" Error: "));
            QCOMPARE(card.form.isEditing(), editing);
            QCOMPARE(card.shown(card::city), "Λάρισα");
        }
        QCOMPARE(office.text("select πολη from cards"), "Λάρισα");
    }

    void aMovementIsSavedByTheSecondTry() {
        CardSite office{{"Α", "1"}};
        auto& card = office.card;
        inNextDialog("frmHistory", [&](Driver& form) {
            form.type("Text7(0)", "Επίσκεψη");
            form.type("txtXreosh", "12,50");
            lose(office);
            for (const bool open : {true, false}) {
                form.click("lblClick(0)");
                QCOMPARE(office.desk.prompts.count(), 1);
                QCOMPARE(form.isOpen(), open);
            }
        });
        card.click("cmdAddHistory");
        QCOMPARE(office.value("select ΧΡΕΩΣΗ from History"), 12.5);
        QCOMPARE(office.count("History"), 1);
    }

    void walkingGoesOn() {
        CardSite office{{"Α", "1"}, {"Β", "2"}};
        auto& card = office.card;
        lose(office);
        for (const card::Button button : {card::Next, card::Previous}) {
            card.press(button);
            QCOMPARE(office.desk.prompts.count(), 1);
        }
        QCOMPARE(card.shown(card::surname), "Α");
    }
};

QTEST_MAIN(TestLostServer)
#include "test_lostserver.moc"
