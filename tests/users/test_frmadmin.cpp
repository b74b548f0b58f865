#include "users/frmadmin.h"

#include <QSignalSpy>

#include "support/cases.h"
#include "support/driver.h"
#include "useroffice.h"

using support::UserOffice;

namespace {

struct AdminDriver : support::Driver {
    explicit AdminDriver(core::MainMod& mod) : Driver(form), form(mod), closing(&form, &core::Form::closeRequested) {
        form.load();
        form.show();
    }
    void change(const QString& old, const QString& fresh, const QString& again) {
        type("Text1", old);
        type("Text2", fresh);
        type("Text3", again);
        click("Command1");
    }
    users::frmAdmin form;
    QSignalSpy closing;
};

const QString wrongOld = "Ο παλιός Κωδικός δεν είναι σωστός !!!";
const QString wrongNew = "Ο καινούργιος Κωδικός δεν συμφωνεί στην επιβεβαίωση ή είναι κενός !!!";
const QString done = "Η αλλαγή του Κωδικού του Admin έγινε επιτυχώς !!!";
const QString storedPassword = "select pass from admin";

}  // namespace

class TestFrmAdmin : public QObject {
    Q_OBJECT
private slots:
    void changes() {
        struct Case {
            const char* name;
            QString old, fresh, again, message, focus;  // empty focus: changed
        };
        const QString old = "admin", longest(10000, u'ω');
        const Case cases[] = {
            {"plain", old, "νέος", "νέος", done, ""},
            {"quotes", old, "a'b\"'", "a'b\"'", done, ""},
            {"very long", old, longest, longest, done, ""},
            {"wrong old", "Admin", "x", "x", wrongOld, "Text1"},
            {"no old", "", "x", "x", wrongOld, "Text1"},
            {"the old one counts first", "x", "", "", wrongOld, "Text1"},
            {"unequal", old, "νέος", "Νέος", wrongNew, "Text2"},
            {"no new", old, "", "", wrongNew, "Text2"},
            {"not confirmed", old, "νέος", "", wrongNew, "Text2"},
        };
        UserOffice office;
        const QString before = office.stored(storedPassword);
        for (const Case& c : cases) {
            const support::InCase in(c.name);
            office.mod.gConnUsers.execute("update admin set pass='" + before + "'");
            office.desk.prompts.clear();
            AdminDriver admin(office.mod);
            admin.change(c.old, c.fresh, c.again);
            QCOMPARE(office.desk.prompts.lastText(), c.message);
            QCOMPARE(office.desk.prompts.count(), 1);
            const bool changed = c.focus.isEmpty();
            QCOMPARE(admin.closing.count(), int(changed));
            QCOMPARE(office.knows("Admin", "admin"), !changed);
            if (changed) {
                QVERIFY(data::isVerifier(office.stored(storedPassword)) && office.knows("Admin", c.fresh));
                continue;
            }
            QCOMPARE(admin.focused(), c.focus);
            QCOMPARE(office.stored(storedPassword), before);
            QCOMPARE(admin.shown("Text2"), c.fresh);
        }
    }

    void aClearPasswordOfOldCountsAndIsReplaced() {
        UserOffice office;
        office.mod.gConnUsers.execute("update admin set pass='clear'");
        AdminDriver(office.mod).change("clear", "νέος", "νέος");
        QCOMPARE(office.desk.prompts.lastText(), done);
        QVERIFY(data::isVerifier(office.stored(storedPassword)));
    }

    void withoutARowOrADatabaseNothingIsLost() {
        UserOffice office;
        AdminDriver admin(office.mod);
        office.mod.gConnUsers.execute("delete from admin");
        admin.change("", "νέος", "νέος");
        QCOMPARE(office.desk.prompts.lastText(), wrongOld);
        office.mod.gConnUsers.close();
        admin.change("admin", "νέος", "νέος");
        QCOMPARE(office.desk.prompts.lastTitle(), "Μήνυμα λάθους");
        QCOMPARE(admin.shown("Text3"), "νέος");
        QVERIFY(admin.closing.isEmpty());
    }
};

QTEST_MAIN(TestFrmAdmin)
#include "test_frmadmin.moc"
