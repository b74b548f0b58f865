// The windows in which the office shapes its cards: categories, lists, parametric fields.
#include <QSignalSpy>

#include "cards/frmcategory.h"
#include "cards/frmfields.h"
#include "support/driver.h"
#include "support/office.h"

using support::Office;

namespace {

template <typename Form>
struct EditorDriver : support::Driver {
    template <typename... Arguments>
    explicit EditorDriver(Office& office, Arguments&&... arguments)
        : Driver(form), form(office.mod, std::forward<Arguments>(arguments)...) {
        form.load();
        support::activate(form);
    }
    QCheckBox* check(const QString& name = "Check1") const { return find<QCheckBox>(name); }
    void keyInBox(Qt::Key key) const { QTest::keyClick(find(description), key); }
    void keyInList(Qt::Key key) const { QTest::keyClick(list(), key); }
    void describe(const QString& text) const { type(description, text); }
    QString described() const { return shown(description); }

    const QString description = "Text1(1)";
    Form form;
};

using CategoryDriver = EditorDriver<cards::frmCategory>;

}  // namespace

class TestSettingsForms : public QObject {
    Q_OBJECT
private slots:
    void categoriesAreAddedChangedAndDeleted() {
        Office office;
        CategoryDriver editor(office);
        int changes = 0;
        office.mod.doors.listsChanged.add([&changes] { ++changes; });
        QCOMPARE(editor.rows(), QStringList{"ΕΠΑΦΕΣ"});

        editor.trigger("mnuNewCategory");
        QVERIFY(!editor.isEnabled("mnuNewCategory") && editor.isEnabled("mnuSave"));
        QVERIFY(!editor.isEnabled("lblClick(0)"));
        for (const char* nothing : {"", "  "}) {
            office.desk.prompts.clear();
            editor.describe(nothing);
            editor.keyInBox(Qt::Key_Return);
            QCOMPARE(office.desk.prompts.lastText(), "H Περιγραφή κατηγορίας δεν μπορεί να είναι κενή !!!");
            QVERIFY(editor.form.isEditing() && editor.hasFocus(editor.description));
            QVERIFY(editor.find(editor.description)->property("highlight").toBool());
        }
        editor.describe("Πελάτες O'Neil");
        editor.check()->setChecked(true);
        editor.keyInBox(Qt::Key_Return);
        QCOMPARE(editor.rows(), QStringList({"ΕΠΑΦΕΣ", "Πελάτες O'Neil"}));
        QVERIFY(editor.list()->row(1).ink == controls::ListInk::Danger);
        QCOMPARE(changes, 1);
        // The next new one has nothing of it.
        editor.trigger("mnuNewCategory");
        QVERIFY(editor.described().isEmpty() && !editor.check()->isChecked());
        editor.keyInBox(Qt::Key_Escape);

        editor.list()->selectRow(1);
        editor.keyInList(Qt::Key_Return);
        QVERIFY(editor.check()->isChecked());
        editor.describe("Πελάτες");
        editor.check()->setChecked(false);
        editor.trigger("mnuSave");
        QCOMPARE(editor.rows(), QStringList({"ΕΠΑΦΕΣ", "Πελάτες"}));
        QVERIFY(editor.list()->row(1).ink == controls::ListInk::Usual);

        editor.list()->selectRow(1);
        for (const bool yes : {false, true}) {
            office.desk.prompts.answer(yes);
            editor.trigger("mnuDelCategory");
            QCOMPARE(office.desk.prompts.lastText(), "Είστε σίγουρος για διαγραφή του : Πελάτες");
            QCOMPARE(editor.rows().size(), yes ? 1 : 2);
        }
        QCOMPARE(editor.rows(), QStringList{"ΕΠΑΦΕΣ"});
    }

    void anEmptyTableOffersOnlyNew() {
        Office office;
        EditorDriver<cards::frmCombos> editor(office);
        editor.form.setList(3);
        QVERIFY(!editor.isEnabled("mnuEditTimh") && !editor.isEnabled("mnuDelTimh"));
        editor.trigger("mnuNewTimh");
        editor.describe("τιμή");
        editor.trigger("mnuSave");
        QVERIFY(editor.isEnabled("mnuEditTimh"));
        QCOMPARE(office.text("select Description from Combo3"), "τιμή");
        QVERIFY(!office.value("select Description from Combo1").isValid());
        QCOMPARE(editor.title(), "Τιμές λίστας 3");
    }

    void leavingANewRowWritesNothing() {
        Office office;
        CategoryDriver editor(office);
        editor.trigger("mnuNewCategory");
        editor.keyInBox(Qt::Key_A);
        office.desk.prompts.answer(false);
        QVERIFY(!editor.form.unload(false, {}));
        office.desk.prompts.answer(true);
        editor.keyInBox(Qt::Key_Escape);
        QVERIFY(!editor.form.isEditing());
        QVERIFY(editor.form.unload(false, {}));
        QCOMPARE(office.count("CardKategory"), 1);
    }

    void aRowDeletedByAnotherIsToldByRefreshing() {
        Office office;
        CategoryDriver editor(office);
        editor.list()->selectRow(0);
        office.mod.gConn.execute("delete from CardKategory");
        editor.keyInList(Qt::Key_Return);
        QVERIFY(!editor.form.isEditing());
        QCOMPARE(editor.rows(), QStringList());
    }

    void fieldsRunTheWayTheirArraysDo() {
        Office office;
        int opened = 0;
        {
            office.mod.doors.openValues = [&](int list) { opened = list; };
            EditorDriver<cards::frmFields> fields(office);
            QCOMPARE(fields.shown("Text1(9)"), "Αλφαριθμητικό 10");
            QCOMPARE(fields.shown("Text3(7)"), "Λίστα 1");
            QCOMPARE(fields.shown("Text2(6)"), "Κείμενο 6");
            QCOMPARE(fields.shown("Text4(1)"), "Επιλεκτικό 1");
            fields.click("cmdCombo(0)");
            QCOMPARE(opened, 1);
            fields.type("Text3(4)", "Τέταρτη");
            fields.check("Check3(4)")->setChecked(true);
            fields.type("Text2(11)", "");
            QSignalSpy closed(&fields.form, &core::Form::closeRequested);
            fields.click("Command1");
            QCOMPARE(closed.count(), 1);
            QVERIFY(fields.form.unload(false, {15, 15}));
        }
        QCOMPARE(office.text("select FieldCombo4 from CustomFields"), "Τέταρτη");
        QCOMPARE(office.value("select fcb4 from CustomFields").toBool(), true);
        QCOMPARE(office.text("select Memo1 from CustomFields"), QString());
        QCOMPARE(office.value("select fcb1 from CustomFields").toBool(), false);
    }

    void listsOpenWithARowToWorkOn() {
        Office office;
        CategoryDriver editor(office);
        QCOMPARE(editor.list()->currentRow(), 0);
        editor.trigger("mnuNewCategory");
        editor.describe("Πελάτες");
        editor.trigger("mnuSave");
        QCOMPARE(editor.list()->currentRow(), 1);
        editor.keyInList(Qt::Key_F2);
        QCOMPARE(editor.described(), "Πελάτες");
    }

    // The question saves, too; a save that fails keeps the window.
    void closingSavesWhatWasTyped() {
        Office office;
        CategoryDriver editor(office);
        editor.trigger("mnuNewCategory");
        editor.check()->setChecked(true);
        office.desk.prompts.answerSave();
        QVERIFY(!editor.form.unload(false, {}));
        QCOMPARE(office.desk.prompts.lastText(), "H Περιγραφή κατηγορίας δεν μπορεί να είναι κενή !!!");
        editor.describe("Πελάτες");
        office.desk.prompts.answerSave();
        QVERIFY(editor.form.unload(false, {}));
        QCOMPARE(office.value("select payable from CardKategory where description='Πελάτες'").toBool(), true);
    }

    // What was typed stays, and the window works on when the fault is over.
    void faultsKeepACategoryUnderEdit() {
        Office office;
        CategoryDriver editor(office);
        editor.trigger("mnuEditCategory");
        editor.describe("Πελάτες");
        office.mod.gConn.execute("update CardKategory set Description='Φίλοι'");
        editor.trigger("mnuSave");
        QVERIFY(office.desk.prompts.lastText().contains("από άλλον χρήστη"));
        QVERIFY(editor.form.isEditing());
        QCOMPARE(editor.described(), "Πελάτες");
        office.desk.prompts.answer(true);
        editor.keyInBox(Qt::Key_Escape);
        office.lose();
        editor.trigger("mnuNewCategory");
        QVERIFY(office.desk.prompts.lastText().contains(" Error: "));
        office.bringBack();
        editor.trigger("mnuNewCategory");
        editor.describe("Συνεργάτες");
        editor.trigger("mnuSave");
        QCOMPARE(editor.rows(), QStringList({"Συνεργάτες", "Φίλοι"}));
    }

    void anotherListAsksBeforeItTakesAnEdit() {
        Office office;
        EditorDriver<cards::frmCombos> editor(office);
        editor.form.setList(1);
        editor.trigger("mnuNewTimh");
        editor.keyInBox(Qt::Key_A);
        office.desk.prompts.answer(false);
        editor.form.setList(2);
        QVERIFY(editor.form.isEditing() && editor.title().endsWith("1"));
        office.desk.prompts.answer(true);
        editor.form.setList(2);
        QVERIFY(!editor.form.isEditing() && editor.title().endsWith("2"));
    }

    void fieldsConfirmOnlyWhatWasChanged() {
        Office office;
        EditorDriver<cards::frmFields> fields(office);
        office.mod.gConn.execute("update CustomFields set FIELdchar2='Άλλης θέσης', fn1=true");
        fields.type("Text1(0)", "Δικό μας");
        auto* confirm = fields.find("Command1");
        confirm->setFocus();
        QTest::keyClick(confirm, Qt::Key_Return);
        QCOMPARE(office.text("select FIELdchar1 & '/' & FIELdchar2 from CustomFields"), "Δικό μας/Άλλης θέσης");
        QCOMPARE(office.value("select fn1 from CustomFields").toBool(), true);
    }

    void fieldsThatCouldNotBeReadAreNotErased() {
        Office office;
        office.lose();
        EditorDriver<cards::frmFields> fields(office);
        QCOMPARE(office.desk.prompts.count(), 1);
        office.bringBack();
        fields.click("Command1");
        QCOMPARE(fields.shown("Text1(0)"), "Αλφαριθμητικό 1");
        QCOMPARE(office.text("select FIELdchar1 from CustomFields"), "Αλφαριθμητικό 1");
        QVERIFY(fields.form.unload(false, {}));
    }

    void fieldsOfTheMovements() {
        Office office;
        EditorDriver<cards::frmFields1> fields(office);
        fields.type("Text2(3)", "Τεμάχια");
        fields.check("Check2(3)")->setChecked(true);
        office.desk.prompts.answer(false);
        QVERIFY(!fields.form.unload(false, {}));
        fields.click("Command1");
        QVERIFY(fields.form.unload(false, {}));
        QCOMPARE(office.text("select FieldNumh4 from CustomFields"), "Τεμάχια");
        QCOMPARE(office.value("select fnh4 from CustomFields").toBool(), true);
    }
};

QTEST_MAIN(TestSettingsForms)
#include "test_settingsforms.moc"
