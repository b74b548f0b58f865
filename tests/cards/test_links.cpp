#include "carddriver.h"
#include "cards/frmlinkfolders.h"
#include "support/cases.h"
#include "support/files.h"

using namespace support;

using cards::LinkTarget;
using platform::PathStyle;

namespace {

// A card, and two files beside the office.
struct Links : CardOffice {
    void add(const QString& description, const QString& stored) { addLink(code, description, stored); }
    QString path(const QString& name) const { return directory_.filePath(name); }

    qint64 code = addCard("Παπαδόπουλος", "Γιώργος");
    QString offer = file("Προσφορά #1 100%.pdf"), plain = file("β.txt");
};

struct LinksDriver : CardDriver {
    explicit LinksDriver(core::MainMod& mod) : CardDriver(mod) { openTab("Συνδέσεις"); }
    controls::ListView* links() const { return list("ListView2"); }
    QStringList rows() const { return CardDriver::rows("ListView2"); }
    void open(int row) const { emit links()->rowActivated(row); }
};

struct LinksSite : Links, LinksDriver {
    LinksSite() : LinksDriver(mod) {}
};

}  // namespace

class TestLinks : public QObject {
    Q_OBJECT
private slots:
    void pathsAreReadOnEitherSystem() {
        using enum LinkTarget::Place;
        struct Case {
            QString stored;
            LinkTarget::Place onLinux;
            QString linuxPath;
            LinkTarget::Place onWindows;
            QString windowsPath;
        };
        QVector<Case> cases{
            {"C:\\Έγγραφα\\α.pdf", Foreign, "C:\\Έγγραφα\\α.pdf", Here, "C:\\Έγγραφα\\α.pdf"},
            {"d:\\\\α.pdf", Foreign, "d:\\\\α.pdf", Here, "d:\\α.pdf"},
            {"C:/a/b.pdf", Foreign, "C:/a/b.pdf", Here, "C:\\a\\b.pdf"},
            {"\\\\server\\koina\\α β.pdf", Network, "smb://server/koina/α β.pdf", Here, "\\\\server\\koina\\α β.pdf"},
            {"/srv/γραφείο/α.pdf", Here, "/srv/γραφείο/α.pdf", Foreign, "/srv/γραφείο/α.pdf"},
            {"/srv/a\\b.pdf", Here, "/srv/a\\b.pdf", Foreign, "/srv/a\\b.pdf"},
            {"HTTPS://a.gr/α", Web, "HTTPS://a.gr/α", Web, "HTTPS://a.gr/α"},
            {"/srv/a ", Here, "/srv/a ", Foreign, "/srv/a"},
        };
        for (const QString text : {"", "   ", "α.pdf", "C:", "\\α.pdf", "\\\\", "Γ:\\α.pdf"})
            cases.append({text, Nowhere, text.trimmed(), Nowhere, text.trimmed()});
        for (const Case& c : cases) {
            const InCase in(c.stored);
            const LinkTarget onLinux = cards::readLink(c.stored, PathStyle::Posix);
            QCOMPARE(onLinux.place, c.onLinux);
            QCOMPARE(onLinux.place == Network ? onLinux.url.toString() : onLinux.path, c.linuxPath);
            const LinkTarget onWindows = cards::readLink(c.stored, PathStyle::Windows);
            QCOMPARE(onWindows.place, c.onWindows);
            QCOMPARE(onWindows.path, c.windowsPath);
        }
    }

    // A file is no address of the web.
    void addresses() {
        const std::pair<const char*, const char*> cases[] = {{"www.example.gr", "http://www.example.gr"},
                                                             {" HTTPS://example.gr/α ", "https://example.gr/α"},
                                                             {"file:///etc/passwd", "http://file///etc/passwd"}};
        for (const auto& [typed, web] : cases) QCOMPARE(cards::webAddress(typed).toString(), web);
    }

    void theListOpensItsFiles() {
        Links office;
        const QString gone = office.path("δεν υπάρχει.pdf");
        office.add("Προσφορά", office.offer);
        office.add("Απούσα", gone);
        office.add("Δίκτυο", "\\\\server\\koina\\a.pdf");
        office.add("Δίσκος", "C:\\a.pdf");
        office.add("Πουθενά", "a.pdf");
        LinksDriver card(office.mod);
        QCOMPARE(card.column(0, "ListView2"), QStringList({"Απούσα", "Δίκτυο", "Δίσκος", "Πουθενά", "Προσφορά"}));
        const QStringList told = {"Δεν υπάρχει πλέον το αρχείο!\n" + gone,
                                  {},
                                  "Η σύνδεση δείχνει σε θέση άλλου υπολογιστή και δεν ανοίγει από εδώ:\nC:\\a.pdf",
                                  "Η σύνδεση δεν δείχνει σε αρχείο:\na.pdf"};
        for (const int row : {0, 2, 3}) {
            office.desk.prompts.answerChoice("Κλείσιμο");
            card.open(row);
            QCOMPARE(office.desk.prompts.lastText(), told[row]);
        }
        QVERIFY(office.desk.shell.opened.isEmpty());
        QCOMPARE(office.desk.prompts.count(), 3);
        for (const int row : {1, 4}) card.open(row);
        QCOMPARE(office.desk.shell.opened, QStringList({"smb://server/koina/a.pdf", office.offer}));
        QCOMPARE(office.desk.prompts.count(), 3);
        office.desk.shell.missingPrograms = office.desk.shell.opened;
        office.desk.prompts.answerChoice("Κλείσιμο");
        for (const int row : {1, 4}) card.open(row);
        QCOMPARE(office.desk.prompts.count(), 5);
    }

    void aMissingFileIsChosenAnew() {
        Links office;
        office.add("Α", office.path("έφυγε.txt"));
        {
            LinksDriver card(office.mod);
            office.desk.prompts.answerChoice("Επιλογή ξανά");
            office.desk.prompts.answerFile(office.offer);
            inNextDialog("frmLink", [&](Driver& form) {
                QTRY_COMPARE(form.shown("File1"), office.offer);
                form.click("Command2");
            });
            card.open(0);
            QCOMPARE(card.rows(), QStringList{"Α|" + office.offer});
            QCOMPARE(office.desk.prompts.count(), 2);
        }
        // Who may only read is told, and no more.
        office.mod.gConn.execute(data::Sql(u"update Links set ΣΥΝΔΕΣΗ=?"_s, office.path("έφυγε.txt")));
        office.mod.gUserGroup = core::groupRestricted;
        LinksDriver(office.mod).open(0);
        QCOMPARE(office.desk.prompts.count(), 3);
    }

    void aLinkHoldsAnAddress() {
        LinksSite card;
        inNextDialog("frmLink", [&](Driver& form) {
            form.type("Text1", "Σελίδα");
            form.type("File1", "σελίδα");
            form.click("Command2");
            QVERIFY(card.desk.prompts.lastText().contains("http://"));
            form.type("File1", "www.example.gr/α");
            form.click("Command1");
            form.click("Command2");
        });
        card.click("Command8");
        QCOMPARE(card.rows(), QStringList{"Σελίδα|www.example.gr/α"});
        card.LinksDriver::open(0);
        QCOMPARE(card.desk.shell.opened, QStringList(2, "http://www.example.gr/%CE%B1"));
    }

    // The folder of a drive is given where a link fails; from then on all of its links open.
    void placesOfOtherComputersHaveFolders() {
        Links office;
        QVERIFY(QDir(office.folder()).mkpath("Κοινά/Έγγραφα"));
        const QString here = office.folder() + "/Κοινά";
        write(here + "/Έγγραφα/α.pdf", "x");
        office.add("Α", "g:\\έγγραφα\\Α.PDF");
        office.add("Β", "\\\\Server\\koina\\Έγγραφα\\α.pdf");
        office.desk.shell.missingPrograms = {
            "smb://server/koina/%CE%88%CE%B3%CE%B3%CF%81%CE%B1%CF%86%CE%B1/%CE%B1.pdf"};
        LinksDriver card(office.mod);
        const QString places[] = {"G:", "\\\\Server\\koina"};
        for (const int row : {0, 1}) {
            office.desk.prompts.answerChoice("Αντιστοίχιση");
            inNextDialog("frmLinkFolders", [&](Driver& form) {
                QCOMPARE(form.shown("Text1"), places[row]);
                form.type("File1", here + "/πουθενά");
                form.click("Command1");
                QVERIFY(form.isOpen());
                office.desk.prompts.answerFolder(here);
                form.click("cmdChoose");
                if (row == 1) form.type("Text1", "server");  // all of its shares lie elsewhere
                form.click("Command1");
                QVERIFY(!form.isOpen());
            });
            if (row == 1) QVERIFY(QDir(here).mkpath("koina/Έγγραφα"));
            if (row == 1) write(here + "/koina/Έγγραφα/α.pdf", "x");
            card.open(row);
        }
        office.desk.shell.opened.removeAll(office.desk.shell.missingPrograms[0]);
        QCOMPARE(office.desk.shell.opened, QStringList({here + "/Έγγραφα/α.pdf", here + "/koina/Έγγραφα/α.pdf"}));
        const auto dialog = std::make_unique<cards::frmLinkFolders>(office.mod, nullptr);
        const Driver form(*dialog);
        QCOMPARE(form.rows(), QStringList({"G:|" + here, "\\\\server|" + here}));
        form.type("Text1", "h");
        form.type("File1", here);
        form.click("Command1");
        QCOMPARE(form.rows(), QStringList({"G:|" + here, "\\\\server|" + here, "H:|" + here}));
        QCOMPARE(form.shown("Text1"), "H:");
        office.desk.prompts.answer(true);
        form.click("Command2");
        QCOMPARE(cards::linkFolders(office.desk.settings).size(), 2);
    }

    void placesAreReadAsTheyAreTyped() {
        const std::pair<const char*, const char*> cases[] = {{"g", "G:"},
                                                             {" g:\\ ", "G:"},
                                                             {"G:/", "G:"},
                                                             {"server", "\\\\server"},
                                                             {"//server/κοινά/", "\\\\server\\κοινά"},
                                                             {"", ""},
                                                             {"γ:", ""},
                                                             {"/srv", ""},
                                                             {"G:\\a", ""},
                                                             {"\\\\a\\b\\c", ""},
                                                             {"a b?", ""}};
        for (const auto& [typed, place] : cases) {
            const InCase in(typed);
            QCOMPARE(cards::linkPlace(typed), place);
        }
    }

    void aNewLinkIsChosenTriedAndStored() {
        LinksSite card;
        inNextDialog("frmLink", [&](Driver& form) {
            QCOMPARE(form.title(), " Καταχώρηση Νέας Σύνδεσης !");
            for (const char* nothing : {"", "  "}) {
                card.desk.prompts.clear();
                form.type("Text1", nothing);
                form.click("Command2");
                QCOMPARE(card.desk.prompts.lastText(), "Δεν έχετε συμπληρώσει την Περιγραφή του συνδέσμου !");
            }
            form.type("Text1", "O'Neil");
            form.click("Command2");
            QVERIFY(form.isOpen());
            card.desk.prompts.answerFile("");
            form.click("cmdChoose");
            QVERIFY(form.shown("File1").isEmpty() && !form.isEnabled("Command1"));
            card.desk.prompts.answerFile(card.offer);
            form.click("cmdChoose");
            QCOMPARE(form.shown("File1"), card.offer);
            form.click("Command1");
            QCOMPARE(card.desk.shell.opened, QStringList{card.offer});
            form.click("Command2");
            QVERIFY(!form.isOpen());
        });
        card.click("Command8");
        QCOMPARE(card.rows(), QStringList{"O'Neil|" + card.offer});
        QCOMPARE(card.value("select codecards from Links").toLongLong(), card.code);
        // The next new one has nothing of it.
        inNextDialog("frmLink",
                     [](Driver& form) { QVERIFY(form.shown("Text1").isEmpty() && form.shown("File1").isEmpty()); });
        card.click("Command8");
    }

    void aLinkIsChangedInItsOwnFolder() {
        Links office;
        office.add("Α", office.plain);
        office.add("Β", office.plain);
        for (const int row : {0, 1}) {
            LinksDriver card(office.mod);
            card.links()->selectRow(row);
            inNextDialog("frmLink", [&](Driver& form) {
                QCOMPARE(form.title(), " Διόρθωση Σύνδεσης!");
                office.desk.prompts.answerFile(office.offer);
                form.click("cmdChoose");
                QCOMPARE(office.desk.prompts.startPath, office.plain);
                form.click("Command2");
            });
            card.click("cmdEditLink");
            QCOMPARE(card.rows(), QStringList({"Α|" + office.offer, "Β|" + (row ? office.offer : office.plain)}));
        }
    }

    void whatIsGoneIsSaid() {
        Links office;
        office.add("Α", office.path("έφυγε.txt"));
        LinksDriver card(office.mod);
        inNextDialog("frmLink", [&](Driver& form) {
            QCOMPARE(office.desk.prompts.lastText(), "Δεν υπάρχει πλέον το αρχείο!");
            QVERIFY(form.shown("File1").endsWith("έφυγε.txt"));
        });
        card.click("cmdEditLink");
        office.mod.gConn.execute("delete from Links");
        card.click("cmdEditLink");
        QCOMPARE(office.desk.prompts.lastText(), "Η συγκεκριμένη σύνδεση έχει ακυρωθεί !");
        QVERIFY(!QApplication::activeModalWidget());
    }

    void deletingALinkLeavesTheFile() {
        Links office;
        for (const char* text : {"Ίδια", "Ίδια"}) office.add(text, office.plain);
        LinksDriver card(office.mod);
        const QVariant second = card.links()->row(1).tag;
        for (const bool yes : {false, true}) {
            office.desk.prompts.answer(yes);
            card.click("cmdDelLink");
            QCOMPARE(card.links()->count(), yes ? 1 : 2);
        }
        QCOMPARE(office.desk.prompts.lastText(), "Να συνεχίσω με διαγραφή της σύνδεσης;");
        QCOMPARE(card.links()->row(0).tag, second);
        QVERIFY(QFile::exists(office.plain));
    }

    void faultsKeepWhatWasTyped() {
        Links office;
        office.add("Α", office.plain);
        LinksDriver card(office.mod);
        inNextDialog("frmLink", [&](Driver& form) {
            form.type("Text1", QString(300, u'α'));
            QCOMPARE(form.shown("Text1").size(), 255);
            form.type("Text1", "Δική μου");
            office.lose();
            form.click("Command2");
            QVERIFY(office.desk.prompts.lastText().contains("Η σύνδεση"));
            office.bringBack();
            form.click("Command2");
        });
        card.click("cmdEditLink");
        QCOMPARE(card.rows(), QStringList{"Δική μου|" + office.plain});
        office.lose();
        office.desk.prompts.answer(true);
        card.click("cmdDelLink");
        QCOMPARE(office.desk.prompts.lastTitle(), "Μήνυμα λάθους");
        QCOMPARE(card.links()->count(), 1);
    }

    void aConflictHasAWayOut() {
        for (const auto& [button, kept] :
             {std::pair("cmdBack", "Τους"), {"cmdMine", "Δική μου"}, {"cmdTheirs", "Τους"}}) {
            const InCase in(button);
            Links office;
            office.add("Α", office.plain);
            LinksDriver card(office.mod);
            inNextDialog("frmLink", [&, button = button](Driver& form) {
                OtherSeat(office).mod.gConn.execute(
                    data::Sql(u"update Links set ΠΕΡΙΓΡΑΦΗ='Τους',ΣΥΝΔΕΣΗ=?"_s, office.offer));
                form.type("Text1", "Δική μου");
                inNextDialog("ConflictDialog", [button](Driver& dialog) {
                    QCOMPARE(dialog.find("optTheirs(0)")->accessibleName(), "Περιγραφή, η δική τους: Τους");
                    dialog.click(button);
                    if (dialog.isOpen()) dialog.click("cmdSave");
                });
                form.click("Command2");
                QCOMPARE(form.isOpen(), QString(button) == "cmdBack");
            });
            card.click("cmdEditLink");
            QCOMPARE(card.rows(), QStringList{kept + ('|' + office.offer)});
        }
    }

    void aLinkThatWasDeletedCanBeSavedAsANewOne() {
        for (const bool anew : {false, true}) {
            Links office;
            office.add("Α", office.plain);
            LinksDriver card(office.mod);
            inNextDialog("frmLink", [&](Driver& form) {
                office.mod.gConn.execute("delete from Links");
                form.type("Text1", "Δική μου");
                office.desk.prompts.answer(anew);
                form.click("Command2");
                QCOMPARE(form.isOpen(), !anew);
            });
            card.click("cmdEditLink");
            QCOMPARE(card.rows(), anew ? QStringList{"Δική μου|" + office.plain} : QStringList());
        }
    }

    void widthsAreKept() {
        Links office;
        {
            LinksDriver card(office.mod);
            card.links()->setColumnWidth(0, 222);
            card.form.unload(false, {});
        }
        QCOMPARE(office.desk.settings.number("lvLinks", "Περιγραφή", 0), 222 * 15);
        QCOMPARE(LinksDriver(office.mod).links()->columnWidth(0), 222);
    }

    void mailAndWebOpenOutside() {
        Office office;
        office.addCard("Α", "Β", {{"email", "b?c@example.gr; x@y, z@example.gr"}, {"URL", "example.gr"}});
        office.addCard("Β", "Γ", {{"email", "a@b."}, {"URL", "x.y"}});
        CardDriver card(office.mod);
        card.click("Command5");
        card.click("Command6");
        QCOMPARE(office.desk.shell.opened, QStringList({"mailto:b%3Fc@example.gr,z@example.gr", "http://example.gr"}));
        QVERIFY2(office.desk.prompts.lastText().endsWith("\nx@y"), qPrintable(office.desk.prompts.lastText()));
        office.desk.shell.missingPrograms = {"http://example.gr"};
        card.click("Command6");
        QCOMPARE(office.desk.prompts.count(), 2);
        card.press(card::Next);
        QVERIFY(!card.isEnabled("Command5") && !card.isEnabled("Command6"));
    }

    void oneOfSeveralPagesIsChosen() {
        Office office;
        office.addCard("Α", "Β", {{"URL", "www.a.gr/1,2; b.gr/?x&c κάτι"}});
        CardDriver card(office.mod);
        card.click("Command6");
        QVERIFY(office.desk.prompts.lastText().endsWith("\nκάτι") && office.desk.shell.opened.isEmpty());
        auto* menu = card.find<QMenu>("mnuPages");
        QCOMPARE(menu->actions().size(), 2);
        menu->actions()[0]->trigger();
        QCOMPARE(office.desk.shell.opened, QStringList{"http://www.a.gr/1,2"});
    }

    void appointmentsAreListedAndDeleted() {
        Links office;
        office.mod.gConn.execute(QString("insert into Dates (codecard,Subject,Location,[Day],Start,[End],notes) values "
                                         "(%1,'Θέμα','Τόπος',#2026/11/06#,#10:30#,#11:00#,Null)")
                                     .arg(office.code));
        office.mod.gConn.execute(
            QString("insert into Dates (codecard,Subject) values (%1,'Αλλού')").arg(office.code + 1));
        LinksDriver card(office.mod);
        QCOMPARE(card.CardDriver::rows("ListView3"), QStringList{"Θέμα|Τόπος|06/11/2026|10:30|11:00|"});
        QCOMPARE(card.list("ListView3")->currentRow(), 0);
        for (const bool yes : {false, true}) {
            office.desk.prompts.answer(yes);
            card.click("cmdDelAppoiment");
            QCOMPARE(card.list("ListView3")->count(), yes ? 0 : 1);
        }
        QCOMPARE(office.desk.prompts.lastText(), "Να συνεχίσω με διαγραφή της Συνάντησης;");
        QCOMPARE(office.count("Dates"), 1);
        office.lose();
        card.form.FillListAppoiment();
        QVERIFY(office.desk.prompts.lastText().startsWith(
            "Πρόβλημα κατά την επεξεργασία των δεμένων! \nΕλέγχετε τα πεδία της ημερομηνίας! \nDorvalist Error: "));
    }
};

QTEST_MAIN(TestLinks)
#include "test_links.moc"
