// Logging on, and the owner's details.
#include "support/cases.h"
#include "support/driver.h"
#include "support/seat.h"
#include "useroffice.h"
#include "users/frmlogon.h"
#include "users/frmowner.h"

using support::Seat;
using support::UserOffice;

namespace {

struct LogonDriver : support::Driver {
    explicit LogonDriver(core::MainMod& mod) : Driver(form), form(mod) {}
    bool tryWith(const QString& user, const QString& password) {
        type("Text1", user);
        type("Text2", password);
        click("Command1");
        return form.result() == QDialog::Accepted;
    }
    users::frmLogon form;
};

}  // namespace

class TestUsers : public QObject {
    Q_OBJECT
private slots:
    void theHintWhileAPasswordIsTyped() {
        struct Case {
            const char* name;
            QString typed;
            Qt::KeyboardModifiers modifiers;
            QString hint;
        };
        const QString caps = "Το Caps Lock είναι ενεργό.", greek = "Το πληκτρολόγιο γράφει ελληνικά.";
        const Case cases[] = {
            {"small letters", "admin", {}, ""},
            {"capitals with Shift", "ADMIN", Qt::ShiftModifier, ""},
            {"capitals without Shift", "ADMIN", {}, caps},
            {"small letters with Shift", "admin", Qt::ShiftModifier, caps},
            {"Greek letters", "αδμιν", {}, greek},
            {"Greek capitals", "ΑΔΜΙΝ", {}, caps + ' ' + greek},
            {"figures and signs", "12!;΄", {}, ""},
        };
        for (const Case& c : cases) {
            const support::InCase in(c.name);
            UserOffice office;
            const LogonDriver logon(office.mod);
            support::activate(logon.window());
            logon.find("Text2")->setFocus();
            for (const QChar letter : c.typed) {
                QKeyEvent press(QEvent::KeyPress, 0, c.modifiers, QString(letter));
                QApplication::sendEvent(logon.find("Text2"), &press);
            }
            QCOMPARE(logon.shown("Text2"), c.typed);
            QCOMPARE(logon.shown("lblHint"), c.hint);
            logon.find<QLineEdit>("Text2")->clear();
            QCOMPARE(logon.shown("lblHint"), "");
        }
    }

    void whoMayLogOn() {
        struct Case {
            const char* name;
            QString user, password;
            int group;  // 0: refused
        };
        const Case cases[] = {
            {"Admin", "Admin", "admin", 1},
            {"Admin, wrong", "Admin", "Admin", 0},
            {"Admin, nothing", "Admin", "", 0},
            {"Admin in small letters", "admin", "admin", 0},
            {"restricted user", "eleni", "κωδικός", 3},
            {"password of another", "eleni", "admin", 0},
            {"the row of an Admin is a second way in", "Admin", "second", 2},
            {"quote in the name", "O'Neil", "x'y", 2},
            {"quote as a trick", "' or '1'='1", "x", 0},
            {"nobody", "κανείς", "", 0},
            {"very long", QString(10000, u'a'), QString(10000, u'b'), 0},
        };
        UserOffice office;
        office.addUser("eleni", UserOffice::verifier("κωδικός"), 3);
        office.addUser("O'Neil", UserOffice::verifier("x'y"), 2);
        office.addUser("Admin", UserOffice::verifier("second"), 2);
        for (const Case& c : cases) {
            const support::InCase in(c.name);
            Seat seat;
            office.open(seat.mod);
            seat.mod.gUserName = "earlier";
            seat.mod.gUserGroup = 7;
            LogonDriver logon(seat.mod);
            QCOMPARE(logon.tryWith(c.user, c.password), c.group != 0);
            QVERIFY(seat.desk.prompts.isEmpty());
            QCOMPARE(seat.desk.sound.beeps, c.group ? 0 : 1);
            QCOMPARE(seat.mod.gUserName, c.group ? c.user : "earlier");
            QCOMPARE(seat.mod.gUserGroup, c.group ? c.group : 7);
            QCOMPARE(seat.desk.settings.value("Settings", "UserName", "none"), c.group ? c.user : "none");
            if (!c.group) QVERIFY(logon.shown("Text2").isEmpty());
        }
    }

    void emptyNameBeeps() {
        UserOffice office;
        LogonDriver logon(office.mod);
        QVERIFY(!logon.tryWith("", "admin"));
        QCOMPARE(office.desk.sound.beeps, 1);
        QCOMPARE(logon.shown("Text2"), "admin");
        QVERIFY(logon.find<QPushButton>("Command1")->isDefault());
    }

    // The wait outlives the window, as a log-off and a new logon would have it.
    void guessingGetsSlow() {
        UserOffice office;
        const auto tries = [&](const char* password) { return LogonDriver(office.mod).tryWith("Admin", password); };
        office.mod.gConnUsers.execute("update admin set pass='right'");
        for (int i = 0; i < 4; ++i) QVERIFY(!tries("wrong"));
        QVERIFY(tries("right"));
        for (int i = 0; i < 5; ++i) QVERIFY(!tries("wrong"));
        for (const int wait : {5, 10, 20, 40, 80, 160, 300, 300}) {
            const support::InCase in(QString::number(wait));
            const int beeps = office.desk.sound.beeps;
            office.desk.clock.advance(wait - 1);
            LogonDriver early(office.mod);
            QVERIFY(!early.tryWith("Admin", "right"));
            QVERIFY(early.shown("Text2").isEmpty());
            office.desk.clock.advance(1);
            QVERIFY(!tries("wrong"));
            QCOMPARE(office.desk.sound.beeps, beeps + 2);
        }
        QVERIFY(office.desk.prompts.isEmpty());
        office.desk.clock.advance(300);
        QVERIFY(tries("right"));
        QVERIFY(!tries("wrong"));
        QVERIFY(tries("right"));
    }

    void aClockSetBackHoldsNobodyLonger() {
        UserOffice office;
        office.mod.gConnUsers.execute("update admin set pass='right'");
        for (int i = 0; i < 5; ++i) LogonDriver(office.mod).tryWith("Admin", "wrong");
        office.desk.clock.advance(-3600);
        QVERIFY(!LogonDriver(office.mod).tryWith("Admin", "right"));
        office.desk.clock.advance(5);
        QVERIFY(LogonDriver(office.mod).tryWith("Admin", "right"));
    }

    void aClearPasswordIsReplacedAtItsFirstUse() {
        UserOffice office;
        office.addUser("nikos", "palios", 2);
        office.mod.gConnUsers.execute("update admin set pass='clear'");
        QVERIFY(office.knows("nikos", "palios") && office.knows("Admin", "clear"));
        for (const char* sql : {"select Password from users where UserName='nikos'", "select Pass from Admin"})
            QVERIFY2(data::isVerifier(office.stored(sql)), sql);
        QVERIFY(office.knows("nikos", "palios") && !office.knows("nikos", "neos"));
    }

    void withoutADatabaseTheBoxComesAndTheWindowLivesOn() {
        Seat seat;
        LogonDriver logon(seat.mod);
        for (const int boxes : {1, 2}) {
            QVERIFY(!logon.tryWith("Admin", "admin"));
            QCOMPARE(seat.desk.prompts.lastTitle(), "Μήνυμα λάθους");
            QCOMPARE(seat.desk.prompts.count(), boxes);
        }
    }

    void onlyTheOwnersNameIsMandatory() {
        Seat seat;
        auto& settings = seat.desk.settings;
        settings.setValue("Settings", "Phone", "210");
        users::frmOwner owner(seat.mod);
        const support::Driver driver(owner);
        QCOMPARE(driver.shown("Text7(2)"), "210");
        driver.click("Command1");
        QCOMPARE(seat.desk.prompts.lastText(), " Πρέπει να συμπληρώσετε τα Στοιχεία σας");
        QCOMPARE(owner.result(), 0);
        driver.type("Text7(0)", "Γραφείο «Ο Ήλιος»; a=b");
        driver.type("Text7(1)", "Ερμού 1");
        driver.type("Text7(3)", "a@b.gr");
        driver.click("Command1");
        QCOMPARE(owner.result(), int(QDialog::Accepted));
        const std::pair<const char*, const char*> stored[] = {
            {"Name", "Γραφείο «Ο Ήλιος»; a=b"}, {"Address", "Ερμού 1"}, {"Phone", "210"}, {"Email", "a@b.gr"}};
        for (const auto& [key, value] : stored) QCOMPARE(settings.value("Settings", key, ""), value);
    }
};

QTEST_MAIN(TestUsers)
#include "test_users.moc"
