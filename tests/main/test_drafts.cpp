// What was being typed when the program went away.
#include <QProcess>
#include <QSignalSpy>

#include "cards/frmaddress.h"
#include "cards/frmhistory.h"
#include "core/draftoffer.h"
#include "main/program.h"
#include "support/cases.h"
#include "support/driver.h"
#include "support/files.h"
#include "support/office.h"
#include "users/frmusers.h"

using namespace support;

namespace {

const QString surname = "Text7(0)", firstName = "Text7(1)", city = "Text7(8)", reason = "Text7(0)";
const QString question = "Υπάρχει %1 που δεν αποθηκεύτηκε (%2, 05/11/2026 10:30).\nΝα συνεχίσω από εκεί;";

struct Site : Office {
    Site() {
        desk.settings.setValue("Settings", "Name", "Γραφείο");
        again();
    }
    // As it was at first, for the next case: to make an office on a server takes long.
    void again() {
        main.reset();
        desk.prompts.clear();
        mod.gUserName = "Admin";
        mod.gUserGroup = core::groupAdministrators;
        for (const QString& file : files()) QFile::remove(file);
        for (const char* table : {"cards", "history"}) mod.gConn.execute(QString("delete from ") + table);
        card = addCard("Παπαδόπουλος", "Νίκος", {{"πολη", "Βόλος"}, {"FIELdnum1", 4.5}, {"Photo", QByteArray("π")}});
        mod.gConn.execute(data::Sql(u"insert into history (codecards,ΗΜΕΡΟΜΗΝΙΑ,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ) values (?,?,?,?)"_s,
                                    card, desk.clock.now(), u"Επίσκεψη"_s, 10.5));
        movement = value("select max(aa) from history").toLongLong();
    }
    // A logon: what lies there is offered, and the first of it is answered.
    void logOn(const QString& answer = {}, const std::function<void(Driver&)>& inMovement = {}) {
        main = std::make_unique<entry::MDIMain>(mod);
        main->load();
        activate(*main);
        if (!answer.isEmpty()) desk.prompts.answerChoice(answer);
        if (inMovement) inNextDialog("frmHistory", inMovement);
        core::offerDrafts(mod, main->windows(), main.get());
    }
    template <typename W>
    Driver in(const QString& name) {
        return Driver(*qobject_cast<W*>(main->windows().front(name)));
    }
    Driver cardWindow() { return in<cards::frmAddress>("frmAddress"); }
    void press(int button) { cardWindow().click(QString("lblClick(%1)").arg(button)); }
    // Of the whole program, at once.
    void crash() {
        mod.drafts.writeAll();
        main.reset();
    }
    QStringList files() const {
        QStringList paths;
        for (const QString& name : QDir(mod.drafts.folder).entryList(QDir::Files))
            paths << mod.drafts.folder + '/' + name;
        return paths;
    }

    qint64 card, movement;
    std::unique_ptr<entry::MDIMain> main;
};

enum CardButton { AddNew = 5, Edit = 6, Save = 9, Cancel = 10 };

void typeCard(Site& site, CardButton begin) {
    site.press(begin);
    const Driver card = site.cardWindow();
    if (begin == AddNew) card.type(surname, "Νέος");
    if (begin == AddNew) card.type(firstName, "Α");
    card.type(city, "Λάρισα");
}

void typeMovement(Site& site, bool change) {
    cards::frmHistory form(site.mod, nullptr, [](qint64) {});
    form.EditMode = change;
    form.MovementId = change ? site.movement : 0;
    form.CodeCards = QString::number(site.card);
    form.load();
    Driver(form).type(reason, "Επισκευή");
    site.mod.drafts.writeAll();
}

// In a program of its own, which is killed; tells when it has typed.
int typeUntilKilled(const QString& office, const QString& drafts) {
    Desk desk;
    desk.settings.setValue("Startup", "Path", office);
    desk.settings.setValue("Settings", "Name", "Γραφείο");
    core::MainMod mod{desk.services};
    mod.drafts.folder = drafts;
    entry::Program program(mod);
    if (!program.start()) return 2;
    const Driver logon(*program.logon());
    logon.type("Text1", "Admin");
    logon.type("Text2", "admin");
    logon.click("Command1");
    auto* card = qobject_cast<cards::frmAddress*>(program.mainWindow()->windows().front("frmAddress"));
    card->CardAddNew();
    Driver(*card).type(surname, "Τερματισμός");
    QTimer::singleShot(0, [] {
        fputs("typed\n", stdout);
        fflush(stdout);
    });
    return QApplication::exec() == 0 && program.isEnding() && desk.prompts.isEmpty() ? 0 : 3;
}

}  // namespace

class TestDrafts : public QObject {
    Q_OBJECT
private slots:
    void theNextLogonGoesOn() {
        struct Case {
            const char* name;
            std::function<void(Site&)> type;
            const char *noun, *title;
            QString elsewhere = {};  // what somebody else does meanwhile
            const char* saved;       // what there is at the end
            bool dialog = false;
        };
        const auto newCard = [](Site& site) { typeCard(site, AddNew); };
        const auto oldCard = [](Site& site) { typeCard(site, Edit); };
        const auto newMovement = [](Site& site) { typeMovement(site, false); };
        const auto oldMovement = [](Site& site) { typeMovement(site, true); };
        const QString cards = "select ΕΠΩΝΥΜΟ from cards where πολη='Λάρισα' and ονομα='%1'";
        const QString movements = "select count(*) from history where ΑΙΤΙΟΛΟΓΙΑ='Επισκευή'";
        const Case cases[] = {
            {"a new card", newCard, "καρτέλα", "Νέος Α", {}, "Νέος||0|0|2"},
            {"a changed card", oldCard, "καρτέλα", "Παπαδόπουλος Νίκος", {}, "|Παπαδόπουλος|4.5|0|1"},
            {"a card that is gone", oldCard, "καρτέλα", "Παπαδόπουλος Νίκος", "delete from cards",
             "|Παπαδόπουλος|4.5|0|1"},
            {"a new movement", newMovement, "κίνηση", "Επισκευή", {}, "||0|1|1", true},
            {"a changed movement", oldMovement, "κίνηση", "Επισκευή", {}, "||0|1|1", true},
            {"a movement that is gone", oldMovement, "κίνηση", "Επισκευή", "delete from history", "||0|1|1", true},
        };
        Site site;
        forEach(cases, [&](const Case& c) {
            site.again();
            site.logOn();
            c.type(site);
            site.crash();
            QCOMPARE(site.files().size(), 1);
            QCOMPARE(QFile::permissions(site.files()[0]) & ~(QFile::ReadUser | QFile::WriteUser),
                     QFile::ReadOwner | QFile::WriteOwner);
            if (!c.elsewhere.isEmpty()) site.mod.gConn.execute(c.elsewhere);
            site.mod.gUserName = "Άλλος";
            site.logOn();
            QVERIFY(site.desk.prompts.isEmpty());
            site.mod.gUserName = "admin";
            const auto save = [](Driver& form) { form.key(Qt::Key_F5); };
            site.logOn("Ναι", c.dialog ? save : std::function<void(Driver&)>());
            QCOMPARE(site.desk.prompts.shown()[0].text, question.arg(QString(c.noun), QString(c.title)));
            if (!c.dialog) site.press(Save);
            QVERIFY2(site.desk.prompts.count() == 1, qPrintable(site.desk.prompts.lastText()));
            QCOMPARE(
                QStringList({site.text(cards.arg("Α")), site.text(cards.arg("Νίκος")),
                             QString::number(site.value("select FIELdnum1 from cards where πολη='Λάρισα'").toDouble()),
                             site.text(movements), site.text("select count(*) from cards")})
                    .join('|'),
                c.saved);
            QVERIFY(site.files().isEmpty());
        });
    }

    // The row that was read before the end is the one that the change is of.
    void aChangeByAnotherSeatIsAConflict() {
        Site site;
        site.logOn();
        typeCard(site, Edit);
        site.crash();
        site.mod.gConn.execute("update cards set πολη='Τρίκαλα',Photo=Null");
        site.logOn("Ναι");
        inNextDialog("ConflictDialog", [](Driver& dialog) {
            QCOMPARE(dialog.shown("optTheirs(0)"), "η δική τους: Τρίκαλα");
            dialog.click("cmdSave");
        });
        site.press(Save);
        QCOMPARE(site.text("select πολη from cards"), "Λάρισα");
        QVERIFY(site.value("select Photo from cards").toByteArray().isEmpty());
    }

    void whatIsSettledLeavesNoDraft() {
        struct Case {
            const char* name;
            std::function<void(Site&)> end;
            int left = 0;
        };
        const Case cases[] = {
            {"saved", [](Site& site) { site.press(Save); }},
            {"cancelled", [](Site& site) { site.press(Cancel); }},
            {"typed back",
             [](Site& site) {
                 site.cardWindow().type(city, "Βόλος");
                 site.mod.drafts.writeAll();
             }},
            {"closed without saving",
             [](Site& site) {
                 site.desk.prompts.answer(true);
                 site.main->windows().unloadAll();
             }},
            {"later",
             [](Site& site) {
                 site.crash();
                 site.logOn("Αργότερα");
                 site.press(Edit);  // while a card is under change, none is offered
                 core::offerDrafts(site.mod, site.main->windows(), site.main.get());
                 QCOMPARE(site.desk.prompts.count(), 1);
             },
             1},
            {"not wanted",
             [](Site& site) {
                 site.crash();
                 site.logOn("Όχι");
             }},
            {"without the right",
             [](Site& site) {
                 site.crash();
                 site.mod.gUserGroup = core::groupRestricted;
                 site.logOn();
             },
             1},
        };
        Site site;
        forEach(cases, [&](const Case& c) {
            site.again();
            site.logOn();
            typeCard(site, Edit);
            if (&c != cases) site.mod.drafts.writeAll();  // once it is waited for
            QTRY_COMPARE(site.files().size(), 1);         // when typing pauses
            c.end(site);
            QCOMPARE(site.files().size(), c.left);
        });
    }

    void whatIsNoDraftOfOursIsPassedOver() {
        Site site;
        site.logOn();
        typeCard(site, Edit);
        site.crash();
        const QString file = site.files()[0];
        const QByteArray whole = bytesOf(file);
        QByteArray elsewhere = whole;
        for (const QByteArray& bytes :
             {QByteArray(), QByteArray("{"), QByteArray("[1,2]"), QByteArray(5000, '\xff'),
              whole.left(whole.size() / 2), QByteArray(whole).replace("\"version\": 1", "\"version\": 2"),
              QByteArray(whole).replace("\"owner\"", "\"x\"")}) {
            write(file, bytes);
            site.logOn();
            QVERIFY(site.desk.prompts.isEmpty());
        }
        // One that lost what it needs is gone on with as far as it goes.
        write(file, QByteArray(whole).replace("\"typed\"", "\"x\"").replace("\"row\"", "\"y\""));
        site.logOn("Ναι");
        QCOMPARE(site.cardWindow().shown(city), "Βόλος");
    }

    void aPasswordIsInNoDraft() {
        for (const bool change : {false, true}) {
            Site site;
            site.mod.gConnUsers.execute(
                u"insert into users (UserName,[Password],[Group]) values ('maria','VERIFIER',2)"_s);
            site.logOn();
            auto* users = qobject_cast<users::frmUsers*>(site.main->windows().front("frmUsers"));
            site.in<users::frmUsers>("frmUsers").list()->selectRow(0);
            change ? users->editUser() : users->newUser();
            const Driver form = site.in<users::frmUsers>("frmUsers");
            form.type("Text2", "SECRET");
            form.type("Text1", "eleni");
            site.crash();
            QCOMPARE(site.files().size(), 1);
            const QByteArray bytes = bytesOf(site.files()[0]);
            QVERIFY(bytes.contains("eleni") && !bytes.contains("SECRET") && !bytes.contains("VERIFIER"));
            site.logOn("Ναι");
            const Driver again = site.in<users::frmUsers>("frmUsers");
            if (!change) again.type("Text2", "SECRET");
            if (!change) again.find<QComboBox>("Combo1")->setCurrentIndex(0);
            again.click("Command1");
            QVERIFY2(site.desk.prompts.count() == 1, qPrintable(site.desk.prompts.lastText()));
            QCOMPARE(firstText(site.mod.gConnUsers, u"select count(*) from users where UserName='eleni'"_s), "1");
            QCOMPARE(firstText(site.mod.gConnUsers, u"select count(*) from users where [Password]='VERIFIER'"_s), "1");
            QVERIFY(site.files().isEmpty());
        }
    }

    void theSystemEndsTheProgram() {
        if (testengine::isPostgres()) return;
        Site site;
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(QCoreApplication::applicationFilePath(), {"--type", site.folder(), site.mod.drafts.folder});
        QVERIFY(program.waitForReadyRead(30'000));
        // While it runs, what it writes is its own.
        QTRY_COMPARE(site.files().size(), 1);
        site.logOn();
        QVERIFY(site.desk.prompts.isEmpty());
        program.terminate();
        QVERIFY(program.waitForFinished(30'000));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        site.logOn("Ναι");
        QCOMPARE(site.cardWindow().shown(surname), "Τερματισμός");
    }
};

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const QStringList words = QApplication::arguments();
    if (words.value(1) == "--type") return typeUntilKilled(words.value(2), words.value(3));
    TestDrafts test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_drafts.moc"
