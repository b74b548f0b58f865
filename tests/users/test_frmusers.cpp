#include <QGroupBox>
#include <QMenu>
#include <QPushButton>

#include "data/opening/password.h"
#include "support/office.h"
#include "users/credentials.h"
#include "users/frmusers.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString noGroup = u"Δεν έχετε επιλέξει ομάδα δικαιωμάτων\n για τον χρήστη "_s;
const QString noName = u"Το όνομα Χρήστη δεν μπορεί να είναι κενό !!!"_s;
const QString noPassword = u"Για λόγους ασφαλείας ο Κωδικός δεν μπορεί να είναι κενό !!!"_s;
const QString deletion = u"Είστε σίγουρος για διαγραφή του χρήστη: "_s;

struct Site {
    Site() {
        add("maria", "m1", 1);
        add("νίκος", "n2", 2);
        add("O'Neil", "o3", 3);
    }
    ~Site() { form.reset(); }

    void add(const QString& name, const QString& password, const QVariant& group) {
        data::Recordset users(office.mod.gConnUsers, "select * from users");
        users.addNew();
        users[u"UserName"].setValue(name);
        users[u"Password"].setValue(data::makeVerifier(password, data::PasswordCost::Light));
        users[u"Group"].setValue(group);
        users.update();
    }
    void open() {
        form = std::make_unique<users::frmUsers>(office.mod);
        form->load();
        form->show();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
    }
    void select(const QString& name) {
        for (int i = 0; i < list()->count(); ++i)
            if (list()->row(i).cells[0] == name) return list()->selectRow(i);
        QFAIL(qPrintable(name));
    }
    void type(const QString& name, const QString& password, const QString& group) {
        for (auto [box, text] : {std::pair("Text1", name), std::pair("Text2", password)}) {
            auto* edit = find<controls::TextBox>(box);
            edit->setFocus(Qt::TabFocusReason);
            edit->selectAll();
            text.isEmpty() ? QTest::keyClick(edit, Qt::Key_Delete) : edit->insert(text);
        }
        combo()->setCurrentIndex(combo()->findText(group));
    }
    void confirm() { find<QPushButton>("Command1")->click(); }
    void trigger(const QString& action) { find<QAction>(action)->trigger(); }
    bool editing() { return find<QGroupBox>("Frame1")->isVisible(); }
    QStringList names() {
        QStringList names;
        for (int i = 0; i < list()->count(); ++i) names << list()->row(i).cells[0];
        return names;
    }
    QString focused() { return form->focusWidget() ? form->focusWidget()->objectName() : QString(); }
    // What the table holds: "name/group" and whether the password is right.
    QString user(const QString& name) {
        data::Recordset row(office.mod.gConnUsers,
                            "select * from users where UserName='" + QString(name).replace("'", "''") + "'");
        return row.isEmpty() ? QString() : row[u"UserName"].text() + "/" + row[u"Group"].text();
    }
    bool knows(const QString& name, const QString& password) {
        return users::authenticate(office.mod.gConnUsers, name, password).has_value();
    }
    controls::ListView* list() { return find<controls::ListView>("ListView1"); }
    controls::ChoiceBox* combo() { return find<controls::ChoiceBox>("Combo1"); }
    support::RecordingPrompts& prompts() { return office.desk.prompts; }
    template <typename T>
    T* find(const QString& name) {
        return form->findChild<T*>(name);
    }

    support::Office office;
    std::unique_ptr<users::frmUsers> form;
};

}  // namespace

class TestFrmUsers : public QObject {
    Q_OBJECT
private slots:
    void theListShowsTheHighestGroupFirst() {
        Site site;
        site.add("παλιός", "x", 7);
        site.add("χωρίς", "x", {});
        site.office.mod.gConnUsers.execute("update groups set name='Ο''Κ' where code=3");
        site.open();
        QStringList rows;
        for (int i = 0; i < site.list()->count(); ++i) rows << site.list()->row(i).cells.join('/');
        // A user without a group stands first, as Null does everywhere.
        QCOMPARE(rows, QStringList({"χωρίς/", "παλιός/", "O'Neil/Ο'Κ", "νίκος/Χρήστες", "maria/Διαχειριστές"}));
        QCOMPARE(site.combo()->count(), 3);
        QVERIFY(site.prompts().isEmpty());
    }

    void checks_data() {
        QTest::addColumn<QString>("edited");  // empty: a new user
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("password");
        QTest::addColumn<QString>("group");
        QTest::addColumn<QString>("message");  // empty: saved
        QTest::addColumn<QString>("focus");
        const QString users = "Χρήστες", taken = "Το όνομα Χρήστη %1 υπάρχει ήδη !!!";
        QTest::newRow("new") << ""
                             << "άννα"
                             << "p" << users << ""
                             << "";
        QTest::newRow("new, quotes") << ""
                                     << "d'Artagnan"
                                     << "p'q" << users << ""
                                     << "";
        QTest::newRow("new, no group") << ""
                                       << "άννα"
                                       << "p"
                                       << "" << noGroup + "άννα"
                                       << "Combo1";
        QTest::newRow("the group counts first") << ""
                                                << ""
                                                << ""
                                                << "" << noGroup << "Combo1";
        QTest::newRow("new, no name") << ""
                                      << ""
                                      << "" << users << noName << "Text1";
        QTest::newRow("new, taken") << ""
                                    << "maria"
                                    << "" << users << taken.arg("maria") << "Text1";
        QTest::newRow("new, taken but for accents") << ""
                                                    << "ΝΙΚΟΣ"
                                                    << "p" << users << taken.arg("ΝΙΚΟΣ") << "Text1";
        QTest::newRow("new, no password") << ""
                                          << "άννα"
                                          << "" << users << noPassword << "Text2";
        QTest::newRow("edit") << "O'Neil"
                              << "O'Hara"
                              << "p" << users << ""
                              << "";
        QTest::newRow("edit, case alone") << "maria"
                                          << "MARIA"
                                          << "p" << users << ""
                                          << "";
        QTest::newRow("edit, name of another") << "maria"
                                               << "o'neil"
                                               << "p" << users << taken.arg("o'neil") << "Text1";
        QTest::newRow("edit, password emptied") << "maria"
                                                << "maria"
                                                << "" << users << noPassword << "Text2";
    }
    void checks() {
        QFETCH(QString, edited);
        QFETCH(QString, name);
        QFETCH(QString, password);
        QFETCH(QString, group);
        QFETCH(QString, message);
        QFETCH(QString, focus);
        Site site;
        site.open();
        if (!edited.isEmpty()) site.select(edited);
        site.trigger(edited.isEmpty() ? "mnuNewUser" : "mnuEditUser");
        QVERIFY(site.editing() && !site.list()->isVisible());
        const QStringList before = site.names();
        site.type(name, password, group);
        site.confirm();
        QCOMPARE(site.prompts().lastText(), message);
        QCOMPARE(site.editing(), !message.isEmpty());
        if (!message.isEmpty()) {
            QCOMPARE(site.focused(), focus);
            QCOMPARE(site.find<controls::TextBox>("Text1")->text(), name);
            QCOMPARE(site.names(), before);
            return;
        }
        QCOMPARE(site.user(name), name + "/2");
        QVERIFY(site.knows(name, password));
        QCOMPARE(site.names().size(), before.size() + (edited.isEmpty() ? 1 : 0));
        QCOMPARE(site.list()->row(site.list()->currentRow()).cells, QStringList({name, group}));
        QCOMPARE(site.focused(), QString("ListView1"));
    }

    void anUntouchedPasswordStands() {
        Site site;
        site.open();
        site.select("maria");
        site.trigger("mnuEditUser");
        auto* password = site.find<controls::TextBox>("Text2");
        QCOMPARE(password->echoMode(), QLineEdit::Password);
        QVERIFY(!password->text().isEmpty() && !password->text().contains("argon2"));
        QCOMPARE(site.combo()->currentText(), QString("Διαχειριστές"));
        site.combo()->setCurrentIndex(2);
        site.confirm();
        QCOMPARE(site.user("maria"), QString("maria/3"));
        QVERIFY(site.knows("maria", "m1"));
    }

    void typingBesideTheDotsStartsANewPassword() {
        Site site;
        site.open();
        site.select("maria");
        site.trigger("mnuEditUser");
        auto* password = site.find<controls::TextBox>("Text2");
        password->setFocus(Qt::TabFocusReason);
        password->end(false);
        QTest::keyClicks(password, "xy");
        site.confirm();
        QVERIFY(site.knows("maria", "xy") && !site.knows("maria", "m1"));
        site.trigger("mnuEditUser");
        password->setFocus(Qt::TabFocusReason);
        password->end(false);
        QTest::keyClick(password, Qt::Key_Backspace);
        site.confirm();
        QCOMPARE(site.prompts().lastText(), noPassword);
    }

    void aGroupThatIsGoneIsTold() {
        Site site;
        site.open();
        site.trigger("mnuNewUser");
        site.type("άννα", "p", "Χρήστες");
        site.office.mod.gConnUsers.execute("delete from groups where code=2");
        site.confirm();
        QCOMPARE(site.prompts().lastText(),
                 QString("Υπάρχει πρόβλημα με την συγκεκριμένη ομάδα Δικαιωμάτων (Χρήστες)"));
        QVERIFY(site.editing() && site.user("άννα").isEmpty());
    }

    void deletingAsksFirst() {
        Site site;
        site.open();
        site.select("O'Neil");
        site.prompts().answer(false);
        site.trigger("mnuDeleteUser");
        QCOMPARE(site.prompts().lastText(), deletion + "O'Neil");
        QCOMPARE(site.user("O'Neil"), QString("O'Neil/3"));
        site.prompts().answer(true);
        site.trigger("mnuDeleteUser");
        QCOMPARE(site.names(), QStringList({"νίκος", "maria"}));
        QVERIFY(site.user("O'Neil").isEmpty());
    }

    void theKeyboardReachesEverything() {
        Site site;
        site.open();
        site.select("maria");
        QTest::keyClick(site.list(), Qt::Key_Return);
        QVERIFY(site.editing());
        QCOMPARE(site.find<controls::TextBox>("Text1")->text(), QString("maria"));
        site.find<controls::TextBox>("Text1")->setText("άλλη");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(!site.editing());
        QCOMPARE(site.user("maria"), QString("maria/1"));
        QTest::keyClick(site.list(), Qt::Key_Insert);
        QVERIFY(site.editing() && site.find<controls::TextBox>("Text1")->text().isEmpty());
        QCOMPARE(site.combo()->currentText(), QString());
        site.find<QPushButton>("Command2")->click();
        QVERIFY(!site.editing());
        site.select("maria");
        site.prompts().answer(true);
        QTest::keyClick(site.list(), Qt::Key_Delete);
        QCOMPARE(site.names(), QStringList({"O'Neil", "νίκος"}));
    }

    void theMenuOffersWhatIsPossible_data() {
        QTest::addColumn<QString>("how");
        QTest::addColumn<bool>("overAUser");
        QTest::newRow("menu key") << "menu" << true;
        QTest::newRow("Shift+F10") << "F10" << true;
        QTest::newRow("request of the desktop") << "desktop" << true;
        QTest::newRow("right click on a row") << "row" << true;
        QTest::newRow("right click beside the rows") << "beside" << false;
    }
    void theMenuOffersWhatIsPossible() {
        QFETCH(QString, how);
        QFETCH(bool, overAUser);
        Site site;
        site.open();
        site.select("maria");
        auto* list = site.list();
        const auto rightClick = [&](QPoint at) {
            QContextMenuEvent event(QContextMenuEvent::Mouse, at, list->viewport()->mapToGlobal(at));
            QApplication::sendEvent(list->viewport(), &event);
        };
        if (how == "menu") QTest::keyClick(list, Qt::Key_Menu);
        if (how == "F10") QTest::keyClick(list, Qt::Key_F10, Qt::ShiftModifier);
        if (how == "desktop") {
            const QPoint middle = list->rect().center();
            QContextMenuEvent event(QContextMenuEvent::Keyboard, middle, list->mapToGlobal(middle));
            QApplication::sendEvent(list, &event);
        }
        if (how == "row") rightClick(list->visualRect(list->currentIndex()).center());
        if (how == "beside") rightClick(list->viewport()->rect().bottomLeft() - QPoint(-5, 5));
        auto* menu = site.find<QMenu>("mnu1");
        QVERIFY(menu->isVisible());
        QVERIFY(site.find<QAction>("mnuNewUser")->isEnabled());
        QCOMPARE(site.find<QAction>("mnuEditUser")->isEnabled(), overAUser);
        QCOMPARE(site.find<QAction>("mnuDeleteUser")->isEnabled(), overAUser);
        menu->close();
    }

    void withNobodyThereIsOnlyANewOne() {
        Site site;
        site.office.mod.gConnUsers.execute("delete from users");
        site.open();
        for (int key : {Qt::Key_Return, Qt::Key_Delete}) QTest::keyClick(site.list(), Qt::Key(key));
        QVERIFY(!site.editing() && site.prompts().isEmpty());
        QTest::keyClick(site.list(), Qt::Key_Menu);
        QVERIFY(!site.find<QAction>("mnuEditUser")->isEnabled());
        site.find<QMenu>("mnu1")->close();
    }

    // Another seat changes or deletes the user meanwhile, or the name doesn't fit.
    void aFailedSaveKeepsWhatWasTyped_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("meanwhile");
        QTest::newRow("changed") << "άννα"
                                 << "update users set UserName='m' where UserName='maria'";
        QTest::newRow("deleted") << "άννα"
                                 << "delete from users where UserName='maria'";
        QTest::newRow("too long") << QString(10000, u'a') << "";
    }
    void aFailedSaveKeepsWhatWasTyped() {
        QFETCH(QString, name);
        QFETCH(QString, meanwhile);
        Site site;
        site.open();
        site.select("maria");
        site.trigger("mnuEditUser");
        site.type(name, "p", "Χρήστες");
        core::MainMod seat(site.office.desk.services);
        site.office.open(seat);
        if (!meanwhile.isEmpty()) seat.gConnUsers.execute(meanwhile);
        site.confirm();
        QCOMPARE(site.prompts().lastTitle(), QString("Μήνυμα λάθους"));
        QVERIFY(site.editing());
        QCOMPARE(site.find<controls::TextBox>("Text1")->text(), name);
        QCOMPARE(site.find<controls::TextBox>("Text2")->text(), QString("p"));
        QVERIFY(site.user(name).isEmpty());
    }

    void aUserWhoIsGoneLeavesTheList() {
        for (const char* action : {"mnuEditUser", "mnuDeleteUser"}) {
            Site site;
            site.open();
            site.select("maria");
            site.office.mod.gConnUsers.execute("delete from users where UserName='maria'");
            site.trigger(action);
            QCOMPARE(site.prompts().lastText(), QString("Ο χρήστης έχει διαγραφεί στο μεταξύ."));
            QVERIFY(!site.editing() && !site.names().contains("maria"));
        }
    }

    void closingOverChangesAsks() {
        Site site;
        site.open();
        site.trigger("mnuNewUser");
        QVERIFY(site.form->unload(true, {}));
        site.find<controls::TextBox>("Text1")->setText("άννα");
        site.prompts().answer(false);
        QVERIFY(!site.form->unload(true, {}));
        site.prompts().answer(true);
        QVERIFY(site.form->unload(true, {}));
    }
};

QTEST_MAIN(TestFrmUsers)
#include "test_frmusers.moc"
