#include "users/frmusers.h"

#include <QGroupBox>
#include <QMenu>
#include <QRadioButton>

#include "support/cases.h"
#include "support/driver.h"
#include "useroffice.h"

namespace {

const QString noGroup = "Δεν έχετε επιλέξει ομάδα δικαιωμάτων\n για τον χρήστη ";
const QString noName = "Το όνομα Χρήστη δεν μπορεί να είναι κενό !!!";
const QString noPassword = "Για λόγους ασφαλείας ο Κωδικός δεν μπορεί να είναι κενό !!!";
const QString deletion = "Είστε σίγουρος για διαγραφή του χρήστη: ";

// Shown in this order: O'Neil, νίκος, maria.
struct ThreeUsers : support::UserOffice {
    ThreeUsers() {
        addUser("maria", verifier("m1"), 1);
        addUser("νίκος", verifier("n2"), 2);
        addUser("O'Neil", verifier("o3"), 3);
    }
    // "name/group", "" for nobody.
    QString user(QString name) {
        return stored("select UserName & '/' & [Group] from users where UserName='" + name.replace("'", "''") + "'");
    }
};

struct UsersDriver : support::Driver {
    explicit UsersDriver(ThreeUsers& office) : Driver(form), form(office.mod) {
        form.load();
        support::activate(form);
    }
    void select(const QString& name) { list()->selectRow(rowOf(name)); }
    void edit(const QString& name) {
        select(name);
        trigger("mnuEditUser");
    }
    // Over what stands there, as typing does.
    void fill(const QString& name, const QString& password, const QString& group) {
        for (const auto& [box, text] : {std::pair("Text1", name), std::pair("Text2", password)}) {
            auto* line = find<QLineEdit>(box);
            line->setFocus(Qt::TabFocusReason);
            line->selectAll();
            text.isEmpty() ? QTest::keyClick(line, Qt::Key_Delete) : line->insert(text);
        }
        find<QComboBox>("Combo1")->setCurrentIndex(find<QComboBox>("Combo1")->findText(group));
    }
    // At the end of the password's box, whatever stands there.
    void typeBehindPassword(const std::function<void(QLineEdit*)>& keys) {
        auto* line = find<QLineEdit>("Text2");
        line->setFocus(Qt::TabFocusReason);
        line->end(false);
        keys(line);
    }
    void confirm() { click("Command1"); }
    bool isEditing() { return isVisible("Frame1") && !isVisible("ListView1"); }
    QStringList names() { return column(0); }

    users::frmUsers form;
};

struct UsersSite : ThreeUsers, UsersDriver {
    UsersSite() : UsersDriver(static_cast<ThreeUsers&>(*this)) {}
};

}  // namespace

class TestFrmUsers : public QObject {
    Q_OBJECT
private slots:
    void theListShowsTheHighestGroupFirst() {
        ThreeUsers office;
        office.addUser("παλιός", "x", 7);
        office.addUser("χωρίς", "x", {});
        office.mod.gConnUsers.execute("update groups set name='Ο''Κ' where code=3");
        UsersDriver form(office);
        // A user without a group stands first, as Null does everywhere.
        QCOMPARE(form.rows(), QStringList({"χωρίς|", "παλιός|", "O'Neil|Ο'Κ", "νίκος|Χρήστες", "maria|Διαχειριστές"}));
        QCOMPARE(form.find<QComboBox>("Combo1")->count(), 3);
        QVERIFY(office.desk.prompts.isEmpty());
    }

    void checks() {
        struct Case {
            const char* name;
            QString edited;  // empty: a new user
            QString user, password, group, message, focus;
        };
        const QString users = "Χρήστες", taken = "Το όνομα Χρήστη %1 υπάρχει ήδη !!!", saved;
        const Case cases[] = {
            {"new", "", "άννα", "p", users, saved, "ListView1"},
            {"new, quotes", "", "d'Artagnan", "p'q", users, saved, "ListView1"},
            {"new, no group", "", "άννα", "p", "", noGroup + "άννα", "Combo1"},
            {"the group counts first", "", "", "", "", noGroup, "Combo1"},
            {"new, no name", "", "", "", users, noName, "Text1"},
            {"new, taken", "", "maria", "", users, taken.arg("maria"), "Text1"},
            {"new, taken but for accents", "", "ΝΙΚΟΣ", "p", users, taken.arg("ΝΙΚΟΣ"), "Text1"},
            {"new, no password", "", "άννα", "", users, noPassword, "Text2"},
            {"edit the first", "O'Neil", "O'Hara", "p", users, saved, "ListView1"},
            {"edit, case alone", "maria", "MARIA", "p", users, saved, "ListView1"},
            {"edit, name of another", "maria", "o'neil", "p", users, taken.arg("o'neil"), "Text1"},
            {"edit, password emptied", "maria", "maria", "", users, noPassword, "Text2"},
        };
        for (const Case& c : cases) {
            const support::InCase in(c.name);
            UsersSite form;
            const QStringList before = form.names();
            c.edited.isEmpty() ? form.trigger("mnuNewUser") : form.edit(c.edited);
            QVERIFY(form.isEditing());
            form.fill(c.user, c.password, c.group);
            form.confirm();
            QCOMPARE(form.desk.prompts.lastText(), c.message);
            QCOMPARE(form.isEditing(), !c.message.isEmpty());
            QCOMPARE(form.focused(), c.focus);
            if (form.isEditing()) {
                QCOMPARE(form.shown("Text1"), c.user);
                QCOMPARE(form.names(), before);
                continue;
            }
            QCOMPARE(form.user(c.user), c.user + "/2");
            QVERIFY(form.knows(c.user, c.password));
            QCOMPARE(form.names().size(), before.size() + (c.edited.isEmpty() ? 1 : 0));
            QCOMPARE(form.list()->row(form.list()->currentRow()).cells, QStringList({c.user, c.group}));
        }
    }

    void anUntouchedPasswordStands() {
        UsersSite form;
        form.edit("maria");
        QCOMPARE(form.find<QLineEdit>("Text2")->echoMode(), QLineEdit::Password);
        QVERIFY(!form.shown("Text2").isEmpty() && !form.shown("Text2").contains("argon2"));
        QCOMPARE(form.shown("Combo1"), "Διαχειριστές");
        form.find<QComboBox>("Combo1")->setCurrentIndex(2);
        form.confirm();
        QCOMPARE(form.user("maria"), "maria/3");
        QVERIFY(form.knows("maria", "m1"));
    }

    void typingBesideTheDotsStartsANewPassword() {
        UsersSite form;
        form.edit("maria");
        form.typeBehindPassword([](QLineEdit* line) { QTest::keyClicks(line, "xy"); });
        form.confirm();
        QVERIFY(form.knows("maria", "xy") && !form.knows("maria", "m1"));
        form.trigger("mnuEditUser");
        form.typeBehindPassword([](QLineEdit* line) { QTest::keyClick(line, Qt::Key_Backspace); });
        form.confirm();
        QCOMPARE(form.desk.prompts.lastText(), noPassword);
        form.desk.prompts.answer(true);
        form.click("Command2");
        form.mod.gConnUsers.execute("update users set [Password]=Null where UserName='maria'");
        form.trigger("mnuEditUser");
        QCOMPARE(form.shown("Text2"), "");
    }

    void aGroupThatIsGoneIsTold() {
        UsersSite form;
        form.trigger("mnuNewUser");
        form.fill("άννα", "p", "Χρήστες");
        form.mod.gConnUsers.execute("delete from groups where code=2");
        form.confirm();
        QCOMPARE(form.desk.prompts.lastText(), "Υπάρχει πρόβλημα με την συγκεκριμένη ομάδα Δικαιωμάτων (Χρήστες)");
        QVERIFY(form.isEditing() && form.user("άννα").isEmpty());
    }

    void deletingAsksFirst() {
        UsersSite form;
        form.select("O'Neil");
        for (const bool yes : {false, true}) {
            form.desk.prompts.answer(yes);
            form.trigger("mnuDeleteUser");
            QCOMPARE(form.desk.prompts.lastText(), deletion + "O'Neil");
            QCOMPARE(form.user("O'Neil"), yes ? "" : "O'Neil/3");
        }
        QCOMPARE(form.names(), QStringList({"νίκος", "maria"}));
    }

    void theKeyboardReachesEverything() {
        UsersSite form;
        form.select("maria");
        QTest::keyClick(form.list(), Qt::Key_Return);
        QVERIFY(form.isEditing());
        QCOMPARE(form.shown("Text1"), "maria");
        form.type("Text1", "άλλη");
        for (const bool discarded : {false, true}) {
            form.desk.prompts.answer(discarded);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            QCOMPARE(form.isEditing(), !discarded);
        }
        QCOMPARE(form.user("maria"), "maria/1");
        QCOMPARE(form.list()->currentRow(), form.rowOf("maria"));
        // Nothing of the user that was on show stays for the new one.
        QTest::keyClick(form.list(), Qt::Key_Insert);
        QVERIFY(form.isEditing());
        for (const char* control : {"Text1", "Text2", "Combo1"}) QCOMPARE(form.shown(control), QString());
        form.click("Command2");
        QVERIFY(!form.isEditing());
        form.select("maria");
        form.desk.prompts.answer(true);
        QTest::keyClick(form.list(), Qt::Key_Delete);
        QCOMPARE(form.names(), QStringList({"O'Neil", "νίκος"}));
    }

    void theMenuOffersWhatIsPossible() {
        UsersSite form;
        auto* list = form.list();
        const auto request = [](QWidget* on, QContextMenuEvent::Reason reason, QPoint at) {
            QContextMenuEvent event(reason, at, on->mapToGlobal(at));
            QApplication::sendEvent(on, &event);
        };
        struct Case {
            const char* name;
            std::function<void()> act;
            bool overAUser = true;
        };
        const Case cases[] = {
            {"menu key", [&] { QTest::keyClick(list, Qt::Key_Menu); }},
            {"Shift+F10", [&] { QTest::keyClick(list, Qt::Key_F10, Qt::ShiftModifier); }},
            {"the desktop's", [&] { request(list, QContextMenuEvent::Keyboard, list->rect().center()); }},
            {"right click on a row",
             [&] {
                 request(list->viewport(), QContextMenuEvent::Mouse, list->visualRect(list->currentIndex()).center());
             }},
            {"right click beside the rows",
             [&] {
                 request(list->viewport(), QContextMenuEvent::Mouse,
                         list->viewport()->rect().bottomLeft() + QPoint(5, -5));
             },
             false},
        };
        // The first row as well as the last.
        for (const char* user : {"O'Neil", "maria"})
            for (const Case& c : cases) {
                const support::InCase in(QString("%1, %2").arg(user, c.name));
                form.select(user);
                c.act();
                QVERIFY(form.isVisible("mnu1") && form.isEnabled("mnuNewUser"));
                QCOMPARE(form.isEnabled("mnuEditUser"), c.overAUser);
                QCOMPARE(form.isEnabled("mnuDeleteUser"), c.overAUser);
                form.find<QMenu>("mnu1")->close();
            }
    }

    void withNobodyThereIsOnlyANewOne() {
        ThreeUsers office;
        office.mod.gConnUsers.execute("delete from users");
        UsersDriver form(office);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Delete}) QTest::keyClick(form.list(), key);
        QVERIFY(!form.isEditing() && office.desk.prompts.isEmpty());
        QTest::keyClick(form.list(), Qt::Key_Menu);
        QVERIFY(form.isEnabled("mnuNewUser") && !form.isEnabled("mnuEditUser"));
        form.find<QMenu>("mnu1")->close();
    }

    // What both changed is chosen from; what only one changed stays.
    void anotherSeatChangesTheUserMeanwhile() {
        struct Case {
            const char *name, *meanwhile, *button;
            QString user, there;
            int asked;
        };
        const Case cases[] = {
            {"the name, mine", "UserName='m'", "cmdSave", "άννα", "άννα/2", 1},
            {"the name, theirs", "UserName='m'", "optTheirs(0)", "m", "m/2", 1},
            {"gone back", "UserName='m'", "cmdBack", "m", "m/1", 1},
            {"another column", "Password='x'", "cmdSave", "άννα", "άννα/2", 1},
        };
        support::forEach(cases, [](const Case& c) {
            UsersSite form;
            form.edit("maria");
            form.fill("άννα", "p", "Χρήστες");
            support::OtherSeat other(form);
            other.mod.gConnUsers.execute(QString("update users set %1 where UserName='maria'").arg(c.meanwhile));
            int asked = 0;
            support::inNextDialog("ConflictDialog", [&](support::Driver& dialog) {
                asked = int(dialog.window().findChildren<QRadioButton*>().size()) / 2;
                dialog.click(c.button);
                if (QString(c.button).startsWith("opt")) dialog.click("cmdSave");
            });
            form.confirm();
            QCOMPARE(asked, c.asked);
            QCOMPARE(form.user(c.user), c.there);
            QCOMPARE(form.isEditing(), c.button == QString("cmdBack"));
        });
    }

    void aUserWhoWasDeletedMeanwhileCanBeANewOne() {
        UsersSite form;
        form.edit("maria");
        form.find<QComboBox>("Combo1")->setCurrentIndex(1);
        form.mod.gConnUsers.execute("delete from users where UserName='maria'");
        form.desk.prompts.answer(true);
        form.confirm();
        QCOMPARE(form.desk.prompts.lastText(), noPassword);  // it went with the row
        form.find<QLineEdit>("Text2")->setText("p");
        form.confirm();
        QVERIFY(form.user("maria").startsWith("maria/") && !form.isEditing());
    }

    void aNameOfAnyLengthIsCutToItsColumn() {
        UsersSite form;
        form.edit("maria");
        form.fill(QString(10000, u'a'), "p", "Χρήστες");
        form.confirm();
        QVERIFY(form.desk.prompts.isEmpty());
        QVERIFY(!form.user(QString(255, u'a')).isEmpty());
    }

    void aUserWhoIsGoneLeavesTheList() {
        for (const char* action : {"mnuEditUser", "mnuDeleteUser"}) {
            UsersSite form;
            form.select("maria");
            form.mod.gConnUsers.execute("delete from users where UserName='maria'");
            form.trigger(action);
            QCOMPARE(form.desk.prompts.lastText(), "Ο χρήστης έχει διαγραφεί στο μεταξύ.");
            QVERIFY(!form.isEditing() && !form.names().contains("maria"));
        }
    }

    void closingOverChangesAsks() {
        UsersSite form;
        form.trigger("mnuNewUser");
        QVERIFY(form.form.unload(true, {}));
        form.type("Text1", "άννα");
        for (const bool yes : {false, true}) {
            form.desk.prompts.answer(yes);
            QCOMPARE(form.form.unload(true, {}), yes);
        }
    }
};

QTEST_MAIN(TestFrmUsers)
#include "test_frmusers.moc"
