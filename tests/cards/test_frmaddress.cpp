// Opening, showing and walking the card.
#include "cards/carddriver.h"

using support::CardDriver;
using support::Office;

class TestFrmAddress : public QObject {
    Q_OBJECT
private slots:
    void anEmptyOfficeOpensEmptyAndLocked() {
        Office office;
        CardDriver card(office.mod);
        QVERIFY(office.mod.gAddressOpen);
        QCOMPARE(card.counter(), QString("Καρτέλα (0/0)"));
        QVERIFY(card.text(0)->isReadOnly());
        card.press(1);
        card.press(3);
        QCOMPARE(office.desk.sound.beeps, 0);
        QVERIFY(!card.enabled(9) && !card.enabled(10));
        card.press(6);
        QVERIFY(!card.form.isEditing());
    }

    void walkingInSurnameOrder() {
        Office office;
        office.addCard("Ωμέγα", "Γ");
        office.addCard("άλφα", "Α", {{"τηλεφωνο1", "2101"}});
        office.addCard("ΒΗΤΑ", "Β");
        CardDriver card(office.mod);
        QCOMPARE(card.label("Label1(0)"), QString("άλφα"));
        QCOMPARE(card.label("Label1(2)"), QString("2101"));
        QCOMPARE(card.counter(), QString("Εμφάνιση Καρτέλας (1/3)"));
        card.press(1);
        QCOMPARE(office.desk.sound.beeps, 1);
        card.press(3);
        QCOMPARE(card.text(0)->text(), QString("ΒΗΤΑ"));
        QCOMPARE(card.label("Label1(2)"), QString());
        QTest::keyClick(&card.form, Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(card.counter(), QString("Εμφάνιση Καρτέλας (3/3)"));
        card.press(3);
        QCOMPARE(office.desk.sound.beeps, 2);
        QCOMPARE(card.text(0)->text(), QString("Ωμέγα"));
        card.press(1);
        QCOMPARE(card.counter(), QString("Εμφάνιση Καρτέλας (2/3)"));
        QVERIFY(!office.desk.sound.played.isEmpty() || office.desk.sound.beeps == 2);
    }

    void aCardThatIsGoneDoesNotStopTheWalk() {
        Office office;
        office.addCard("Α", "1");
        const qint64 gone = office.addCard("Β", "2");
        office.addCard("Γ", "3");
        CardDriver card(office.mod);
        office.mod.gConn.execute(QString("delete from cards where code=%1").arg(gone));
        card.form.goTo(gone + 100);
        QCOMPARE(office.desk.sound.beeps, 1);
        card.press(3);
        QCOMPARE(card.text(0)->text(), QString("Γ"));
        QCOMPARE(card.counter(), QString("Εμφάνιση Καρτέλας (2/2)"));
    }

    void aHalfTypedPeriodHidesNoLinks() {
        Office office;
        office.addCard("Α", "1");
        const qint64 second = office.addCard("Β", "2");
        office.mod.gConn.execute(
            QString("insert into Links (codecards,ΠΕΡΙΓΡΑΦΗ,ΣΥΝΔΕΣΗ) values (%1,'Σύμβαση','α')").arg(second));
        CardDriver card(office.mod);
        card.date("txtFrom")->setText("1/");
        card.press(3);
        QCOMPARE(card.rows(2), QStringList{"Σύμβαση|α"});
        QVERIFY(card.find<QPushButton>("Command8")->isEnabled());
    }

    void theWindowWorksWhenTheDatabaseIsBack() {
        Office office;
        office.addCard("Α", "1");
        office.addCard("Β", "2");
        office.mod.gConn.close();
        CardDriver card(office.mod);
        card.press(3);
        QVERIFY(office.desk.prompts.count() >= 2);
        office.open(office.mod);
        card.press(3);
        QCOMPARE(card.text(0)->text(), QString("Β"));
        QCOMPARE(card.combo("Combo1")->count(), 2);
    }

    void aRenamedCategoryStaysTheCards() {
        Office office;
        office.addCard("Α", "1");
        CardDriver card(office.mod);
        QCOMPARE(card.combo("Combo1")->currentText(), QString("ΕΠΑΦΕΣ"));
        for (const char* name : {"Φίλοι", "Γνωστοί"}) {
            office.mod.gConn.execute(QString("update CardKategory set Description='%1'").arg(name));
            card.form.refillLists();
            QCOMPARE(card.combo("Combo1")->currentText(), QString(name));
            if (!card.form.isEditing()) card.press(6);
        }
        card.press(9);
        QVERIFY(office.desk.prompts.isEmpty() && !card.form.isEditing());
    }

    void everyColumnComesOnShow() {
        Office office;
        office.mod.gConn.execute("INSERT into CardKategory VALUES (7,'ΠΕΛΑΤΕΣ',1)");
        office.addCard("Επώνυμο", "Όνομα",
                       {{"category", 7},
                        {"ΑΝΔΡΑΣ", false},
                        {"ΗΜ_ΓΕΝΗΣΗΣ", "5/3/1970"},
                        {"KEIM_ΕΟΡΤΗΣ", "ξένο κείμενο"},
                        {"FIELdnum2", 12.5},
                        {"FIELdchar10", "δέκα"},
                        {"FIELddate4", "31/12/1999"},
                        {"ΠΟΣΟ_ΚΙΝΗΣΗΣ", 1234.5},
                        {"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ", 30},
                        {"FieldYes8", true},
                        {"FieldCombo3", "τιμή"},
                        {"ΚΕΙΜΕΝΟ6", "έξι\nγραμμές"},
                        {"σχολια", "σημείωση"},
                        {"ΣΧΟΛΙΑ1", "σχόλιο"},
                        {"εταιρια", "Α.Ε."}});
        CardDriver card(office.mod);
        QCOMPARE(card.combo("Combo1")->currentText(), QString("ΠΕΛΑΤΕΣ"));
        QCOMPARE(card.combo("Combo2")->currentText(), QString("Γυναίκα"));
        QCOMPARE(card.combo("Combo3")->currentText(), QString("ξένο κείμενο"));
        QCOMPARE(card.combo("Combo4(2)")->currentText(), QString("τιμή"));
        QCOMPARE(card.date("txtDate")->formattedText(), QString("05/03/1970"));
        QCOMPARE(card.date("txtCustDate(3)")->formattedText(), QString("31/12/1999"));
        QCOMPARE(card.special(11)->text(), QString("12,5"));
        QCOMPARE(card.special(9)->text(), QString("δέκα"));
        QCOMPARE(card.text(18)->text(), QString("Α.Ε."));
        QCOMPARE(card.text(16)->text(), QString("σχόλιο"));
        QCOMPARE(card.notes()->text(), QString("σημείωση"));
        QCOMPARE(card.memo(5)->text(), QString("έξι\nγραμμές"));
        QCOMPARE(card.find<controls::TextBox>("txtΣυνδρομή")->text(), QString("1.234,50"));
        QCOMPARE(card.find<controls::TextBox>("txtΣυχνότητα")->text(), QString("30"));
        QVERIFY(card.find<QCheckBox>("Check1(7)")->isChecked());
    }

    void nullsShowTheEmptyCardsValues() {
        Office office;
        office.addCard("Α", "Β");
        office.addCard("Β", "Γ", {{"FIELdnum1", 3}, {"πολη", "Βόλος"}, {"ΗΜ_ΓΕΝΗΣΗΣ", "1/1/2001"}});
        CardDriver card(office.mod);
        card.press(3);
        card.press(1);
        QCOMPARE(card.date("txtDate")->formattedText(), QString("01/01/1900"));
        QCOMPARE(card.date("txtCustDate(0)")->formattedText(), QString("05/11/2026"));
        QCOMPARE(card.date("txtΤελευταία")->formattedText(), QString("05/11/2026"));
        QCOMPARE(card.special(10)->text(), QString("0"));
        QCOMPARE(card.text(8)->text(), QString());
    }

    void theOfficeNamesAndHidesParametricFields() {
        Office office;
        office.mod.gConn.execute(
            "update CustomFields set FIELdchar2='ΑΦΜ & ΔΟΥ', fc2=True, FieldYes1='Ενεργός', fy1=True, "
            "FIELddate1='Λήξη', fd1=True, Memo3='Ιστορικό', FIELdnum1=Null, fn1=True where id=1");
        office.addCard("Α", "Β");
        CardDriver card(office.mod);
        card.find<QTabWidget>("TabStrip1")->setCurrentIndex(1);
        QVERIFY(card.special(1)->isVisible() && card.date("txtCustDate(0)")->isVisible() &&
                card.find("Check1(0)")->isVisible());
        QVERIFY(card.special(10)->isVisible());
        QVERIFY(!card.special(0)->isVisible() && !card.date("txtCustDate(1)")->isVisible() &&
                !card.combo("Combo4(0)")->isVisible());
        QCOMPARE(card.special(1)->accessibleName(), QString("ΑΦΜ & ΔΟΥ"));
        QCOMPARE(card.find<QCheckBox>("Check1(0)")->text(), QString("Ενεργός"));
        QCOMPARE(card.find<QPushButton>("cmdMemo(2)")->text(), QString("Ιστορικό"));
    }

    void theTextsShowOneAtATime() {
        Office office;
        office.addCard("Α", "Β");
        CardDriver card(office.mod);
        auto* tabs = card.find<QTabWidget>("TabStrip1");
        for (int i = 0; i < tabs->count(); ++i)
            if (tabs->tabText(i) == "Κείμενα") tabs->setCurrentIndex(i);
        QVERIFY(card.memo(0)->isVisible() && !card.memo(1)->isVisible());
        card.find<QPushButton>("cmdMemo(4)")->click();
        QVERIFY(card.memo(4)->isVisible() && !card.memo(0)->isVisible());
        QCOMPARE(card.label("lblMemeHeader"), QString(" Κείμενο 5"));
        card.form.ShowCard(true);
        QVERIFY(card.memo(0)->isVisible());
    }

    void goToRecSearchesForwardOnly() {
        Office office;
        const qint64 a = office.addCard("Α", "1"), b = office.addCard("Β", "2"), c = office.addCard("Γ", "3");
        CardDriver card(office.mod);
        card.form.GoToRec(double(b));
        QCOMPARE(card.text(0)->text(), QString("Β"));
        card.form.GoToRec(double(b));
        card.form.GoToRec(double(c));
        QCOMPARE(card.counter(), QString("Εμφάνιση Καρτέλας (3/3)"));
        QVERIFY_THROWS_EXCEPTION(data::Error, card.form.GoToRec(double(a)));
        card.form.keySet().moveFirst();
        card.form.GoToRec(double(a));
        QCOMPARE(card.text(0)->text(), QString("Α"));
    }

    void aCardDeletedElsewhereBeepsAndStaysEmpty() {
        Office office;
        office.addCard("Α", "1");
        const qint64 gone = office.addCard("Β", "2");
        CardDriver card(office.mod);
        office.mod.gConn.execute(QString("delete from cards where code=%1").arg(gone));
        card.press(3);
        QCOMPARE(office.desk.sound.beeps, 1);
        QVERIFY(card.text(0)->text().isEmpty() && card.text(0)->isReadOnly());
        card.press(6);
        QVERIFY(!card.form.isEditing());
        card.press(1);
        QCOMPARE(card.text(0)->text(), QString("Α"));
    }

    void theRestrictedGroupOnlyReads() {
        Office office;
        office.mod.gUserGroup = core::groupRestricted;
        office.addCard("Α", "1");
        office.addCard("Β", "2");
        CardDriver card(office.mod);
        for (int pass = 0; pass < 2; ++pass) {
            for (int i : {5, 6, 7, 9, 10}) QVERIFY(!card.enabled(i));
            for (int i : {1, 3, 11}) QVERIFY(card.enabled(i));
            card.press(3);
        }
        QTest::keyClick(&card.form, Qt::Key_F2);
        QTest::keyClick(&card.form, Qt::Key_N, Qt::ControlModifier);
        card.form.CardAddNew();
        QVERIFY(!card.form.isEditing());
    }

    void aFailingReadEndsInItsBox() {
        Office office;
        office.addCard("Α", "1");
        CardDriver card(office.mod);
        office.mod.gConn.close();
        card.form.ShowCard(true);
        QCOMPARE(office.desk.prompts.lastTitle(), QString("Μήνυμα λάθους"));
        QVERIFY(
            office.desk.prompts.lastText().startsWith("Πρόβλημα κατά την ανάκτηση των δεμένων! \nDorvalist Error: "));
    }

    void aWindowWithoutADatabaseOpensEmptyAndUsable() {
        support::Desk desk;
        core::MainMod mod(desk.services);
        CardDriver card(mod);
        QCOMPARE(desk.prompts.count(), 1);
        QVERIFY(card.text(0)->isReadOnly());
        for (int i : {1, 3, 5, 6, 11})
            if (card.enabled(i)) card.press(i);
        QVERIFY(!card.form.isEditing());
    }
};

QTEST_MAIN(TestFrmAddress)
#include "test_frmaddress.moc"
