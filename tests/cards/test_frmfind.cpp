#include "cards/frmfind.h"

#include <QTimer>

#include "cards/carddriver.h"

using support::CardDriver;
using support::Office;

namespace {

struct FindDriver {
    explicit FindDriver(Office& office)
        : form(office.mod, nullptr,
               [this](const cards::FoundCard& card) { chosen << card.surname + "/" + card.firstName; }) {
        form.show();
        if (!QTest::qWaitForWindowActive(&form)) QTest::qFail("no focus", __FILE__, __LINE__);
    }
    QStringList searchFor(const QString& text) {
        auto* box = form.findChild<controls::TextBox*>("Text1(0)");
        box->setFocus();
        box->setText(text);
        QTest::keyClick(box, Qt::Key_Return);
        QStringList found;
        for (int i = 0; i < list()->count(); ++i) found << list()->row(i).cells.value(0);
        return found;
    }
    controls::ListView* list() { return form.findChild<controls::ListView*>("ListView1"); }

    QStringList chosen;
    cards::frmFind form;
};

}  // namespace

class TestFrmFind : public QObject {
    Q_OBJECT
private slots:
    void whatIsFound_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("surnames");
        const QStringList both = {"ΠΑΠΑΔΟΠΟΥΛΟΣ", "Παπαδοπούλου"};
        for (const char* form : {"ΠΑΠΑΔ", "παπαδ", "Παπάδ"}) QTest::newRow(form) << QString::fromUtf8(form) << both;
        QTest::newRow("inside a value") << "οπουλος" << QStringList();
        QTest::newRow("start of any telephone") << "26" << QStringList{"O'Neil", "Παπαδοπούλου"};
        QTest::newRow("mobile") << "697" << QStringList{"ΠΑΠΑΔΟΠΟΥΛΟΣ"};
        for (const char* number : {"2310 123456", "+30 2310123456", "2310-123456", "0030 (2310) 1234", "2310123456"})
            QTest::newRow(number) << number << QStringList{"Αβραάμ", "Βαγγέλης", "Γαβρίλης"};
        QTest::newRow("a blank before a number") << " 2310" << QStringList();
        QTest::newRow("middle of a number") << "310 123456" << QStringList();
        QTest::newRow("blanks stay in a name") << "αφ οι" << QStringList();
        QTest::newRow("mail") << "ONEIL@" << QStringList{"O'Neil"};
        QTest::newRow("quote") << "o'n" << QStringList{"O'Neil"};
        QTest::newRow("company") << "αφοι" << QStringList{"Ωνάσης"};
        QTest::newRow("typed blank") << " Παπ" << QStringList();
        QTest::newRow("empty") << "" << QStringList();
        QTest::newRow("very long") << QString(10000, u'π') << QStringList();
        QTest::newRow("a backslash is no escape") << "\\" << QStringList();
    }
    void whatIsFound() {
        QFETCH(QString, text);
        QFETCH(QStringList, surnames);
        Office office;
        office.addCard("Αβραάμ", "Α", {{"τηλεφωνο1", "2310123456"}});
        office.addCard("Βαγγέλης", "Β", {{"τηλεφωνο3", "+30 2310 123 456"}});
        office.addCard("Γαβρίλης", "Γ", {{"ΚΙΝΗΤΟ", "(2310) 123456 εσωτ. 7"}});
        office.addCard("ΠΑΠΑΔΟΠΟΥΛΟΣ", "Γιώργος", {{"ΚΙΝΗΤΟ", "6971"}});
        office.addCard("Παπαδοπούλου", "Άννα", {{"τηλεφωνο4", "2610"}});
        office.addCard("O'Neil", "Τζων", {{"email", "oneil@example.com"}, {"τηλεφωνο2", "2651"}});
        office.addCard("Ωνάσης", "Αρίστος", {{"εταιρια", "ΑΦΟΊ"}, {"FAX", "26"}});
        FindDriver find(office);
        QCOMPARE(find.searchFor(text), surnames);
        QCOMPARE(office.desk.sound.beeps, surnames.isEmpty() && !text.isEmpty() ? 1 : 0);
        QVERIFY(office.desk.prompts.isEmpty());
    }

    void anEmptyTextLeavesTheList() {
        Office office;
        office.addCard("Α", "Β");
        FindDriver find(office);
        QCOMPARE(find.searchFor("α").size(), 1);
        QCOMPARE(find.searchFor("").size(), 1);
    }

    void enterTwiceTakesTheFirst() {
        Office office;
        office.addCard("Αα", "1");
        FindDriver find(office);
        find.searchFor("α");
        QTest::keyClick(find.form.focusWidget(), Qt::Key_Return);
        QCOMPARE(find.chosen, QStringList{"Αα/1"});
    }

    void enterOnTheListChooses() {
        Office office;
        office.addCard("Αα", "1");
        office.addCard("Αβ", "2");
        FindDriver find(office);
        find.searchFor("α");
        QTest::keyClick(find.form.findChild<controls::TextBox*>("Text1(0)"), Qt::Key_Down);
        QVERIFY(find.list()->hasFocus());
        QTest::keyClick(find.list(), Qt::Key_Down);
        QTest::keyClick(find.list(), Qt::Key_Return);
        QCOMPARE(find.chosen, QStringList{"Αβ/2"});
        QVERIFY(!find.form.isVisible());
    }

    void aFailureKeepsTheWindow() {
        Office office;
        FindDriver find(office);
        office.mod.gConn.close();
        QVERIFY(find.searchFor("α").isEmpty());
        QCOMPARE(office.desk.prompts.lastTitle(), QString("Μήνυμα λάθους"));
        QVERIFY(find.form.isVisible());
    }

    void widthsAreKept() {
        Office office;
        {
            FindDriver find(office);
            find.list()->setColumnWidth(1, 222);
            find.form.reject();
        }
        QCOMPARE(office.desk.settings.number("lvFind", "Code", 0), 222 * 15);
        FindDriver again(office);
        QCOMPARE(again.list()->columnWidth(1), 222);
    }

    // F3 on the card; the chosen card may lie before the one on show, or be newer than the key set.
    void fromTheCardAndBack() {
        Office office;
        office.addCard("Άλφα", "1");
        office.addCard("Βήτα", "2");
        CardDriver card(office.mod);
        card.press(3);
        office.addCard("Γάμμα", "3");
        for (const QString wanted : {"Άλφα", "Γάμμα"}) {
            card.form.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&card.form));
            QTimer::singleShot(0, &card.form, [&] {
                auto* find = qobject_cast<cards::frmFind*>(QApplication::activeModalWidget());
                if (!find) return QTest::qFail("F3 opened nothing", __FILE__, __LINE__);
                find->search(wanted.left(2));
                QTest::keyClick(find->findChild<controls::ListView*>("ListView1"), Qt::Key_Return);
            });
            card.text(13)->setFocus();
            QTest::keyClick(card.text(13), Qt::Key_F3);
            QCOMPARE(card.text(0)->text(), wanted);
        }
        QCOMPARE(card.counter(), QString("Εμφάνιση Καρτέλας (3/3)"));
        QTest::keyClick(card.text(2), Qt::Key_F3);
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(TestFrmFind)
#include "test_frmfind.moc"
