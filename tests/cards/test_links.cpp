#include <QMenu>
#include <QPushButton>
#include <QToolButton>

#include "cards/carddriver.h"
#include "cards/frmlink.h"
#include "cards/linkpath.h"

using namespace Qt::Literals::StringLiterals;

using cards::frmLink;
using cards::LinkTarget;
using platform::PathStyle;
using support::CardDriver;
using support::inNextDialog;
using support::Office;

namespace {

struct Links : Office {
    Links() {
        code = addCard("Παπαδόπουλος", "Γιώργος");
        for (const QString& name : {u"Προσφορά #1 100%.pdf"_s, u"β.txt"_s}) {
            QFile file(path(name));
            if (!file.open(QIODevice::WriteOnly)) QTest::qFail("no scratch file", __FILE__, __LINE__);
        }
    }
    QString path(const QString& name) const { return directory_.filePath(name); }
    void add(const QString& description, const QString& stored) {
        data::Recordset row(mod.gConn, "select * from Links where aa=0");
        row.addNew();
        row[u"codecards"].setValue(code);
        row[u"ΠΕΡΙΓΡΑΦΗ"].setValue(description);
        row[u"ΣΥΝΔΕΣΗ"].setValue(stored);
        row.update();
    }
    qint64 code = 0;
};

struct LinksDriver : CardDriver {
    explicit LinksDriver(core::MainMod& mod) : CardDriver(mod) { openTab("Συνδέσεις"); }
    void open(int row) { emit list(2)->rowActivated(row); }
};

}  // namespace

class TestLinks : public QObject {
    Q_OBJECT
private slots:
    void pathsAreReadOnEitherSystem_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("onLinux");
        QTest::addColumn<QString>("linuxPath");
        QTest::addColumn<int>("onWindows");
        QTest::addColumn<QString>("windowsPath");
        using enum LinkTarget::Place;
        QTest::newRow("drive") << "C:\\Έγγραφα\\α.pdf" << int(Foreign) << "C:\\Έγγραφα\\α.pdf" << int(Here)
                               << "C:\\Έγγραφα\\α.pdf";
        QTest::newRow("root of a drive") << "d:\\\\α.pdf" << int(Foreign) << "d:\\\\α.pdf" << int(Here) << "d:\\α.pdf";
        QTest::newRow("drive with slashes")
            << "C:/a/b.pdf" << int(Foreign) << "C:/a/b.pdf" << int(Here) << "C:\\a\\b.pdf";
        QTest::newRow("share") << "\\\\server\\koina\\α β.pdf" << int(Network) << "smb://server/koina/α β.pdf"
                               << int(Here) << "\\\\server\\koina\\α β.pdf";
        QTest::newRow("Linux") << "/srv/γραφείο/α.pdf" << int(Here) << "/srv/γραφείο/α.pdf" << int(Foreign)
                               << "/srv/γραφείο/α.pdf";
        QTest::newRow("backslash in a name")
            << "/srv/a\\b.pdf" << int(Here) << "/srv/a\\b.pdf" << int(Foreign) << "/srv/a\\b.pdf";
        QTest::newRow("blank at the end of a name") << "/srv/a " << int(Here) << "/srv/a " << int(Foreign) << "/srv/a";
        for (const char* text : {"", "   ", "α.pdf", "C:", "\\α.pdf", "\\\\", "Γ:\\α.pdf"})
            QTest::newRow(qPrintable(QString("nowhere: ") + text))
                << text << int(Nowhere) << QString(text).trimmed() << int(Nowhere) << QString(text).trimmed();
    }
    void pathsAreReadOnEitherSystem() {
        QFETCH(QString, stored);
        const LinkTarget linux_ = cards::readLink(stored, PathStyle::Posix);
        QTEST(int(linux_.place), "onLinux");
        QTEST(linux_.place == LinkTarget::Network ? linux_.url.toString() : linux_.path, "linuxPath");
        const LinkTarget windows = cards::readLink(stored, PathStyle::Windows);
        QTEST(int(windows.place), "onWindows");
        QTEST(windows.path, "windowsPath");
    }

    void addresses_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("web");
        QTest::newRow("plain") << "www.example.gr"
                               << "http://www.example.gr";
        QTest::newRow("own scheme") << " HTTPS://example.gr/α "
                                    << "https://example.gr/α";
        QTest::newRow("a file is no address of the web") << "file:///etc/passwd"
                                                         << "http://file///etc/passwd";
    }
    void addresses() {
        QFETCH(QString, typed);
        QFETCH(QString, web);
        const QUrl url = cards::webAddress(typed);
        QCOMPARE(url.toString(), web);
    }

    void theListOpensItsFiles() {
        Links office;
        office.add("Προσφορά", office.path("Προσφορά #1 100%.pdf"));
        office.add("Απούσα", office.path("δεν υπάρχει.pdf"));
        office.add("Δίκτυο", "\\\\server\\koina\\a.pdf");
        office.add("Δίσκος", "C:\\a.pdf");
        LinksDriver card(office.mod);
        QCOMPARE(card.rows(2).size(), 4);
        QCOMPARE(card.rows(2).first(), "Απούσα|" + office.path("δεν υπάρχει.pdf"));
        card.open(0);
        QCOMPARE(office.desk.prompts.lastText(), "Δεν υπάρχει πλέον το αρχείο!\n" + office.path("δεν υπάρχει.pdf"));
        card.open(2);
        QVERIFY(office.desk.prompts.lastText().endsWith("\nC:\\a.pdf"));
        QVERIFY(office.desk.shell.opened.isEmpty());
        office.desk.prompts.clear();
        card.open(1);
        card.open(3);
        QCOMPARE(office.desk.shell.opened,
                 QStringList({"smb://server/koina/a.pdf", office.path("Προσφορά #1 100%.pdf")}));
        QVERIFY(office.desk.prompts.isEmpty());
        office.desk.shell.missingPrograms = office.desk.shell.opened;
        card.open(1);
        card.open(3);
        QCOMPARE(office.desk.prompts.count(), 2);
    }

    void aNewLinkIsChosenTriedAndStored() {
        Links office;
        LinksDriver card(office.mod);
        const QString file = office.path("Προσφορά #1 100%.pdf");
        inNextDialog<frmLink>([&](frmLink& form) {
            QCOMPARE(form.windowTitle(), QString(" Καταχώρηση Νέας Σύνδεσης !"));
            auto* text = form.findChild<controls::TextBox*>("Text1");
            auto* path = form.findChild<controls::TextBox*>("File1");
            auto* store = form.findChild<QPushButton*>("Command2");
            store->click();
            QCOMPARE(office.desk.prompts.lastText(), QString("Δεν έχετε συμπληρώσει την Περιγραφή του συνδέσμου !"));
            text->setText("O'Neil");
            store->click();
            QVERIFY(form.isVisible());
            office.desk.prompts.answerFile("");
            form.findChild<QPushButton*>("cmdChoose")->click();
            QVERIFY(path->text().isEmpty() && !form.findChild<QPushButton*>("Command1")->isEnabled());
            office.desk.prompts.answerFile(file);
            form.findChild<QPushButton*>("cmdChoose")->click();
            QCOMPARE(path->text(), file);
            form.findChild<QPushButton*>("Command1")->click();
            QCOMPARE(office.desk.shell.opened, QStringList{file});
            store->click();
            QVERIFY(!form.isVisible());
        });
        card.click("Command8");
        QCOMPARE(card.rows(2), QStringList{"O'Neil|" + file});
        QCOMPARE(office.value("select codecards from Links").toLongLong(), office.code);
    }

    void aLinkIsChangedInItsOwnFolder() {
        Links office;
        office.add("Α", office.path("β.txt"));
        LinksDriver card(office.mod);
        card.list(2)->selectRow(0);
        inNextDialog<frmLink>([&](frmLink& form) {
            QCOMPARE(form.windowTitle(), QString(" Διόρθωση Σύνδεσης!"));
            office.desk.prompts.answerFile(office.path("Προσφορά #1 100%.pdf"));
            form.findChild<QPushButton*>("cmdChoose")->click();
            QCOMPARE(office.desk.prompts.startPath, office.path("β.txt"));
            form.findChild<QPushButton*>("Command2")->click();
        });
        card.click("cmdEditLink");
        QCOMPARE(card.rows(2), QStringList{"Α|" + office.path("Προσφορά #1 100%.pdf")});
    }

    void whatIsGoneIsSaidAndNothingOpens() {
        Links office;
        office.add("Α", office.path("έφυγε.txt"));
        LinksDriver card(office.mod);
        card.list(2)->selectRow(0);
        card.click("cmdEditLink");
        QCOMPARE(office.desk.prompts.lastText(), QString("Δεν υπάρχει πλέον το αρχείο!"));
        office.mod.gConn.execute("delete from Links");
        card.click("cmdEditLink");
        QCOMPARE(office.desk.prompts.lastText(), QString("Η συγκεκριμένη σύνδεση έχει ακυρωθεί !"));
        QVERIFY(!QApplication::activeModalWidget());
    }

    void deletingALinkLeavesTheFile() {
        Links office;
        for (const char* text : {"Ίδια", "Ίδια"}) office.add(text, office.path("β.txt"));
        LinksDriver card(office.mod);
        const QVariant second = card.list(2)->row(1).tag;
        for (const bool yes : {false, true}) {
            office.desk.prompts.answer(yes);
            card.click("cmdDelLink");
        }
        QCOMPARE(office.desk.prompts.lastText(), QString("Να συνεχίσω με διαγραφή της σύνδεσης;"));
        QCOMPARE(card.list(2)->count(), 1);
        QCOMPARE(card.list(2)->row(0).tag, second);
        QVERIFY(QFile::exists(office.path("β.txt")));
    }

    void faultsKeepWhatWasTyped() {
        Links office;
        office.add("Α", office.path("β.txt"));
        support::Desk desk;
        core::MainMod other(desk.services);
        office.open(other);
        LinksDriver card(office.mod);
        card.list(2)->selectRow(0);
        inNextDialog<frmLink>([&](frmLink& form) {
            auto* text = form.findChild<controls::TextBox*>("Text1");
            auto* store = form.findChild<QPushButton*>("Command2");
            text->setText(QString(300, u'α'));
            store->click();
            QCOMPARE(office.desk.prompts.lastTitle(), QString("Μήνυμα λάθους"));
            text->setText("Δική μου");
            office.mod.gConn.close();
            store->click();
            office.mod.gConnUsers.close();
            office.open(office.mod);
            other.gConn.execute("update Links set ΠΕΡΙΓΡΑΦΗ='Του άλλου'");
            store->click();
            QCOMPARE(office.desk.prompts.count(), 3);
            QVERIFY(form.isVisible());
            QCOMPARE(text->text(), QString("Δική μου"));
            office.desk.prompts.answer(true);
        });
        card.click("cmdEditLink");
        QCOMPARE(office.value("select ΠΕΡΙΓΡΑΦΗ from Links").toString(), QString("Του άλλου"));
        office.mod.gConn.close();
        office.desk.prompts.answer(true);
        card.click("cmdDelLink");
        QCOMPARE(office.desk.prompts.lastTitle(), QString("Μήνυμα λάθους"));
        QCOMPARE(card.list(2)->count(), 1);
    }

    void widthsAreKept() {
        Links office;
        {
            LinksDriver card(office.mod);
            card.list(2)->setColumnWidth(0, 222);
            card.form.unload(false, {});
        }
        QCOMPARE(office.desk.settings.number("lvLinks", "Περιγραφή", 0), 222 * 15);
    }

    void mailAndWebOpenOutside() {
        Office office;
        office.addCard("Α", "Β", {{"email", "a b?c@example.gr"}, {"URL", "example.gr"}});
        office.addCard("Β", "Γ", {{"email", "a@b."}, {"URL", "x.y"}});
        CardDriver card(office.mod);
        card.click("Command5");
        card.click("Command6");
        QCOMPARE(office.desk.shell.opened, QStringList({"mailto:a%20b%3Fc@example.gr", "http://example.gr"}));
        office.desk.shell.missingPrograms = {"http://example.gr"};
        card.click("Command6");
        QCOMPARE(office.desk.prompts.count(), 1);
        card.press(3);
        QVERIFY(!card.find<QToolButton>("Command5")->isEnabled() && !card.find<QToolButton>("Command6")->isEnabled());
    }

    void appointmentsAreListedAndDeleted() {
        Links office;
        office.mod.gConn.execute(QString("insert into Dates (codecard,Subject,Location,[Day],Start,[End],notes) values "
                                         "(%1,'Θέμα','Τόπος',#2026/11/06#,#10:30#,#11:00#,Null)")
                                     .arg(office.code));
        office.mod.gConn.execute(
            QString("insert into Dates (codecard,Subject) values (%1,'Αλλού')").arg(office.code + 1));
        LinksDriver card(office.mod);
        QCOMPARE(card.rows(3), QStringList{"Θέμα|Τόπος|06/11/2026|10:30|11:00|"});
        QCOMPARE(card.list(3)->currentRow(), 0);
        for (const bool yes : {false, true}) {
            office.desk.prompts.answer(yes);
            card.click("cmdDelAppoiment");
            QCOMPARE(card.list(3)->count(), yes ? 0 : 1);
        }
        QCOMPARE(office.desk.prompts.lastText(), QString("Να συνεχίσω με διαγραφή της Συνάντησης;"));
        QCOMPARE(office.value("select count(*) from Dates").toInt(), 1);
        office.mod.gConn.close();
        card.form.FillListAppoiment();
        QVERIFY(office.desk.prompts.lastText().startsWith(
            "Πρόβλημα κατά την επεξεργασία των δεμένων! \nΕλέγχετε τα πεδία της ημερομηνίας! \nDorvalist Error: "));
    }
};

QTEST_MAIN(TestLinks)
#include "test_links.moc"
