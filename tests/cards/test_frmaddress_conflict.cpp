// A card under change while somebody else changes it, deletes it, or renames what it is of.
#include "carddriver.h"

using namespace support;
using namespace support::card;

class TestFrmAddressConflict : public QObject {
    Q_OBJECT
private slots:
    void aCardThatSomebodyElseDeletedLeavesNoTwinBehind() {
        CardSite card{{"Α", "1"}};
        card.mod.gConn.execute("delete from cards");
        card.desk.prompts.answer(true);
        card.press(Delete);
        QCOMPARE(card.desk.prompts.lastTitle(), "Μήνυμα λάθους");
        QVERIFY(card.desk.prompts.lastText().contains("διαγράφηκε"));
        QCOMPARE(card.count("ToBeDeleted"), 0);
    }

    void twoSeatsOnOneCard() {
        Office office;
        office.addCard("Α", "1", {{"πολη", "Βόλος"}});
        OtherSeat other(office);
        CardDriver here(office.mod), there(other.mod);
        here.press(Edit);
        there.press(Edit);
        here.type(city, "Λάρισα");
        there.type(city, "Τρίκαλα");
        there.type(profession, "γιατρός");
        here.press(Save);
        inNextDialog("ConflictDialog", [](Driver& dialog) { dialog.click("cmdBack"); });
        there.press(Save);
        QVERIFY(there.form.isEditing());
        QCOMPARE(there.shown(city), "Τρίκαλα");
        QCOMPARE(office.text("select πολη from cards"), "Λάρισα");
        QCOMPARE(office.text("select επαγγελμα from cards"), QString());
        there.press(Cancel);
        QCOMPARE(there.shown(city), "Λάρισα");
        QVERIFY(other.desk.prompts.isEmpty());
    }

    // Each took the same card and changed town, remark and category; what stays is chosen field by field.
    void aConflictHasAWayOut() {
        Office office;
        office.mod.gConn.execute("INSERT into CardKategory VALUES (9,'Φίλοι',0)");
        office.addCard("Α", "1", {{"πολη", "Βόλος"}, {"ΣΧΟΛΙΑ1", "παλιό"}, {"FIELdnum1", 4}});
        OtherSeat other(office);
        CardDriver here(office.mod);
        here.press(Edit);
        here.type(city, "Λάρισα");
        here.type(remark, "δικό μου");
        here.type("Text8(10)", "7");
        here.type(profession, "γιατρός");
        other.mod.gConn.execute(
            "update cards set πολη='Τρίκαλα',ΣΧΟΛΙΑ1='δικό τους',FIELdnum1=Null,category=9,URL='x.gr'");
        inNextDialog("ConflictDialog", [](Driver& dialog) {
            QStringList choices;
            for (int i = 0; i < 3; ++i)
                for (const char* array : {"optMine(%1)", "optTheirs(%1)"})
                    choices << dialog.shown(QString(array).arg(i));
            QCOMPARE(choices, QStringList({"η δική μου: Λάρισα", "η δική τους: Τρίκαλα", "η δική μου: δικό μου",
                                           "η δική τους: δικό τους", "η δική μου: 7", "η δική τους: (κενό)"}));
            dialog.click("cmdTheirs");
            dialog.click("optMine(1)");
            dialog.click("cmdSave");
        });
        here.press(Save);
        QVERIFY2(office.desk.prompts.isEmpty(), qPrintable(office.desk.prompts.lastText()));
        QVERIFY(!here.form.isEditing());
        data::Recordset row(office.mod.gConn, "select * from cards");
        QCOMPARE(row[u"πολη"].text() + '|' + row[u"ΣΧΟΛΙΑ1"].text() + '|' + row[u"επαγγελμα"].text() + '|' +
                     row[u"URL"].text() + '|' + row[u"category"].text(),
                 "Τρίκαλα|δικό μου|γιατρός|x.gr|9");
        QVERIFY(row[u"FIELdnum1"].isNull());
    }

    void aCardDeletedElsewhereCanBeSavedAsANewOne() {
        for (const bool anew : {true, false}) {
            CardSite card{{"Α", "1", {{"URL", "x.gr"}}}, {"Β", "2"}};
            card.press(Edit);
            card.type(city, "Λάρισα");
            card.mod.gConn.execute("delete from cards where επωνυμο='Α'");
            card.desk.prompts.answer(anew);
            card.press(Save);
            QVERIFY(card.desk.prompts.lastText().startsWith("Η καρτέλα διαγράφηκε στο μεταξύ"));
            QCOMPARE(card.form.isEditing(), !anew);
            QCOMPARE(card.shown(city), "Λάρισα");
            if (anew) {
                QCOMPARE(card.text("select URL from cards where πολη='Λάρισα' and ΗΜ_ΓΕΝΗΣΗΣ is null"), "x.gr");
                QCOMPARE(card.counter(), "Εμφάνιση Καρτέλας (1/2)");
            } else {
                card.press(Cancel);
                QCOMPARE(card.counter(), "Εμφάνιση Καρτέλας (1/1)");
                QCOMPARE(card.shown(surname), "Β");
            }
        }
    }

    // A row that was imported, say, has nothing where the card shows a default.
    void anEditWritesOnlyWhatItsUserChanged() {
        Office office;
        office.addCard("Α", "1");
        QString nothing = "update cards set ";
        for (const cards::CardField& field : cards::cardFields())
            if (field.column != u"επωνυμο" && field.column != u"ονομα" && field.column != u"category" &&
                field.kind != cards::CardKind::ParamFlag && field.kind != cards::CardKind::Sex)
                nothing += field.column + "=Null,";
        nothing.chop(1);
        office.mod.gConn.execute(nothing);
        const auto given = [&office] {
            QStringList columns;
            data::Recordset row(office.mod.gConn, "select * from cards");
            for (const cards::CardField& field : cards::cardFields())
                if (!row[field.column].isNull()) columns << field.column;
            return columns;
        };
        QStringList wanted = given();
        OtherSeat other(office);
        CardDriver here(office.mod), there(other.mod);
        here.press(Edit);
        there.press(Edit);
        here.type(city, "Λάρισα");
        there.type(profession, "γιατρός");
        here.press(Save);
        there.press(Save);
        QVERIFY2(other.desk.prompts.isEmpty(), qPrintable(other.desk.prompts.lastText()));
        QCOMPARE(office.text("select πολη from cards") + office.text("select επαγγελμα from cards"), "Λάρισαγιατρός");
        QCOMPARE(given().size(), wanted.size() + 2);
        // What is on show for want of a date becomes the card's when it is entered.
        there.press(Edit);
        there.click("cmdΣήμερα");
        emit there.find<controls::DatePicker>("DTPcustDate(0)")->picked(QDate(2026, 11, 5));
        there.press(Save);
        QCOMPARE(given().size(), wanted.size() + 4);
        for (const char* column : {"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ", "FIELddate1"})
            QCOMPARE(office.value(QString("select %1 from cards").arg(column)).toDateTime().date(), QDate(2026, 11, 5));
    }

    void anEditStartsFromTheNewestValues() {
        CardSite card{{"Α", "1", {{"πολη", "Βόλος"}}}};
        card.mod.gConn.execute("update cards set πολη='Λάρισα'");
        card.press(Edit);
        QCOMPARE(card.shown(city), "Λάρισα");
        card.type(profession, "γιατρός");
        card.press(Save);
        QCOMPARE(card.text("select πολη from cards"), "Λάρισα");
    }

    // Somebody else renames and deletes categories while a card is being typed.
    void categoriesFollowOtherSeats() {
        Office office;
        office.mod.gConn.execute("INSERT into CardKategory VALUES (9,'Φίλοι',0)");
        office.addCard("Α", "1");
        OtherSeat other(office);
        CardDriver card(office.mod);
        auto* list = card.find<QComboBox>("Combo1");
        const auto rename = [&](const QString& to) {
            other.mod.gConn.execute(data::Sql(u"update CardKategory set Description=? where code=9"_s, to));
        };
        card.press(AddNew);
        card.type(surname, "Β");
        card.type(firstName, "2");
        card.type("Combo1", "Φίλοι");
        rename("Γνωστοί");
        card.form.FillCombo();
        QCOMPARE(list->currentText(), "Γνωστοί");
        rename("Συγγενείς");
        card.press(Save);
        QVERIFY2(office.desk.prompts.isEmpty(), qPrintable(office.desk.prompts.lastText()));
        QCOMPARE(office.value("select category from cards where ονομα='2'").toInt(), 9);
        QCOMPARE(list->currentText(), "Συγγενείς");

        rename("Πρώην");
        card.press(Edit);
        list->showPopup();
        list->hidePopup();
        QVERIFY(list->findText("Πρώην") > 0);
        list->setCurrentIndex(list->findData(1));
        card.press(Save);
        card.press(Edit);
        card.type("Combo1", "Πρώην");
        other.mod.gConn.execute("delete from CardKategory where code=9");
        card.press(Save);
        QVERIFY(office.desk.prompts.lastText().contains("Η κατηγορία «Πρώην» δεν υπάρχει πια"));
        QVERIFY(card.form.isEditing() && list->findText("Πρώην") < 0);
        list->setCurrentIndex(list->findData(1));
        card.press(Save);
        QVERIFY(!card.form.isEditing());
    }
};

QTEST_MAIN(TestFrmAddressConflict)
#include "test_frmaddress_conflict.moc"
