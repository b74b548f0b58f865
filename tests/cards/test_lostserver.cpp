// A server that goes away while somebody types: the box comes, the typing stays, and the next try works.
#include "cards/carddriver.h"
#include "cards/frmhistory.h"

using support::CardDriver;
using support::Office;

class TestLostServer : public QObject {
    Q_OBJECT

    // Ends the seat's connection from the server's side, as a restart of the server does.
    static void lose(Office& office, core::MainMod& seat) {
        support::Desk desk;
        core::MainMod other(desk.services);
        office.open(other);
        const int backend = static_cast<data::postgres::PgEngine&>(seat.gConn.engine()).backendId();
        other.gConn.engine().query("SELECT pg_terminate_backend(" + QByteArray::number(backend) + ", 5000)", {},
                                   nullptr);
    }

private slots:
    void aCardUnderEditIsSavedByTheSecondTry() {
        Office office;
        office.addCard("Α", "1", {{"πολη", "Βόλος"}});
        CardDriver card(office.mod);
        card.press(6);
        card.text(8)->setText("Λάρισα");
        lose(office, office.mod);
        card.press(9);
        QCOMPARE(office.desk.prompts.count(), 1);
        QVERIFY(office.desk.prompts.lastText().contains(" Error: "));
        QVERIFY(card.form.isEditing());
        QCOMPARE(card.text(8)->text(), QString("Λάρισα"));
        card.press(9);
        QVERIFY(!card.form.isEditing());
        QCOMPARE(office.desk.prompts.count(), 1);
        QCOMPARE(office.value("select πολη from cards").toString(), QString("Λάρισα"));
    }

    void aMovementIsSavedByTheSecondTry() {
        Office office;
        const qint64 code = office.addCard("Α", "1");
        int saved = 0;
        cards::frmHistory form(office.mod, nullptr, [&](qint64) { ++saved; });
        form.CodeCards = QString::number(code);
        form.load();
        form.show();
        form.findChild<QLineEdit*>("Text7(0)")->setText("Επίσκεψη");
        form.findChild<QLineEdit*>("txtXreosh")->setText("12,50");
        lose(office, office.mod);
        auto* save = form.findChild<QAbstractButton*>("lblClick(0)");
        save->click();
        QCOMPARE(office.desk.prompts.count(), 1);
        QVERIFY(form.isVisible() && saved == 0);
        save->click();
        QCOMPARE(saved, 1);
        QCOMPARE(office.value("select ΧΡΕΩΣΗ from History").toDouble(), 12.5);
        QCOMPARE(office.value("select count(*) from History").toInt(), 1);
    }

    void walkingGoesOn() {
        Office office;
        office.addCard("Α", "1");
        office.addCard("Β", "2");
        CardDriver card(office.mod);
        lose(office, office.mod);
        card.press(3);
        QCOMPARE(office.desk.prompts.count(), 1);
        card.press(1);
        QCOMPARE(card.text(0)->text(), QString("Α"));
        QCOMPARE(office.desk.prompts.count(), 1);
    }
};

QTEST_MAIN(TestLostServer)
#include "test_lostserver.moc"
