// Adding, changing, saving and deleting; the photo.
#include "carddriver.h"
#include "support/cases.h"

#include <QSignalSpy>

using namespace support;
using namespace support::card;

namespace {

const QString saveLead = "Πρόβλημα κατά την αποθήκευση των δεμένων! \n", saveFailure = saveLead + "Dorvalist Error: ",
              numberLead = saveLead + "Ελέγχετε τα αριθμητικά πεδία οτι είναι αριθμοι! \n";

// What every control of the card shows, and what stands around them.
QStringList everything(const CardDriver& card) {
    QStringList all;
    for (const cards::CardField& field : cards::cardFields()) {
        const QString name = field.controlName();
        const auto* check = qobject_cast<QCheckBox*>(card.find(name));
        all << name + '=' + (check ? QString::number(check->isChecked()) : card.shown(name));
    }
    for (const char* label : {"Label1(0)", "Label1(1)", "Label1(2)", "lblYpoloipo"}) all << card.shown(label);
    for (const char* list : {"ListView1", "ListView2", "ListView3"}) all << card.rows(list);
    return all << card.tab() << card.counter() << card.buttons();
}

}  // namespace

class TestFrmAddressEdit : public QObject {
    Q_OBJECT
private slots:
    void theFirstTestThatFailsIsTold() {
        CardSite card{};
        card.press(AddNew);
        card.type("Combo1", "");
        const std::pair<QString, const char*> steps[] = {{"Combo1", "Δεν έχετε συμπληρώσει την Κατηγορία!"},
                                                         {surname, "Δεν έχετε συμπληρώσει το Επώνυμο!"},
                                                         {firstName, "Δεν έχετε συμπληρώσει το Όνομα!"}};
        for (const auto& [control, text] : steps) {
            card.openTab("Σημειώσεις");
            card.press(Save);
            QCOMPARE(card.desk.prompts.lastText(), text);
            QCOMPARE(card.tab(), "Βασικά Στοιχεία");
            QVERIFY(card.hasFocus(control) && card.form.isEditing());
            card.type(control, control == "Combo1" ? "ΕΠΑΦΕΣ" : " ");
        }
        card.press(Save);
        QVERIFY(!card.form.isEditing());
        QCOMPARE(card.count("cards"), 1);
    }

    void aNewCardGetsItsNumberAndPlace() {
        CardSite card{{"Άλφα", "1"}, {"Γάμμα", "2"}};
        QVERIFY(!card.isVisible("Label31"));
        card.press(AddNew);
        QVERIFY(card.hasFocus(surname) && !card.isLocked() && card.isVisible("Label31"));
        QCOMPARE(card.counter(), "Προσθήκη νέας καρτέλας");
        QCOMPARE(card.buttons(), editing);
        card.type(surname, "βήτα");
        card.type(firstName, "Ν");
        card.type("Combo2", "Γυναίκα");
        card.key(Qt::Key_F5);
        QCOMPARE(card.counter(), "Εμφάνιση Καρτέλας (2/3)");
        QCOMPARE(card.shown(surname), "βήτα");
        QCOMPARE(card.shown("Combo2"), "Γυναίκα");
        QCOMPARE(card.buttons(), browsing);
        QVERIFY(card.isLocked());
        const QString row = "select %1 from cards where επωνυμο='ΒΗΤΑ'";
        QCOMPARE(card.text(row.arg("code")), card.form.CurrentCode);
        QCOMPARE(card.value(row.arg("category")).toInt(), 1);
        QCOMPARE(card.value(row.arg("ΗΜ_ΓΕΝΗΣΗΣ")).toDateTime().date(), QDate(1900, 1, 1));
        QCOMPARE(card.value(row.arg("ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ")).toDateTime().date(), QDate(2026, 11, 5));
    }

    // Nothing of the card on show goes into a new one.
    void aNewCardStartsEmptyWhateverIsOnShow() {
        CardOffice office;
        QStringList empty;
        {
            CardDriver card(office.mod);
            card.press(AddNew);
            empty = everything(card);
        }
        office.mod.gConn.execute("INSERT into CardKategory VALUES (7,'ΠΕΛΑΤΕΣ',1)");
        QVariantMap row{{"category", 7}, {"Photo", pictureBytes({40, 30})}};
        for (const cards::CardField& field : cards::cardFields()) {
            using enum cards::CardKind;
            const bool number = field.kind == ParamNumber || field.kind == Frequency || field.kind == Amount;
            const bool date = field.kind == ParamDate || field.kind == BirthDate || field.kind == LastMovement;
            if (field.kind == Sex) row.insert(field.column, false);
            if (field.kind == ParamFlag) row.insert(field.column, true);
            if (number) row.insert(field.column, 77);
            if (date) row.insert(field.column, "7/7/1977");
            if (!number && !date && field.kind != Sex && field.kind != ParamFlag && field.kind != Category)
                row.insert(field.column, "77");
        }
        const qint64 code = office.addCard("Πρώτη", "Άννα", row);
        office.addMovement(code, "2026-11-03T00:00:00", "Επίσκεψη", 10, 0);
        office.addLink(code, "Σύμβαση", "/α");
        CardDriver card(office.mod);
        QCOMPARE(card.shown("Combo2"), "Γυναίκα");
        QVERIFY(!card.rows("ListView2").isEmpty());
        card.openTab("Κείμενα");
        card.click("cmdMemo(3)");
        card.press(AddNew);
        QCOMPARE(everything(card), empty);
        QVERIFY(card.find("txtMemo(0)")->isVisibleTo(card.find("Frame6")));
        card.type(surname, "Δεύτερη");
        card.type(firstName, "Β");
        card.press(Save);
        QVERIFY(!office.value("select Photo from cards where επωνυμο='Δεύτερη'").isValid());
        QCOMPARE(card.buttons(), browsing);
    }

    void nameDaysAndBirthDates() {
        CardSite card{{"Α", "Μαρία"}};
        // A name of several feasts has a line for each: the first choice, then the others through the year.
        QStringList feasts;
        const auto* lines = card.find<QComboBox>("Combo3");
        for (int line = 0; line < lines->count(); ++line)
            if (lines->itemText(line).startsWith("Άννα   ")) feasts += lines->itemText(line).right(5);
        QCOMPARE(feasts, QStringList({"09/09", "03/02", "25/07", "29/10", "09/12"}));
        card.press(Edit);
        card.type("Combo3", "Μαρία   15/08");
        QVERIFY2(card.find<QComboBox>("Combo3")->currentIndex() > 0, "the delivered name days have a Μαρία on 15/08");
        card.find<controls::DateBox>("txtDate")->setFormattedText("__/__/____");
        card.key(Qt::Key_F5);
        QVERIFY(card.desk.prompts.isEmpty());
        QCOMPARE(card.value("select ΗΜ_ΕΟΡΤΗΣ from cards").toDateTime().date(), QDate(2026, 8, 15));
        QVERIFY(!card.value("select ΗΜ_ΓΕΝΗΣΗΣ from cards").isValid());

        // The empty choice keeps what the card has; the date stays in the year of its save.
        card.desk.clock.set({2027, 1, 2});
        card.press(Edit);
        card.find<QComboBox>("Combo3")->setEditText("");
        card.press(Save);
        QCOMPARE(card.text("select KEIM_ΕΟΡΤΗΣ from cards"), "Μαρία   15/08");
        QCOMPARE(card.value("select ΗΜ_ΕΟΡΤΗΣ from cards").toDateTime().date().year(), 2026);

        // What is no name day is told at its field, wherever its user is.
        card.press(Edit);
        card.type("Combo3", "όποτε να 'ναι");
        card.openTab("Κείμενα");
        card.press(Save);
        QCOMPARE(card.desk.prompts.lastText(), "Το «όποτε να 'ναι» δεν είναι εορτή της λίστας.");
        QVERIFY(card.form.isEditing());
        QCOMPARE(card.tab(), "Βασικά Στοιχεία");
        QVERIFY(card.hasFocus("Combo3"));
        // Typed without accents and saved from within the box, it is the list's own line.
        card.find<QComboBox>("Combo3")->lineEdit()->selectAll();
        typeKeys(card.find("Combo3"), "ΠΕΤΡΟΣ");
        card.key(Qt::Key_F5);
        QVERIFY(!card.form.isEditing());
        QCOMPARE(card.text("select KEIM_ΕΟΡΤΗΣ from cards"), "Πέτρος   29/06");
    }

    // A number that is none fails the save; nothing typed is lost, and the mended card can be saved.
    void numbersByGreekRules() {
        const std::pair<const char*, QVariant> cases[] = {
            {"12,5", 12.5}, {"1.234,50", 1234.5}, {"00", 0.0}, {"", {}}, {"1,2,3", {}}};
        Office office;
        office.addCard("Α", "Β");
        for (const auto& [typed, stored] : cases) {
            const InCase in(typed);
            office.mod.gConn.execute("update cards set FIELdnum1=5,πολη=Null");
            office.desk.prompts.clear();
            CardDriver card(office.mod);
            card.change({{"Text8(10)", typed}, {city, "Πάτρα"}});
            QCOMPARE(card.form.isEditing(), !stored.isValid());
            QCOMPARE(office.value("select FIELdnum1 from cards"), stored.isValid() ? stored : QVariant(5.0));
            QCOMPARE(office.desk.prompts.isEmpty(), stored.isValid());
            if (stored.isValid()) continue;
            QCOMPARE(office.desk.prompts.lastTitle(), "Μήνυμα λάθους");
            QVERIFY(office.desk.prompts.lastText().startsWith(saveLead));
            QCOMPARE(card.shown(city), "Πάτρα");
            card.type("Text8(10)", "7");
            card.press(Save);
            QVERIFY(!card.form.isEditing());
            QCOMPARE(office.text("select πολη from cards"), "Πάτρα");
        }
    }

    void theFieldThatWasRefusedIsNamedAndShown() {
        struct Case {
            const char *name, *typed, *caption, *tab;
            QString lead = saveLead;
        };
        const Case cases[] = {
            {"Text8(10)", "1,2,3", "Παιδιά", "Ειδικά Στοιχεία", numberLead},
            {"txtΣυχνότητα", "1,2,3", "Συχνότητα Επίσκεψης", "Ιστορικό", numberLead},
        };
        CardSite office{{"Α", "1"}};
        office.mod.gConn.execute(
            "update CustomFields set FIELdchar1='Χόμπι',fc1=True,FieldNum1='Παιδιά',fn1=True where id=1");
        forEach(cases, [&](const Case& c) {
            CardDriver card(office.mod);
            card.press(Edit);
            card.type(c.name, QString::fromUtf8(c.typed));
            card.openTab("Σημειώσεις");
            card.press(Save);
            QVERIFY2(office.desk.prompts.lastText().startsWith(c.lead + QString("Πεδίο «%1».").arg(c.caption)),
                     qPrintable(office.desk.prompts.lastText()));
            QCOMPARE(card.tab(), c.tab);
            QVERIFY(card.hasFocus(c.name));
        });
    }

    void aFailedAddCanBeMended() {
        CardSite card{};
        card.press(AddNew);
        card.type(surname, "Ω");
        card.type(firstName, "Ν");
        for (const QString number : {"1,2,3", "1,2"}) {
            card.type("Text8(10)", number);
            card.press(Save);
            QCOMPARE(card.count("cards"), number.size() > 3 ? 0 : 1);
        }
        QCOMPARE(card.desk.prompts.count(), 1);
        QVERIFY(card.desk.prompts.lastText().startsWith(numberLead));
        QCOMPARE(card.text("select επωνυμο from cards"), "Ω");
    }

    // Whatever is typed into a box of texts can be saved.
    void boxesHoldAsMuchAsTheirColumns() {
        CardSite card{{"Α", "Β"}};
        card.press(Edit);
        for (const cards::CardField& field : cards::cardFields())
            if (field.kind == cards::CardKind::Text || field.kind == cards::CardKind::ParamText ||
                field.kind == cards::CardKind::ParamList)
                card.type(field.controlName(), QString(300, u'Ω'));
        card.press(Save);
        QVERIFY2(card.desk.prompts.isEmpty(), qPrintable(card.desk.prompts.lastText()));
        QCOMPARE(card.text("select επωνυμο from cards"), QString(30, u'Ω'));
        QCOMPARE(card.text("select email from cards"), QString(40, u'Ω'));
        QCOMPARE(card.text("select FieldCombo1 from cards"), QString(255, u'Ω'));
        QCOMPARE(card.text("select ΣΧΟΛΙΑ1 from cards"), QString(300, u'Ω'));
    }

    // Enter alone never leads out of the fields of the first tab, so it presses none of the buttons beside them.
    void enterWalksTheFields() {
        CardSite card{{"Α", "Β", {{"email", "a@b.gr"}, {"URL", "www.b.gr"}}}};
        QSignalSpy opened(&card.form, &core::Form::openRequested);
        card.press(Edit);
        QStringList walked;
        while (walked.size() < 30 && card.focused() != remark) {
            walked << card.focused();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        }
        QCOMPARE(walked.size(), 24);
        for (const QString button : {"Command2", "Command5", "Command6", "DTPicker1"})
            QVERIFY2(!walked.contains(button), qPrintable(walked.join(' ')));
        QCOMPARE(opened.count(), 0);
        QVERIFY(card.desk.shell.opened.isEmpty());
    }

    // A date is read before its box is left.
    void aShortDateIsSaved() {
        CardSite card{{"Α", "Β"}};
        card.press(Edit);
        card.find("txtDate")->setFocus();
        QTest::keyClicks(card.find("txtDate"), "5.6.80");
        card.key(Qt::Key_F5);
        QVERIFY2(card.desk.prompts.isEmpty(), qPrintable(card.desk.prompts.lastText()));
        QCOMPARE(card.value("select ΗΜ_ΓΕΝΗΣΗΣ from cards").toDateTime().date(), QDate(1980, 6, 5));
    }

    void textsOfEveryKind() {
        CardSite card{{"Α", "Β"}};
        for (const QString& text : {QString("O'Neil \"Ο Μέγας\" `x` --; DROP"), QString("👩‍💼 Ελένη 🎉"),
                                    QString("שלום مرحبا Γεια"), QString("100% _ [α-ω] #1/1/2000#"),
                                    QString("Ελλάδα ").repeated(1500), QString("Μαρι\u0301α ﬁ ϊ΅")}) {
            const InCase in(text);
            card.press(Edit);
            const bool isShort = text.size() <= 30;
            card.type(notes, text + "\nδεύτερη γραμμή");
            card.type("txtMemo(5)", text);
            card.type(remark, text);
            if (isShort) card.type(surname, text);
            card.press(Save);
            QVERIFY2(card.desk.prompts.isEmpty(), qPrintable(card.desk.prompts.lastText()));
            QCOMPARE(card.value("select σχολια from cards").toString(), text + "\nδεύτερη γραμμή");
            QCOMPARE(card.value("select ΚΕΙΜΕΝΟ6 from cards").toString(), text);
            QCOMPARE(card.value("select ΣΧΟΛΙΑ1 from cards").toString(), text);
            QCOMPARE(card.shown(notes), text + "\nδεύτερη γραμμή");
            if (isShort) QCOMPARE(card.shown("Label1(0)"), text);
        }
    }

    void whatABoxCannotShowStaysInTheColumn() {
        Office office;
        const QString stored = "γραμμή\r\nάλλη\tστήλη";
        office.addCard("Α", "Β", {{"ΣΧΟΛΙΑ1", stored}, {"σχολια", stored}});
        CardDriver card(office.mod);
        card.change({{city, "Κως"}});
        QCOMPARE(office.value("select ΣΧΟΛΙΑ1 from cards").toString(), stored);
        QCOMPARE(office.value("select σχολια from cards").toString(), stored);
        QCOMPARE(office.text("select πολη from cards"), "Κως");
    }

    void cancelling() {
        {
            CardSite card{};
            card.press(AddNew);
            card.press(Cancel);
            QCOMPARE(card.counter(), "Καρτέλα (0/0)");
            QCOMPARE(card.buttons(), browsing);
        }
        CardSite card{{"Α", "1", {{"πολη", "Βόλος"}}}, {"Β", "2"}};
        card.press(Edit);
        card.type(city, "Λάρισα");
        card.press(Cancel);
        QCOMPARE(card.shown(city), "Βόλος");
        QCOMPARE(card.buttons(), browsing);
        card.press(Next);
        card.press(AddNew);
        card.type(surname, "Γ");
        card.desk.prompts.answer(false);
        card.key(Qt::Key_Escape);
        QCOMPARE(card.shown(surname), "Γ");
        card.desk.prompts.answer(true);
        card.key(Qt::Key_Escape);
        // A cancelled add lands on the first card.
        QCOMPARE(card.counter(), "Εμφάνιση Καρτέλας (1/2)");
        QVERIFY(card.isLocked());
        QCOMPARE(card.count("cards"), 2);
    }

    void deleting() {
        Office office;
        office.addCard("Α", "1");
        const qint64 code = office.addCard("Β", "2", {{"OutlookEntryID", "it's"}});
        CardDriver card(office.mod);
        card.press(Next);
        office.desk.prompts.answer(false);
        card.press(Delete);
        QCOMPARE(office.desk.prompts.lastText(), "Είστε σίγουρος για διαγραφή;");
        QCOMPARE(office.count("cards"), 2);
        office.desk.prompts.answer(true);
        card.press(Delete);
        QCOMPARE(card.counter(), "Εμφάνιση Καρτέλας (1/1)");
        QCOMPARE(office.count(QString("cards where code=%1").arg(code)), 0);
        QCOMPARE(office.text("select EntryID from ToBeDeleted"), "it's");
        office.desk.prompts.answer(true);
        card.press(Delete);
        QCOMPARE(card.counter(), "Καρτέλα (0/0)");
        QVERIFY(card.shown(surname).isEmpty());
        QCOMPARE(office.count("ToBeDeleted"), 2);
    }

    // Whatever ended the work, by key or by button: one more Enter changes nothing.
    void oneMoreEnterIsHarmless() {
        Office office;
        for (const char* surname : {"Α", "Β", "Γ", "Δ"}) office.addCard(surname, "1");
        struct Case {
            const char* name;
            Button begin, end;
            std::optional<Qt::Key> key = {};
        };
        const Case cases[] = {{"save by button", Edit, Save},     {"save by key", Edit, Save, Qt::Key_F5},
                              {"cancel by button", Edit, Cancel}, {"cancel by key", Edit, Cancel, Qt::Key_Escape},
                              {"add and cancel", AddNew, Cancel}, {"delete", Next, Delete}};
        forEach(cases, [&](const Case& c) {
            CardDriver card(office.mod);
            QSignalSpy closes(&card.form, &cards::frmAddress::closeRequested);
            card.press(c.begin);
            if (c.end == Delete) office.desk.prompts.answer(true);
            if (!c.key) card.find(QString("lblClick(%1)").arg(c.end))->setFocus();
            c.key ? QTest::keyClick(card.form.focusWidget(), *c.key)
                  : QTest::keyClick(card.form.focusWidget(), Qt::Key_Return);
            QVERIFY(!card.form.isEditing());
            const int cardsBefore = office.count("cards"), boxes = office.desk.prompts.count();
            QVERIFY(card.form.focusWidget() && card.form.focusWidget()->isEnabled());
            QTest::keyClick(card.form.focusWidget(), Qt::Key_Return);
            QVERIFY(closes.isEmpty() && office.desk.printers.sent.isEmpty() && !card.form.isEditing());
            QCOMPARE(office.count("cards"), cardsBefore);
            QCOMPARE(office.desk.prompts.count(), boxes);
        });
    }

    void deletingTheCardOnShowAndNoOther() {
        Office office;
        office.addCard("Α", "1");
        const qint64 second = office.addCard("Β", "2");
        CardDriver card(office.mod);
        // Another window set the card without moving the key set.
        card.form.CurrentCode = QString::number(second);
        card.form.ShowCard(true);
        office.desk.prompts.answer(true);
        card.press(Delete);
        QCOMPARE(office.text("select επωνυμο from cards"), "Α");
    }

    void photos() {
        CardSite card{{"Α", "1"}};
        QVERIFY(!card.isEnabled("Command1") && !card.isEnabled("Command3"));
        const auto choose = [&](const QString& file) {
            card.desk.prompts.answerFile(file);
            card.click("Command1");
        };
        const auto stored = [&] { return card.value("select Photo from cards").toByteArray(); };
        const QByteArray picture = pictureBytes({2400, 2900});  // about 20 MB
        card.press(Edit);
        choose(card.file("photo.bmp", picture));
        for (const QByteArray& noise : {QByteArray("no picture"), QByteArray(), QByteArray("BM\xff\xff\xff\xff junk")})
            choose(card.file("noise.jpg", noise));
        choose(card.directory_.filePath("nowhere.jpg"));
        choose("");
        QCOMPARE(card.desk.prompts.count(), 6);  // the dialogs: what is no picture goes without a word
        card.press(Save);
        QVERIFY(stored() == picture);
        // Saving the card again keeps the bytes; clearing takes them away.
        card.press(Edit);
        card.press(Save);
        QVERIFY(stored() == picture);
        card.press(Edit);
        card.click("Command3");
        card.press(Save);
        QVERIFY(stored().isEmpty());
    }

    void aCategoryWithAQuoteIsFound() {
        Office office;
        office.mod.gConn.execute("INSERT into CardKategory VALUES (9,'Φίλοι O''Neil',0)");
        office.addCard("Α", "1");
        CardDriver card(office.mod);
        card.change({{"Combo1", "Φίλοι O'Neil"}});
        QCOMPARE(office.value("select category from cards").toInt(), 9);
    }

    void theDatabaseGoesAwayWhileTyping() {
        CardSite card{{"Α", "1"}};
        card.press(Edit);
        card.type(city, "Χανιά");
        card.lose();
        card.press(Save);
        QVERIFY(card.desk.prompts.lastText().startsWith(saveFailure + "Η σύνδεση"));
        QCOMPARE(card.shown(city), "Χανιά");
        card.bringBack();
        card.press(Save);
        QCOMPARE(card.text("select πολη from cards"), "Χανιά");
    }

    void closingAsksForWhatWasTyped() {
        CardSite card{{"Α", "1"}};
        card.press(Edit);
        card.type(city, "Λάρισα");
        for (const bool yes : {false, true}) {
            card.desk.prompts.answer(yes);
            QCOMPARE(card.form.unload(false, {10, 20}), yes);
            QCOMPARE(card.mod.gAddressOpen, !yes);
        }
        QCOMPARE(card.desk.settings.number("Settings", "AddressTop", 0), 300);
        QCOMPARE(card.desk.settings.number("Settings", "AddressLeft", 0), 150);
    }
};

QTEST_MAIN(TestFrmAddressEdit)
#include "test_frmaddress_edit.moc"
