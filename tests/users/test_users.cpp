#include "controls/boxes.h"
#include "data/opening/password.h"
#include "support/office.h"
#include "users/credentials.h"
#include "users/frmlogon.h"
#include "users/frmowner.h"

namespace {

void addUser(support::Office& office, const QString& name, const QString& stored, int group) {
    data::Recordset users(office.mod.gConnUsers, "select * from users");
    users.addNew();
    users[u"UserName"].setValue(name);
    users[u"Password"].setValue(stored);
    users[u"Group"].setValue(group);
    users.update();
}

struct LogonDriver {
    explicit LogonDriver(core::MainMod& mod) : form(mod) {}
    bool tryWith(const QString& user, const QString& password) {
        box("Text1")->setText(user);
        box("Text2")->setText(password);
        form.findChild<QPushButton*>("Command1")->click();
        return form.result() == QDialog::Accepted;
    }
    controls::TextBox* box(const char* name) { return form.findChild<controls::TextBox*>(name); }
    users::frmLogon form;
};

}  // namespace

class TestUsers : public QObject {
    Q_OBJECT
private slots:
    void whoMayLogOn_data() {
        QTest::addColumn<QString>("user");
        QTest::addColumn<QString>("password");
        QTest::addColumn<int>("group");  // 0: refused
        QTest::newRow("Admin") << "Admin"
                               << "admin" << 1;
        QTest::newRow("Admin, wrong") << "Admin"
                                      << "Admin" << 0;
        QTest::newRow("Admin, nothing") << "Admin"
                                        << "" << 0;
        QTest::newRow("restricted user") << "eleni"
                                         << "κωδικός" << 3;
        QTest::newRow("password of another") << "eleni"
                                             << "admin" << 0;
        QTest::newRow("the row of an Admin is a second way in") << "Admin"
                                                                << "second" << 2;
        QTest::newRow("quote in the name") << "O'Neil"
                                           << "x'y" << 2;
        QTest::newRow("quote as a trick") << "' or '1'='1"
                                          << "x" << 0;
        QTest::newRow("nobody") << "κανείς"
                                << "" << 0;
        QTest::newRow("very long") << QString(10000, u'a') << QString(10000, u'b') << 0;
    }
    void whoMayLogOn() {
        QFETCH(QString, user);
        QFETCH(QString, password);
        QFETCH(int, group);
        support::Office office;
        const auto light = [](const char16_t* text) {
            return data::makeVerifier(QString::fromUtf16(text), data::PasswordCost::Light);
        };
        addUser(office, "eleni", light(u"κωδικός"), 3);
        addUser(office, "O'Neil", light(u"x'y"), 2);
        addUser(office, "Admin", light(u"second"), 2);
        office.mod.gUserName = "earlier";
        office.mod.gUserGroup = 7;

        LogonDriver logon(office.mod);
        QCOMPARE(logon.tryWith(user, password), group != 0);
        QVERIFY(office.desk.prompts.isEmpty());
        QCOMPARE(office.desk.sound.beeps, group ? 0 : 1);
        QCOMPARE(office.mod.gUserName, group ? user : QString("earlier"));
        QCOMPARE(office.mod.gUserGroup, group ? group : 7);
        QCOMPARE(office.desk.settings.value("Settings", "UserName", "none"), group ? user : QString("none"));
        if (!group) QVERIFY(logon.box("Text2")->text().isEmpty());
    }

    void emptyNameBeeps() {
        support::Office office;
        LogonDriver logon(office.mod);
        QVERIFY(!logon.tryWith("", "admin"));
        QCOMPARE(office.desk.sound.beeps, 1);
        QCOMPARE(logon.box("Text2")->text(), QString("admin"));
    }

    // The wait outlives the window, as a log-off and a new logon would have it.
    void guessingGetsSlow() {
        support::Office office;
        const auto tries = [&](const char* password) { return LogonDriver(office.mod).tryWith("Admin", password); };
        office.mod.gConnUsers.execute("update admin set pass='right'");
        for (int i = 0; i < 4; ++i) QVERIFY(!tries("wrong"));
        QVERIFY(tries("right"));
        for (int i = 0; i < 5; ++i) QVERIFY(!tries("wrong"));
        for (int wait : {5, 10, 20, 40, 80, 160, 300, 300}) {
            const int beeps = office.desk.sound.beeps;
            office.desk.clock.advance(wait - 1);
            LogonDriver early(office.mod);
            QVERIFY2(!early.tryWith("Admin", "right"), qPrintable(QString::number(wait)));
            QVERIFY(early.box("Text2")->text().isEmpty());
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
        support::Office office;
        office.mod.gConnUsers.execute("update admin set pass='right'");
        for (int i = 0; i < 5; ++i) LogonDriver(office.mod).tryWith("Admin", "wrong");
        office.desk.clock.advance(-3600);
        QVERIFY(!LogonDriver(office.mod).tryWith("Admin", "right"));
        office.desk.clock.advance(5);
        QVERIFY(LogonDriver(office.mod).tryWith("Admin", "right"));
    }

    void aClearPasswordIsReplacedAtItsFirstUse() {
        support::Office office;
        addUser(office, "nikos", "palios", 2);
        office.mod.gConnUsers.execute("update admin set pass='clear'");
        QVERIFY(users::authenticate(office.mod.gConnUsers, "nikos", "palios"));
        QVERIFY(users::authenticate(office.mod.gConnUsers, "Admin", "clear"));
        for (const char* sql : {"select Password from users where UserName='nikos'", "select Pass from Admin"}) {
            data::Recordset row(office.mod.gConnUsers, sql);
            QVERIFY2(data::isVerifier(row.field(0).text()), sql);
        }
        QVERIFY(users::authenticate(office.mod.gConnUsers, "nikos", "palios"));
        QVERIFY(!users::authenticate(office.mod.gConnUsers, "nikos", "neos"));
    }

    void withoutADatabaseTheBoxComesAndTheWindowLivesOn() {
        support::Desk desk;
        core::MainMod mod(desk.services);
        LogonDriver logon(mod);
        QVERIFY(!logon.tryWith("Admin", "admin"));
        QCOMPARE(desk.prompts.lastTitle(), QString("Μήνυμα λάθους"));
        QVERIFY(!logon.tryWith("Admin", "admin"));
        QCOMPARE(desk.prompts.count(), 2);
    }

    void onlyTheOwnersNameIsMandatory() {
        support::Desk desk;
        core::MainMod mod(desk.services);
        desk.settings.setValue("Settings", "Phone", "210");
        users::frmOwner owner(mod);
        const auto box = [&](int i) { return owner.findChild<controls::TextBox*>(QString("Text7(%1)").arg(i)); };
        auto* confirm = owner.findChild<QPushButton*>("Command1");
        QCOMPARE(box(2)->text(), QString("210"));
        confirm->click();
        QCOMPARE(desk.prompts.lastText(), QString(" Πρέπει να συμπληρώσετε τα Στοιχεία σας"));
        QCOMPARE(owner.result(), 0);
        box(0)->setText("Γραφείο «Ο Ήλιος»; a=b");
        confirm->click();
        QCOMPARE(owner.result(), int(QDialog::Accepted));
        QCOMPARE(desk.settings.value("Settings", "Name", ""), QString("Γραφείο «Ο Ήλιος»; a=b"));
        QCOMPARE(desk.settings.value("Settings", "Phone", ""), QString("210"));
    }
};

QTEST_MAIN(TestUsers)
#include "test_users.moc"
