// The windows in which the office shapes its cards: categories, lists, parametric fields.
#include <QAction>
#include <QSignalSpy>

#include "cards/frmcategory.h"
#include "cards/frmfields.h"
#include "support/office.h"

using support::Office;

namespace {

template <typename Form>
struct EditorDriver {
    template <typename... Arguments>
    explicit EditorDriver(Office& office, Arguments&&... arguments)
        : form(office.mod, std::forward<Arguments>(arguments)...) {
        form.load();
        form.show();
        form.activateWindow();
        if (!QTest::qWaitForWindowActive(&form)) QTest::qFail("no focus", __FILE__, __LINE__);
    }
    controls::TextBox* box(const QString& name) { return form.template findChild<controls::TextBox*>(name); }
    QCheckBox* check(const QString& name) { return form.template findChild<QCheckBox*>(name); }
    controls::ListView* list() { return form.template findChild<controls::ListView*>("ListView1"); }
    QAction* command(const QString& name) { return form.template findChild<QAction*>(name); }
    QStringList rows() {
        QStringList texts;
        for (int i = 0; i < list()->count(); ++i) texts << list()->row(i).cells.value(0);
        return texts;
    }
    Form form;
};

}  // namespace

class TestSettingsForms : public QObject {
    Q_OBJECT
private slots:
    void categoriesAreAddedChangedAndDeleted() {
        Office office;
        EditorDriver<cards::frmCategory> editor(office);
        int changes = 0;
        office.mod.doors.listsChanged = [&changes] { ++changes; };
        QCOMPARE(editor.rows(), QStringList{"ΕΠΑΦΕΣ"});

        editor.command("mnuNewCategory")->trigger();
        QVERIFY(!editor.command("mnuNewCategory")->isEnabled() && editor.command("mnuSave")->isEnabled());
        QVERIFY(!editor.form.findChild<QAbstractButton*>("lblClick(0)")->isEnabled());
        QTest::keyClick(editor.box("Text1(1)"), Qt::Key_Return);
        QCOMPARE(office.desk.prompts.lastText(), QString("H Περιγραφή κατηγορίας δεν μπορεί να είναι κενή !!!"));
        QVERIFY(editor.form.isEditing() && editor.box("Text1(1)")->hasFocus());
        editor.box("Text1(1)")->setText("Πελάτες O'Neil");
        editor.check("Check1")->setChecked(true);
        QTest::keyClick(editor.box("Text1(1)"), Qt::Key_Return);
        QCOMPARE(editor.rows(), QStringList({"ΕΠΑΦΕΣ", "Πελάτες O'Neil"}));
        QVERIFY(editor.list()->row(1).colour.isValid());
        QCOMPARE(changes, 1);

        editor.list()->selectRow(1);
        QTest::keyClick(editor.list(), Qt::Key_Return);
        QVERIFY(editor.check("Check1")->isChecked());
        editor.box("Text1(1)")->setText("Πελάτες");
        editor.check("Check1")->setChecked(false);
        editor.command("mnuSave")->trigger();
        QCOMPARE(editor.rows(), QStringList({"ΕΠΑΦΕΣ", "Πελάτες"}));
        QVERIFY(!editor.list()->row(1).colour.isValid());

        editor.list()->selectRow(1);
        office.desk.prompts.answer(false);
        editor.command("mnuDelCategory")->trigger();
        QCOMPARE(office.desk.prompts.lastText(), QString("Είστε σίγουρος για διαγραφή του : Πελάτες"));
        QCOMPARE(editor.rows().size(), 2);
        office.desk.prompts.answer(true);
        editor.command("mnuDelCategory")->trigger();
        QCOMPARE(editor.rows(), QStringList{"ΕΠΑΦΕΣ"});
    }

    void anEmptyTableOffersOnlyNew() {
        Office office;
        EditorDriver<cards::frmCombos> editor(office);
        editor.form.setList(3);
        QVERIFY(!editor.command("mnuEditTimh")->isEnabled() && !editor.command("mnuDelTimh")->isEnabled());
        editor.command("mnuNewTimh")->trigger();
        editor.box("Text1(1)")->setText("τιμή");
        editor.command("mnuSave")->trigger();
        QVERIFY(editor.command("mnuEditTimh")->isEnabled());
        QCOMPARE(office.value("select Description from Combo3").toString(), QString("τιμή"));
        QVERIFY(!office.value("select Description from Combo1").isValid());
        QCOMPARE(editor.form.windowTitle(), QString("Τιμές λίστας 3"));
    }

    void leavingANewRowWritesNothing() {
        Office office;
        EditorDriver<cards::frmCategory> editor(office);
        editor.command("mnuNewCategory")->trigger();
        QTest::keyClick(editor.box("Text1(1)"), Qt::Key_A);
        office.desk.prompts.answer(false);
        QVERIFY(!editor.form.unload(false, {}));
        QTest::keyClick(editor.box("Text1(1)"), Qt::Key_Escape);
        QVERIFY(!editor.form.isEditing());
        QVERIFY(editor.form.unload(false, {}));
        QCOMPARE(office.value("select count(*) from CardKategory").toInt(), 1);
    }

    void aRowDeletedByAnotherIsToldByRefreshing() {
        Office office;
        EditorDriver<cards::frmCategory> editor(office);
        editor.list()->selectRow(0);
        office.mod.gConn.execute("delete from CardKategory");
        QTest::keyClick(editor.list(), Qt::Key_Return);
        QVERIFY(!editor.form.isEditing());
        QCOMPARE(editor.rows(), QStringList());
    }

    void fieldsRunTheWayTheirArraysDo() {
        Office office;
        int opened = 0;
        {
            office.mod.doors.openValues = [&](int list) { opened = list; };
            EditorDriver<cards::frmFields> fields(office);
            QCOMPARE(fields.box("Text1(9)")->text(), QString("Αλφαριθμητικό 10"));
            QCOMPARE(fields.box("Text3(7)")->text(), QString("Λίστα 1"));
            QCOMPARE(fields.box("Text2(6)")->text(), QString("Κείμενο 6"));
            QCOMPARE(fields.box("Text4(1)")->text(), QString("Επιλεκτικό 1"));
            fields.form.findChild<QPushButton*>("cmdCombo(0)")->click();
            QCOMPARE(opened, 1);
            fields.box("Text3(4)")->setText("Τέταρτη");
            fields.check("Check3(4)")->setChecked(true);
            fields.box("Text2(11)")->setText("");
            QSignalSpy closed(&fields.form, &core::Form::closeRequested);
            fields.form.findChild<QPushButton*>("Command1")->click();
            QCOMPARE(closed.count(), 1);
            QVERIFY(fields.form.unload(false, {15, 15}));
        }
        QCOMPARE(office.value("select FieldCombo4 from CustomFields").toString(), QString("Τέταρτη"));
        QCOMPARE(office.value("select fcb4 from CustomFields").toBool(), true);
        QCOMPARE(office.value("select Memo1 from CustomFields").toString(), QString());
        QCOMPARE(office.value("select fcb1 from CustomFields").toBool(), false);
    }

    void listsOpenWithARowToWorkOn() {
        Office office;
        EditorDriver<cards::frmCategory> editor(office);
        QCOMPARE(editor.list()->currentRow(), 0);
        editor.command("mnuNewCategory")->trigger();
        editor.box("Text1(1)")->setText("Πελάτες");
        editor.command("mnuSave")->trigger();
        QCOMPARE(editor.list()->currentRow(), 1);
        QTest::keyClick(editor.list(), Qt::Key_F2);
        QCOMPARE(editor.box("Text1(1)")->text(), QString("Πελάτες"));
    }

    // What was typed stays, and the window works on when the fault is over.
    void faultsKeepACategoryUnderEdit() {
        Office office;
        EditorDriver<cards::frmCategory> editor(office);
        editor.command("mnuEditCategory")->trigger();
        editor.box("Text1(1)")->setText("Πελάτες");
        office.mod.gConn.execute("update CardKategory set Description='Φίλοι'");
        editor.command("mnuSave")->trigger();
        QVERIFY(office.desk.prompts.lastText().contains("από άλλον χρήστη"));
        QVERIFY(editor.form.isEditing());
        QCOMPARE(editor.box("Text1(1)")->text(), QString("Πελάτες"));
        QTest::keyClick(editor.box("Text1(1)"), Qt::Key_Escape);
        office.mod.gConn.close();
        editor.command("mnuNewCategory")->trigger();
        QVERIFY(office.desk.prompts.lastText().contains(" Error: "));
        office.open(office.mod);
        editor.command("mnuNewCategory")->trigger();
        editor.box("Text1(1)")->setText("Συνεργάτες");
        editor.command("mnuSave")->trigger();
        QCOMPARE(editor.rows(), QStringList({"Συνεργάτες", "Φίλοι"}));
    }

    void anotherListAsksBeforeItTakesAnEdit() {
        Office office;
        EditorDriver<cards::frmCombos> editor(office);
        editor.form.setList(1);
        editor.command("mnuNewTimh")->trigger();
        QTest::keyClick(editor.box("Text1(1)"), Qt::Key_A);
        office.desk.prompts.answer(false);
        editor.form.setList(2);
        QVERIFY(editor.form.isEditing() && editor.form.windowTitle().endsWith("1"));
        office.desk.prompts.answer(true);
        editor.form.setList(2);
        QVERIFY(!editor.form.isEditing() && editor.form.windowTitle().endsWith("2"));
    }

    void fieldsConfirmOnlyWhatWasChanged() {
        Office office;
        EditorDriver<cards::frmFields> fields(office);
        office.mod.gConn.execute("update CustomFields set FIELdchar2='Άλλης θέσης', fn1=true");
        fields.box("Text1(0)")->setText("Δικό μας");
        auto* confirm = fields.form.findChild<QPushButton*>("Command1");
        confirm->setFocus();
        QTest::keyClick(confirm, Qt::Key_Return);
        QCOMPARE(office.value("select FIELdchar1 & '/' & FIELdchar2 from CustomFields").toString(),
                 QString("Δικό μας/Άλλης θέσης"));
        QCOMPARE(office.value("select fn1 from CustomFields").toBool(), true);
    }

    void fieldsThatCouldNotBeReadAreNotErased() {
        Office office;
        office.mod.gConn.close();
        EditorDriver<cards::frmFields> fields(office);
        QCOMPARE(office.desk.prompts.count(), 1);
        office.open(office.mod);
        fields.form.findChild<QPushButton*>("Command1")->click();
        QCOMPARE(fields.box("Text1(0)")->text(), QString("Αλφαριθμητικό 1"));
        QCOMPARE(office.value("select FIELdchar1 from CustomFields").toString(), QString("Αλφαριθμητικό 1"));
        QVERIFY(fields.form.unload(false, {}));
    }

    void fieldsOfTheMovements() {
        Office office;
        EditorDriver<cards::frmFields1> fields(office);
        fields.box("Text2(3)")->setText("Τεμάχια");
        fields.check("Check2(3)")->setChecked(true);
        office.desk.prompts.answer(false);
        QVERIFY(!fields.form.unload(false, {}));
        fields.form.findChild<QPushButton*>("Command1")->click();
        QVERIFY(fields.form.unload(false, {}));
        QCOMPARE(office.value("select FieldNumh4 from CustomFields").toString(), QString("Τεμάχια"));
        QCOMPARE(office.value("select fnh4 from CustomFields").toBool(), true);
    }
};

QTEST_MAIN(TestSettingsForms)
#include "test_settingsforms.moc"
