#include <QPushButton>
#include <QSignalSpy>

#include "controls/boxes.h"
#include "data/opening/password.h"
#include "support/office.h"
#include "users/credentials.h"
#include "users/frmadmin.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct AdminDriver {
    explicit AdminDriver(core::MainMod& mod) : form(mod), closing(&form, &core::Form::closeRequested) {
        form.load();
        form.show();
    }
    void change(const QString& old, const QString& fresh, const QString& again) {
        box("Text1")->setText(old);
        box("Text2")->setText(fresh);
        box("Text3")->setText(again);
        form.findChild<QPushButton*>("Command1")->click();
    }
    controls::TextBox* box(const QString& name) { return form.findChild<controls::TextBox*>(name); }
    QString focused() { return form.focusWidget() ? form.focusWidget()->objectName() : QString(); }
    users::frmAdmin form;
    QSignalSpy closing;
};

const QString wrongOld = u"Ο παλιός Κωδικός δεν είναι σωστός !!!"_s;
const QString wrongNew = u"Ο καινούργιος Κωδικός δεν συμφωνεί στην επιβεβαίωση ή είναι κενός !!!"_s;
const QString done = u"Η αλλαγή του Κωδικού του Admin έγινε επιτυχώς !!!"_s;

QString stored(support::Office& office) {
    return data::Recordset(office.mod.gConnUsers, "select pass from admin").field(0).text();
}

}  // namespace

class TestFrmAdmin : public QObject {
    Q_OBJECT
private slots:
    void changes_data() {
        QTest::addColumn<QString>("old");
        QTest::addColumn<QString>("fresh");
        QTest::addColumn<QString>("again");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("focus");  // empty: changed
        const QString old = "admin", long_ = QString(10000, u'ω');
        QTest::newRow("plain") << old << "νέος"
                               << "νέος" << done << "";
        QTest::newRow("quotes") << old << "a'b\"'"
                                << "a'b\"'" << done << "";
        QTest::newRow("very long") << old << long_ << long_ << done << "";
        QTest::newRow("wrong old") << "Admin"
                                   << "x"
                                   << "x" << wrongOld << "Text1";
        QTest::newRow("no old") << ""
                                << "x"
                                << "x" << wrongOld << "Text1";
        QTest::newRow("the old one counts first") << "x"
                                                  << ""
                                                  << "" << wrongOld << "Text1";
        QTest::newRow("unequal") << old << "νέος"
                                 << "Νέος" << wrongNew << "Text2";
        QTest::newRow("no new") << old << ""
                                << "" << wrongNew << "Text2";
        QTest::newRow("not confirmed") << old << "νέος"
                                       << "" << wrongNew << "Text2";
    }
    void changes() {
        QFETCH(QString, old);
        QFETCH(QString, fresh);
        QFETCH(QString, again);
        QFETCH(QString, message);
        QFETCH(QString, focus);
        support::Office office;
        const QString before = stored(office);
        AdminDriver admin(office.mod);
        admin.change(old, fresh, again);
        QCOMPARE(office.desk.prompts.lastText(), message);
        QCOMPARE(office.desk.prompts.count(), 1);
        QCOMPARE(admin.closing.count(), focus.isEmpty() ? 1 : 0);
        if (!focus.isEmpty()) {
            QCOMPARE(admin.focused(), focus);
            QCOMPARE(stored(office), before);
            QCOMPARE(admin.box("Text2")->text(), fresh);
            return;
        }
        QVERIFY(data::isVerifier(stored(office)));
        QVERIFY(users::authenticate(office.mod.gConnUsers, "Admin", fresh));
        QVERIFY(!users::authenticate(office.mod.gConnUsers, "Admin", "admin"));
    }

    void aClearPasswordOfOldCountsAndIsReplaced() {
        support::Office office;
        office.mod.gConnUsers.execute("update admin set pass='clear'");
        AdminDriver admin(office.mod);
        admin.change("clear", "νέος", "νέος");
        QCOMPARE(office.desk.prompts.lastText(), done);
        QVERIFY(data::isVerifier(stored(office)));
    }

    void withoutARowOrADatabaseNothingIsLost() {
        support::Office office;
        AdminDriver admin(office.mod);
        office.mod.gConnUsers.execute("delete from admin");
        admin.change("", "νέος", "νέος");
        QCOMPARE(office.desk.prompts.lastText(), wrongOld);
        office.mod.gConnUsers.close();
        admin.change("admin", "νέος", "νέος");
        QCOMPARE(office.desk.prompts.lastTitle(), QString("Μήνυμα λάθους"));
        QCOMPARE(admin.box("Text3")->text(), QString("νέος"));
        QVERIFY(admin.closing.isEmpty());
    }
};

QTEST_MAIN(TestFrmAdmin)
#include "test_frmadmin.moc"
