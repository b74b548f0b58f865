#include "cards/frmfind.h"

#include "carddriver.h"
#include "support/cases.h"

using namespace support;

namespace {

struct FindDriver : Driver {
    explicit FindDriver(Office& office)
        : Driver(form), form(office.mod, nullptr, [this](const cards::FoundCard& card) {
              chosen << card.surname + "/" + card.firstName;
          }) {
        activate(form);
    }
    // The surnames.
    QStringList searchFor(const QString& text) {
        auto* box = find<QLineEdit>("Text1(0)");
        box->setFocus();
        box->setText(text);
        QTest::keyClick(box, Qt::Key_Return);
        return column(0);
    }

    QStringList chosen;
    cards::frmFind form;
};

}  // namespace

class TestFrmFind : public QObject {
    Q_OBJECT
private slots:
    void whatIsFound() {
        Office office;
        office.addCard("Αβραάμ", "Α", {{"τηλεφωνο1", "2310123456"}});
        office.addCard("Βαγγέλης", "Β", {{"τηλεφωνο3", "+30 2310 123 456"}});
        office.addCard("Γαβρίλης", "Γ", {{"ΚΙΝΗΤΟ", "(2310) 123456 εσωτ. 7"}});
        office.addCard("ΠΑΠΑΔΟΠΟΥΛΟΣ", "Γιώργος", {{"ΚΙΝΗΤΟ", "6971"}});
        office.addCard("Παπαδοπούλου", "Άννα", {{"τηλεφωνο4", "2610"}});
        office.addCard("O'Neil", "Τζων", {{"email", "oneil@example.com"}, {"τηλεφωνο2", "2651"}});
        office.addCard("Ωνάσης", "Αρίστος", {{"εταιρια", "ΑΦΟΊ"}, {"FAX", "26"}});
        const QStringList both{"ΠΑΠΑΔΟΠΟΥΛΟΣ", "Παπαδοπούλου"}, numbers{"Αβραάμ", "Βαγγέλης", "Γαβρίλης"},
            neil{"O'Neil"}, none;
        const std::pair<QString, QStringList> cases[] = {
            {"ΠΑΠΑΔ", both},
            {"παπαδ", both},
            {"Παπάδ", both},
            {"οπουλος", none},  // inside a value
            {"αριστ", {"Ωνάσης"}},
            {"αφοι", {"Ωνάσης"}},
            {"αφ οι", none},
            {"ONEIL@", neil},
            {"o'n", neil},
            {" Παπ", none},
            {"26", {"O'Neil", "Παπαδοπούλου"}},
            {"697", {"ΠΑΠΑΔΟΠΟΥΛΟΣ"}},
            {"2310 123456", numbers},
            {"+30 2310123456", numbers},
            {"2310-123456", numbers},
            {"0030 (2310) 1234", numbers},
            {"2310123456", numbers},
            {" 2310", none},
            {"310 123456", none},
            {"", none},
            {QString(10000, u'π'), none},
            {"\\", none},
        };
        for (const auto& [text, surnames] : cases) {
            const InCase in(text);
            const int beeps = office.desk.sound.beeps;
            FindDriver find(office);
            QCOMPARE(find.searchFor(text), surnames);
            QCOMPARE(office.desk.sound.beeps - beeps, surnames.isEmpty() && !text.isEmpty() ? 1 : 0);
            QVERIFY(office.desk.prompts.isEmpty());
        }
    }

    void anEmptyTextLeavesTheList() {
        Office office;
        office.addCard("Α", "Β");
        FindDriver find(office);
        QCOMPARE(find.searchFor("α").size(), 1);
        QCOMPARE(find.searchFor("").size(), 1);
    }

    // Enter twice takes the first; the arrows lead to the others.
    void enterOnTheListChooses() {
        Office office;
        office.addCard("Αα", "1");
        office.addCard("Αβ", "2");
        for (const bool second : {false, true}) {
            FindDriver find(office);
            find.searchFor("α");
            if (second) {
                QTest::keyClick(find.find("Text1(0)"), Qt::Key_Down);
                QVERIFY(find.hasFocus("ListView1"));
                QTest::keyClick(find.list(), Qt::Key_Down);
            }
            QTest::keyClick(find.form.focusWidget(), Qt::Key_Return);
            QCOMPARE(find.chosen, QStringList(second ? "Αβ/2" : "Αα/1"));
            QVERIFY(!find.isOpen());
        }
    }

    void aFailureKeepsTheWindow() {
        Office office;
        FindDriver find(office);
        office.lose();
        QVERIFY(find.searchFor("α").isEmpty());
        QCOMPARE(office.desk.prompts.lastTitle(), "Μήνυμα λάθους");
        QVERIFY(find.isOpen());
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
        card.press(card::Next);
        office.addCard("Γάμμα", "3");
        for (const QString wanted : {"Άλφα", "Γάμμα"}) {
            activate(card.form);
            inNextDialog("frmFind", [&](Driver& find) {
                find.type("Text1(0)", wanted.left(2));
                QTest::keyClick(find.find("Text1(0)"), Qt::Key_Return);
                QTest::keyClick(find.list(), Qt::Key_Return);
            });
            card.find(card::mail)->setFocus();
            QTest::keyClick(card.find(card::mail), Qt::Key_F3);
            QCOMPARE(card.shown(card::surname), wanted);
        }
        QCOMPARE(card.counter(), "Εμφάνιση Καρτέλας (3/3)");
        // The other boxes don't search.
        QTest::keyClick(card.find("Text7(2)"), Qt::Key_F3);
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(TestFrmFind)
#include "test_frmfind.moc"
