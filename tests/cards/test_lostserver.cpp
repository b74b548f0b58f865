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
        CardSite card{{"Α", "1", {{"πολη", "Βόλος"}}}};
        card.press(card::Edit);
        card.type(card::city, "Λάρισα");
        lose(card);
        for (const bool editing : {true, false}) {
            card.press(card::Save);
            QCOMPARE(card.desk.prompts.count(), 1);
            QVERIFY(card.desk.prompts.lastText().contains(" Error: "));
            QCOMPARE(card.form.isEditing(), editing);
            QCOMPARE(card.shown(card::city), "Λάρισα");
        }
        QCOMPARE(card.text("select πολη from cards"), "Λάρισα");
    }

    void aMovementIsSavedByTheSecondTry() {
        CardSite card{{"Α", "1"}};
        inNextDialog("frmHistory", [&](Driver& form) {
            form.type("Text7(0)", "Επίσκεψη");
            form.type("txtXreosh", "12,50");
            lose(card);
            for (const bool open : {true, false}) {
                form.click("lblClick(0)");
                QCOMPARE(card.desk.prompts.count(), 1);
                QCOMPARE(form.isOpen(), open);
            }
        });
        card.click("cmdAddHistory");
        QCOMPARE(card.value("select ΧΡΕΩΣΗ from History"), 12.5);
        QCOMPARE(card.count("History"), 1);
    }

    void walkingGoesOn() {
        CardSite card{{"Α", "1"}, {"Β", "2"}};
        lose(card);
        for (const card::Button button : {card::Next, card::Previous}) {
            card.press(button);
            QCOMPARE(card.desk.prompts.count(), 1);
        }
        QCOMPARE(card.shown(card::surname), "Α");
    }
};

QTEST_MAIN(TestLostServer)
#include "test_lostserver.moc"
