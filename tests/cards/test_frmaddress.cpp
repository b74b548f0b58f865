// Opening, showing and walking the card.
#include "carddriver.h"
#include "support/cases.h"
#include "support/failure.h"

using namespace support;
using namespace support::card;

class TestFrmAddress : public QObject {
    Q_OBJECT
private slots:
    void anEmptyOfficeOpensEmptyAndLocked() {
        CardSite card{};
        QVERIFY(card.mod.gAddressOpen && card.isLocked());
        QCOMPARE(card.counter(), "Καρτέλα (0/0)");
        QCOMPARE(card.buttons(), browsing);
        for (const Button button : {Previous, Next, Edit}) card.press(button);
        QCOMPARE(card.desk.sound.beeps, 0);
        QVERIFY(card.isLocked());
    }

    void walkingInSurnameOrder() {
        CardSite card{{"Ωμέγα", "Γ"}, {"άλφα", "Α", {{"τηλεφωνο1", "2101"}}}, {"ΒΗΤΑ", "Β"}};
        QCOMPARE(card.shown("Label1(0)"), "άλφα");
        QCOMPARE(card.shown("Label1(2)"), "2101");
        struct Case {
            Button button;
            const char *surname, *counter;
            int beeps;
        };
        for (const Case& c : {Case{Previous, "άλφα", "(1/3)", 1},
                              {Next, "ΒΗΤΑ", "(2/3)", 1},
                              {Next, "Ωμέγα", "(3/3)", 1},
                              {Next, "Ωμέγα", "(3/3)", 2},
                              {Previous, "ΒΗΤΑ", "(2/3)", 2}}) {
            card.press(c.button);
            QCOMPARE(card.shown(surname), c.surname);
            QCOMPARE(card.counter(), QString("Εμφάνιση Καρτέλας ") + c.counter);
            QCOMPARE(card.desk.sound.beeps, c.beeps);
            QCOMPARE(card.buttons(), browsing);
        }
        QCOMPARE(card.shown("Label1(2)"), QString());
        card.key(Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(card.shown(surname), "Ωμέγα");
        card.key(Qt::Key_PageUp, Qt::ControlModifier);
        QCOMPARE(card.shown(surname), "ΒΗΤΑ");
    }

    void aCardDeletedElsewhereDoesNotStopTheWalk() {
        Office office;
        office.addCard("Α", "1");
        const qint64 gone = office.addCard("Β", "2");
        office.addCard("Γ", "3");
        CardDriver card(office.mod);
        office.mod.gConn.execute(QString("delete from cards where code=%1").arg(gone));
        card.press(Next);
        QCOMPARE(office.desk.sound.beeps, 1);
        QVERIFY(card.shown(surname).isEmpty());
        card.press(Edit);
        QVERIFY(card.isLocked());
        card.press(Previous);
        QCOMPARE(card.shown(surname), "Α");
        card.form.goTo(gone + 100);
        QCOMPARE(office.desk.sound.beeps, 2);
        card.press(Next);
        QCOMPARE(card.shown(surname), "Γ");
        QCOMPARE(card.counter(), "Εμφάνιση Καρτέλας (2/2)");
    }

    void aHalfTypedPeriodHidesNoLinks() {
        CardOffice office;
        office.addCard("Α", "1");
        office.addLink(office.addCard("Β", "2"), "Σύμβαση", "α");
        CardDriver card(office.mod);
        card.type("txtFrom", "1/");
        card.press(Next);
        QCOMPARE(card.rows("ListView2"), QStringList{"Σύμβαση|α"});
        QVERIFY(card.isEnabled("Command8"));
    }

    void theWindowWorksWhenTheDatabaseIsBack() {
        Office office;
        office.addCard("Α", "1");
        office.addCard("Β", "2");
        office.lose();
        CardDriver card(office.mod);
        QCOMPARE(office.desk.prompts.count(), 1);
        for (const Button button : {Previous, Next, AddNew, Edit, Exit}) {
            card.press(button);
            QVERIFY(card.isLocked());
        }
        office.desk.prompts.clear();
        office.bringBack();
        card.press(Next);
        QCOMPARE(card.shown(surname), "Β");
        QCOMPARE(card.find<QComboBox>("Combo1")->count(), 2);
        QVERIFY(office.desk.prompts.isEmpty());
        office.lose();
        card.form.ShowCard(true);
        QCOMPARE(office.desk.prompts.lastTitle(), "Μήνυμα λάθους");
        QVERIFY(
            office.desk.prompts.lastText().startsWith("Πρόβλημα κατά την ανάκτηση των δεμένων! \nDorvalist Error: "));
    }

    void aRenamedCategoryStaysTheCards() {
        Office office;
        office.mod.gConn.execute("INSERT into CardKategory VALUES (7,'ΠΕΛΑΤΕΣ',1)");
        office.addCard("Α", "1", {{"category", 7}});
        CardDriver card(office.mod);
        QCOMPARE(card.shown("Combo1"), "ΠΕΛΑΤΕΣ");
        for (const char* name : {"Φίλοι", "Γνωστοί"}) {
            office.mod.gConn.execute(QString("update CardKategory set Description='%1' where code=7").arg(name));
            card.form.refillLists();
            QCOMPARE(card.shown("Combo1"), name);
            if (!card.form.isEditing()) card.press(Edit);
        }
        card.press(Save);
        QVERIFY(office.desk.prompts.isEmpty() && !card.form.isEditing());
        QCOMPARE(office.value("select category from cards").toInt(), 7);
    }

    void everyKindOfColumnComesOnShow() {
        Office office;
        office.mod.gConn.execute("INSERT into CardKategory VALUES (7,'ΠΕΛΑΤΕΣ',1)");
        struct Case {
            const char *control, *column;
            QVariant value;
            QString shown;
        };
        const Case cases[] = {{"Combo1", "category", 7, "ΠΕΛΑΤΕΣ"},
                              {"Combo2", "ΑΝΔΡΑΣ", false, "Γυναίκα"},
                              {"Combo3", "KEIM_ΕΟΡΤΗΣ", "ξένο κείμενο", "ξένο κείμενο"},
                              {"Combo4(2)", "FieldCombo3", "τιμή", "τιμή"},
                              {"txtDate", "ΗΜ_ΓΕΝΗΣΗΣ", "5/3/1970", "05/03/1970"},
                              {"txtCustDate(3)", "FIELddate4", "31/12/1999", "31/12/1999"},
                              {"Text8(11)", "FIELdnum2", 12.5, "12,5"},
                              {"Text8(9)", "FIELdchar10", "δέκα", "δέκα"},
                              {"Text7(18)", "εταιρια", "Α.Ε.", "Α.Ε."},
                              {"Text7(16)", "ΣΧΟΛΙΑ1", "σχόλιο", "σχόλιο"},
                              {"Text7(17)", "σχολια", "σημείωση", "σημείωση"},
                              {"txtMemo(5)", "ΚΕΙΜΕΝΟ6", "έξι\nγραμμές", "έξι\nγραμμές"},
                              {"txtΣυνδρομή", "ΠΟΣΟ_ΚΙΝΗΣΗΣ", 1234.5, "1.234,50"},
                              {"txtΣυχνότητα", "ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ", 30, "30"}};
        QVariantMap row{{"FieldYes8", true}};
        for (const Case& c : cases) row.insert(c.column, c.value);
        office.addCard("Επώνυμο", "Όνομα", row);
        CardDriver card(office.mod);
        for (const Case& c : cases) {
            const InCase in(c.column);
            QCOMPARE(card.shown(c.control), c.shown);
        }
        QVERIFY(card.find<QCheckBox>("Check1(7)")->isChecked());
    }

    void nullsShowTheEmptyCardsValues() {
        CardSite card{{"Α", "Β"}, {"Β", "Γ", {{"FIELdnum1", 3}, {"πολη", "Βόλος"}, {"ΗΜ_ΓΕΝΗΣΗΣ", "1/1/2001"}}}};
        card.press(Next);
        card.press(Previous);
        for (const auto& [control, text] : {std::pair("txtDate", "01/01/1900"),
                                            {"txtCustDate(0)", "05/11/2026"},
                                            {"txtΤελευταία", "05/11/2026"},
                                            {"Text8(10)", "0"},
                                            {"Text7(8)", ""}})
            QCOMPARE(card.shown(control), text);
    }

    void theOfficeNamesAndHidesParametricFields() {
        Office office;
        office.mod.gConn.execute(
            "update CustomFields set FIELdchar2='ΑΦΜ & ΔΟΥ', fc2=True, FieldYes1='Ενεργός', fy1=True, "
            "FIELddate1='Λήξη', fd1=True, Memo3='Ιστορικό', FIELdnum1=Null, fn1=True where id=1");
        office.addCard("Α", "Β");
        CardDriver card(office.mod);
        card.openTab("Ειδικά Στοιχεία");
        for (const char* on : {"Text8(1)", "txtCustDate(0)", "Check1(0)", "Text8(10)"})
            QVERIFY2(card.isVisible(on), on);
        for (const char* off : {"Text8(0)", "txtCustDate(1)", "Combo4(0)"}) QVERIFY2(!card.isVisible(off), off);
        QCOMPARE(card.find("Text8(1)")->accessibleName(), "ΑΦΜ & ΔΟΥ");
        QCOMPARE(card.shown("Check1(0)"), "Ενεργός");
        QCOMPARE(card.shown("cmdMemo(2)"), "Ιστορικό");
    }

    void theTextsShowOneAtATime() {
        CardSite card{{"Α", "Β"}};
        card.openTab("Κείμενα");
        QVERIFY(card.isVisible("txtMemo(0)") && !card.isVisible("txtMemo(1)"));
        card.click("cmdMemo(4)");
        QVERIFY(card.isVisible("txtMemo(4)") && !card.isVisible("txtMemo(0)"));
        QCOMPARE(card.shown("lblMemeHeader"), " Κείμενο 5");
        card.form.ShowCard(true);
        QVERIFY(card.isVisible("txtMemo(0)"));
    }

    void goToRecSearchesForwardOnly() {
        Office office;
        const qint64 a = office.addCard("Α", "1"), b = office.addCard("Β", "2"), c = office.addCard("Γ", "3");
        CardDriver card(office.mod);
        card.form.GoToRec(double(b));
        QCOMPARE(card.shown(surname), "Β");
        card.form.GoToRec(double(b));
        card.form.GoToRec(double(c));
        QCOMPARE(card.counter(), "Εμφάνιση Καρτέλας (3/3)");
        VERIFY_FAILURE("Δεν υπάρχει τρέχουσα εγγραφή", card.form.GoToRec(double(a)));
        card.form.keySet().moveFirst();
        card.form.GoToRec(double(a));
        QCOMPARE(card.shown(surname), "Α");
    }

    void theRestrictedGroupOnlyReads() {
        Office office;
        office.mod.gUserGroup = core::groupRestricted;
        office.addCard("Α", "1");
        office.addCard("Β", "2");
        CardDriver card(office.mod);
        for (const Button button : {Next, Previous}) {
            QCOMPARE(card.buttons(), reading);
            card.press(button);
        }
        card.key(Qt::Key_F2);
        card.key(Qt::Key_N, Qt::ControlModifier);
        card.key(Qt::Key_Delete, Qt::ControlModifier);
        card.form.CardAddNew();
        QVERIFY(card.isLocked());
        QCOMPARE(office.count("cards"), 2);
    }
};

QTEST_MAIN(TestFrmAddress)
#include "test_frmaddress.moc"
