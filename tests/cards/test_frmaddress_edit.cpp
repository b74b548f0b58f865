// Adding, changing, saving and deleting; the photo; two seats on one office.
#include "cards/carddriver.h"

using namespace Qt::Literals::StringLiterals;

using support::CardDriver;
using support::Office;

namespace {

const QString saveFailure =
    u"Πρόβλημα κατά την αποθήκευση των δεμένων! \nΕλέγχετε τα αριθμητικά πεδία οτι είναι αριθμοι! \nDorvalist Error: "_s;

QByteArray png(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "BMP");
    return buffer.data();
}

QString fileWith(const Office& office, const QString& name, const QByteArray& bytes) {
    QFile file(office.directory_.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("scratch file");
    return file.fileName();
}

}  // namespace

class TestFrmAddressEdit : public QObject {
    Q_OBJECT
private slots:
    void theFirstTestThatFailsIsTold() {
        Office office;
        CardDriver card(office.mod);
        card.press(5);
        QCOMPARE(card.counter(), QString("Προσθήκη νέας καρτέλας"));
        card.combo("Combo1")->setCurrentIndex(0);
        const QPair<QString, QString> steps[] = {{"Combo1", "Δεν έχετε συμπληρώσει την Κατηγορία!"},
                                                 {"Text7(0)", "Δεν έχετε συμπληρώσει το Επώνυμο!"},
                                                 {"Text7(1)", "Δεν έχετε συμπληρώσει το Όνομα!"}};
        for (const auto& [control, text] : steps) {
            card.find<QTabWidget>("TabStrip1")->setCurrentIndex(3);
            card.press(9);
            QCOMPARE(office.desk.prompts.lastText(), text);
            QCOMPARE(card.tab(), QString("Βασικά Στοιχεία"));
            QVERIFY(card.find(control)->hasFocus());
            QVERIFY(card.form.isEditing());
            if (auto* box = card.form.findChild<controls::TextBox*>(control)) box->setText(" ");
            if (control == "Combo1") card.combo("Combo1")->setCurrentIndex(1);
        }
        card.press(9);
        QVERIFY(!card.form.isEditing());
        QCOMPARE(office.value("select count(*) from cards").toInt(), 1);
    }

    void aNewCardGetsItsNumberAndPlace() {
        Office office;
        office.addCard("Άλφα", "1");
        office.addCard("Γάμμα", "2");
        CardDriver card(office.mod);
        card.press(5);
        QVERIFY(card.text(0)->hasFocus() && !card.text(0)->isReadOnly());
        for (int i : {1, 3, 5, 6, 7, 11}) QVERIFY(!card.enabled(i));
        QVERIFY(!card.find("Label31")->isHidden());
        card.text(0)->setText("βήτα");
        card.text(1)->setText("Ν");
        card.combo("Combo2")->setCurrentIndex(1);
        QTest::keyClick(&card.form, Qt::Key_F5);
        QCOMPARE(card.counter(), QString("Εμφάνιση Καρτέλας (2/3)"));
        QCOMPARE(card.text(0)->text(), QString("βήτα"));
        QCOMPARE(card.combo("Combo2")->currentText(), QString("Γυναίκα"));
        QVERIFY(card.text(0)->isReadOnly());
        const QString row = "select %1 from cards where επωνυμο='ΒΗΤΑ'";
        QCOMPARE(office.value(row.arg("code")).toString(), card.form.CurrentCode);
        QCOMPARE(office.value(row.arg("category")).toInt(), 1);
        QCOMPARE(office.value(row.arg("ΗΜ_ΓΕΝΗΣΗΣ")).toDateTime().date(), QDate(1900, 1, 1));
        QCOMPARE(office.value(row.arg("ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ")).toDateTime().date(), QDate(2026, 11, 5));
    }

    void nameDaysAndBirthDates() {
        Office office;
        office.addCard("Α", "Μαρία");
        CardDriver card(office.mod);
        auto* nameDay = card.combo("Combo3");
        const int maria = nameDay->findText("Μαρία   15/08");
        QVERIFY2(maria > 0, "the delivered name days have a Μαρία on 15/08");
        // A name of several feasts has a line for each: the first choice, then the others through the year.
        QStringList feasts;
        for (int line = 0; line < nameDay->count(); ++line)
            if (nameDay->itemText(line).startsWith("Άννα   ")) feasts += nameDay->itemText(line).right(5);
        QCOMPARE(feasts, QStringList({"09/09", "03/02", "25/07", "29/10", "09/12"}));
        card.press(6);
        nameDay->setCurrentIndex(maria);
        card.date("txtDate")->setFormattedText("__/__/____");
        QTest::keyClick(&card.form, Qt::Key_F5);
        QVERIFY(office.desk.prompts.isEmpty());
        QCOMPARE(office.value("select ΗΜ_ΕΟΡΤΗΣ from cards").toDateTime().date(), QDate(2026, 8, 15));
        QVERIFY(!office.value("select ΗΜ_ΓΕΝΗΣΗΣ from cards").isValid());

        // The empty choice keeps what the card has; the date stays in the year of its save.
        office.desk.clock.set({2027, 1, 2});
        card.press(6);
        nameDay->setEditText("");
        card.press(9);
        QCOMPARE(office.value("select KEIM_ΕΟΡΤΗΣ from cards").toString(), QString("Μαρία   15/08"));
        QCOMPARE(office.value("select ΗΜ_ΕΟΡΤΗΣ from cards").toDateTime().date().year(), 2026);

        card.press(6);
        nameDay->setEditText("όποτε να 'ναι");
        card.press(9);
        QVERIFY(office.desk.prompts.lastText().startsWith(saveFailure));
        QVERIFY(card.form.isEditing());
    }

    void numbersByGreekRules_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QVariant>("stored");  // invalid: the save fails
        QTest::newRow("comma") << "12,5" << QVariant(12.5);
        QTest::newRow("thousands") << "1.234,50" << QVariant(1234.5);
        QTest::newRow("zero") << "0" << QVariant(0.0);
        QTest::newRow("empty") << "" << QVariant();
        QTest::newRow("two commas") << "1,2,3" << QVariant();
    }
    void numbersByGreekRules() {
        QFETCH(QString, typed);
        QFETCH(QVariant, stored);
        Office office;
        office.addCard("Α", "Β");
        CardDriver card(office.mod);
        card.press(6);
        card.special(10)->setText(typed);
        card.text(8)->setText("Πάτρα");
        card.press(9);
        QCOMPARE(card.form.isEditing(), !stored.isValid());
        QCOMPARE(office.value("select FIELdnum1 from cards"), stored);
        if (stored.isValid()) return;
        QCOMPARE(office.desk.prompts.lastTitle(), QString("Μήνυμα λάθους"));
        QVERIFY(office.desk.prompts.lastText().startsWith(saveFailure));
        // Nothing typed is lost, and the mended card can be saved.
        QCOMPARE(card.text(8)->text(), QString("Πάτρα"));
        card.special(10)->setText("7");
        card.press(9);
        QVERIFY(!card.form.isEditing());
        QCOMPARE(office.value("select πολη from cards").toString(), QString("Πάτρα"));
    }

    void aFailedAddCanBeMended() {
        Office office;
        CardDriver card(office.mod);
        card.press(5);
        card.text(0)->setText(QString(31, u'Ω'));
        card.text(1)->setText("Ν");
        card.press(9);
        QVERIFY(office.desk.prompts.lastText().startsWith(saveFailure));
        QCOMPARE(office.value("select count(*) from cards").toInt(), 0);
        card.text(0)->setText(QString(30, u'Ω'));
        card.press(9);
        QCOMPARE(office.value("select count(*) from cards").toInt(), 1);
        QCOMPARE(office.value("select επωνυμο from cards").toString(), QString(30, u'Ω'));
    }

    void textsOfEveryKind_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("quotes") << QString("O'Neil \"Ο Μέγας\" `x` --; DROP");
        QTest::newRow("emoji") << QString::fromUtf8("👩‍💼 Ελένη 🎉");
        QTest::newRow("right to left") << QString::fromUtf8("שלום مرحبا Γεια");
        QTest::newRow("wildcards") << QString("100% _ [α-ω] #1/1/2000#");
        QTest::newRow("long") << QString("Ελλάδα ").repeated(1500);
        QTest::newRow("combining") << QString::fromUtf8("Μαρι\u0301α ﬁ ϊ΅");
    }
    void textsOfEveryKind() {
        QFETCH(QString, text);
        Office office;
        office.addCard("Α", "Β");
        CardDriver card(office.mod);
        card.press(6);
        const bool isShort = text.size() <= 30;
        card.notes()->setText(text + "\nδεύτερη γραμμή");
        card.memo(5)->setText(text);
        card.text(16)->setText(text);
        if (isShort) card.text(0)->setText(text);
        card.press(9);
        QVERIFY2(office.desk.prompts.isEmpty(), qPrintable(office.desk.prompts.lastText()));
        QCOMPARE(office.value("select σχολια from cards").toString(), text + "\nδεύτερη γραμμή");
        QCOMPARE(office.value("select ΚΕΙΜΕΝΟ6 from cards").toString(), text);
        QCOMPARE(office.value("select ΣΧΟΛΙΑ1 from cards").toString(), text);
        QCOMPARE(card.notes()->text(), text + "\nδεύτερη γραμμή");
        if (isShort) QCOMPARE(card.label("Label1(0)"), text);
    }

    void whatABoxCannotShowStaysInTheColumn() {
        Office office;
        const QString stored = "γραμμή\r\nάλλη\tστήλη";
        office.addCard("Α", "Β", {{"ΣΧΟΛΙΑ1", stored}, {"σχολια", stored}});
        CardDriver card(office.mod);
        card.press(6);
        card.text(8)->setText("Κως");
        card.press(9);
        QCOMPARE(office.value("select ΣΧΟΛΙΑ1 from cards").toString(), stored);
        QCOMPARE(office.value("select σχολια from cards").toString(), stored);
        QCOMPARE(office.value("select πολη from cards").toString(), QString("Κως"));
    }

    void cancelling() {
        Office office;
        office.addCard("Α", "1", {{"πολη", "Βόλος"}});
        office.addCard("Β", "2");
        CardDriver card(office.mod);
        card.press(6);
        card.text(8)->setText("Λάρισα");
        card.press(10);
        QCOMPARE(card.text(8)->text(), QString("Βόλος"));
        card.press(3);
        card.press(5);
        card.text(0)->setText("Γ");
        office.desk.prompts.answer(false);
        QTest::keyClick(&card.form, Qt::Key_Escape);
        QCOMPARE(card.text(0)->text(), QString("Γ"));
        office.desk.prompts.answer(true);
        QTest::keyClick(&card.form, Qt::Key_Escape);
        // A cancelled add lands on the first card.
        QCOMPARE(card.counter(), QString("Εμφάνιση Καρτέλας (1/2)"));
        QVERIFY(!card.form.isEditing() && card.text(0)->isReadOnly());
        QCOMPARE(office.value("select count(*) from cards").toInt(), 2);
    }

    void cancellingAnAddWithoutAnyCard() {
        Office office;
        CardDriver card(office.mod);
        card.press(5);
        card.press(10);
        QCOMPARE(card.counter(), QString("Καρτέλα (0/0)"));
        QVERIFY(card.enabled(5) && !card.enabled(9));
    }

    void deleting() {
        Office office;
        office.addCard("Α", "1");
        const qint64 code = office.addCard("Β", "2", {{"OutlookEntryID", "it's"}});
        CardDriver card(office.mod);
        card.press(3);
        office.desk.prompts.answer(false);
        card.press(7);
        QCOMPARE(office.desk.prompts.lastText(), QString("Είστε σίγουρος για διαγραφή;"));
        QCOMPARE(office.value("select count(*) from cards").toInt(), 2);
        office.desk.prompts.answer(true);
        card.press(7);
        QCOMPARE(card.counter(), QString("Εμφάνιση Καρτέλας (1/1)"));
        QCOMPARE(office.value(QString("select count(*) from cards where code=%1").arg(code)).toInt(), 0);
        QCOMPARE(office.value("select EntryID from ToBeDeleted").toString(), QString("it's"));
        office.desk.prompts.answer(true);
        card.press(7);
        QCOMPARE(card.counter(), QString("Καρτέλα (0/0)"));
        QVERIFY(card.text(0)->text().isEmpty());
        QCOMPARE(office.value("select count(*) from ToBeDeleted").toInt(), 2);
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
        card.press(7);
        QCOMPARE(office.value("select επωνυμο from cards").toString(), QString("Α"));
    }

    void aCardThatSomebodyElseDeletedLeavesNoTwinBehind() {
        Office office;
        office.addCard("Α", "1");
        CardDriver card(office.mod);
        office.mod.gConn.execute("delete from cards");
        office.desk.prompts.answer(true);
        card.press(7);
        QCOMPARE(office.desk.prompts.lastTitle(), QString("Μήνυμα λάθους"));
        QCOMPARE(office.value("select count(*) from ToBeDeleted").toInt(), 0);
    }

    void photos() {
        Office office;
        office.addCard("Α", "1");
        CardDriver card(office.mod);
        auto* load = card.find<QPushButton>("Command1");
        QVERIFY(!load->isEnabled());
        card.press(6);
        const QByteArray picture = png({2400, 2900});  // about 20 MB
        office.desk.prompts.answerFile(fileWith(office, "photo.bmp", picture));
        load->click();
        for (const QByteArray& noise :
             {QByteArray("no picture"), QByteArray(), QByteArray("BM\xff\xff\xff\xff junk")}) {
            office.desk.prompts.answerFile(fileWith(office, "noise.jpg", noise));
            load->click();
        }
        office.desk.prompts.answerFile(office.directory_.filePath("nowhere.jpg"));
        load->click();
        office.desk.prompts.answerFile("");
        load->click();
        card.press(9);
        QVERIFY(office.value("select Photo from cards").toByteArray() == picture);

        // Saving the card again keeps the bytes; clearing takes them away.
        card.press(6);
        card.press(9);
        QVERIFY(office.value("select Photo from cards").toByteArray() == picture);
        card.press(6);
        card.find<QPushButton>("Command3")->click();
        card.press(9);
        QVERIFY(office.value("select Photo from cards").toByteArray().isEmpty());
    }

    void twoSeatsOnOneCard() {
        Office office;
        office.addCard("Α", "1", {{"πολη", "Βόλος"}});
        support::Desk otherDesk;
        core::MainMod other(otherDesk.services);
        office.open(other);
        other.gUserGroup = core::groupAdministrators;
        CardDriver here(office.mod), there(other);
        here.press(6);
        there.press(6);
        here.text(8)->setText("Λάρισα");
        there.text(8)->setText("Τρίκαλα");
        there.text(4)->setText("γιατρός");
        here.press(9);
        there.press(9);
        QVERIFY(otherDesk.prompts.lastText().startsWith(saveFailure));
        QVERIFY(there.form.isEditing());
        QCOMPARE(there.text(8)->text(), QString("Τρίκαλα"));
        QCOMPARE(office.value("select πολη from cards").toString(), QString("Λάρισα"));
        QCOMPARE(office.value("select επαγγελμα from cards").toString(), QString());
        there.press(10);
        QCOMPARE(there.text(8)->text(), QString("Λάρισα"));
    }

    void anEditStartsFromTheNewestValues() {
        Office office;
        office.addCard("Α", "1", {{"πολη", "Βόλος"}});
        CardDriver card(office.mod);
        office.mod.gConn.execute("update cards set πολη='Λάρισα'");
        card.press(6);
        QCOMPARE(card.text(8)->text(), QString("Λάρισα"));
        card.text(4)->setText("γιατρός");
        card.press(9);
        QCOMPARE(office.value("select πολη from cards").toString(), QString("Λάρισα"));
    }

    void aCategoryWithAQuoteIsFound() {
        Office office;
        office.mod.gConn.execute("INSERT into CardKategory VALUES (9,'Φίλοι O''Neil',0)");
        office.addCard("Α", "1");
        CardDriver card(office.mod);
        card.press(6);
        card.combo("Combo1")->setCurrentText("Φίλοι O'Neil");
        card.press(9);
        QCOMPARE(office.value("select category from cards").toInt(), 9);
    }

    void theDatabaseGoesAwayWhileTyping() {
        Office office;
        office.addCard("Α", "1");
        CardDriver card(office.mod);
        card.press(6);
        card.text(8)->setText("Χανιά");
        const QString connection = office.mod.gConn.connectionString();
        office.mod.gConn.close();
        card.press(9);
        QVERIFY(office.desk.prompts.lastText().startsWith(saveFailure));
        QCOMPARE(card.text(8)->text(), QString("Χανιά"));
        schema::open(office.mod.gConn, connection);
        card.press(9);
        QCOMPARE(office.value("select πολη from cards").toString(), QString("Χανιά"));
    }

    void closingAsksForWhatWasTyped() {
        Office office;
        office.addCard("Α", "1");
        CardDriver card(office.mod);
        card.press(6);
        office.desk.prompts.answer(false);
        QVERIFY(!card.form.unload(false, {10, 20}));
        office.desk.prompts.answer(true);
        QVERIFY(card.form.unload(false, {10, 20}));
        QVERIFY(!office.mod.gAddressOpen);
        QCOMPARE(office.desk.settings.number("Settings", "AddressTop", 0), 300);
    }
};

QTEST_MAIN(TestFrmAddressEdit)
#include "test_frmaddress_edit.moc"
